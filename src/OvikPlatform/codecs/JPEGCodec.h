#pragma once
// JPEG files to premultiplied RGBA bitmaps, through libjpeg-turbo. The EXIF orientation is
// applied, so a picture comes out as it is meant to be seen.
#include <string_view>

#include "OvikPlatform/codecs/ImageProperties.h"
#include "OvikPlatform/image/CGImage.h"

namespace ovik::JPEGCodec {

/// Whether the bytes begin with a JPEG start-of-image marker.
bool hasSignature(std::string_view bytes);
/// Throws `ImageCodecError` for anything that isn't a whole JPEG within the limits, and for
/// CMYK pictures.
CGImage decode(std::string_view bytes);
/// The picture reduced to what shows `longSide` pixels on its long side: libjpeg's scaled
/// decoding by up to 8, then rows reduced as they come (`RowReducer::factor` in all), never the
/// whole picture in memory. Throws as `decode` does, and from the header alone for a picture
/// beyond `ImageLimits::pixelsFor`.
CGImage decode(std::string_view bytes, std::int64_t longSide);
/// The shown size and the JFIF resolution, from the header alone.
ImageProperties properties(std::string_view bytes);

} // namespace ovik::JPEGCodec
