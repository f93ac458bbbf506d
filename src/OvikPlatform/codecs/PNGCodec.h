#pragma once
// PNG files in and out of premultiplied RGBA bitmaps, through libpng.
#include <cstdint>
#include <string>
#include <string_view>

#include "OvikPlatform/codecs/ImageLimits.h"
#include "OvikPlatform/codecs/ImageProperties.h"
#include "OvikPlatform/image/CGImage.h"

namespace ovik::PNGCodec {

/// The largest picture read: the limits of every decoder.
using ImageLimits::maximumPixels;
using ImageLimits::maximumSide;

/// Whether the bytes begin with the PNG signature.
bool hasSignature(std::string_view bytes);
/// Throws `ImageCodecError` for anything that isn't a whole PNG within the limits.
CGImage decode(std::string_view bytes);
/// The picture reduced, as its rows are read, to what shows `longSide` pixels on its long side
/// (`RowReducer::factor`): only a row of the whole picture is held at a time. Throws as
/// `decode` does, and from the header alone for a picture beyond `ImageLimits::pixelsFor`.
/// An interlaced picture is reduced from its last pass, which holds every other row whole.
CGImage decode(std::string_view bytes, std::int64_t longSide);
/// The size from the header and the resolution from a `pHYs` chunk before the pixel data.
/// Throws `ImageCodecError` when the header is missing or damaged.
ImageProperties properties(std::string_view bytes);
/// Throws `ImageCodecError` for an empty image.
std::string encode(const CGImage& image);

} // namespace ovik::PNGCodec
