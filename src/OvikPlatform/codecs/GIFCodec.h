#pragma once
// GIF files to premultiplied RGBA bitmaps, through giflib. Only the first frame is read, drawn
// on the logical screen with its transparency; the rest of an animation is never decoded.
#include <string_view>

#include "OvikPlatform/codecs/ImageProperties.h"
#include "OvikPlatform/image/CGImage.h"

namespace ovik::GIFCodec {

/// Whether the bytes begin with "GIF87a" or "GIF89a".
bool hasSignature(std::string_view bytes);
/// Throws `ImageCodecError` for anything that isn't a GIF with a first frame within the limits.
CGImage decode(std::string_view bytes);
/// The logical screen's size, from the header alone. GIF keeps no resolution: 72.
ImageProperties properties(std::string_view bytes);

} // namespace ovik::GIFCodec
