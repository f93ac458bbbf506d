#pragma once
// PNG files in and out of premultiplied RGBA bitmaps, through libpng.
#include <cstdint>
#include <string>
#include <string_view>

#include "OvikPlatform/image/CGImage.h"

namespace ovik::PNGCodec {

/// The largest picture read: a side of 32768 pixels and 2^28 pixels in all.
constexpr std::int64_t maximumSide = 32768;
constexpr std::int64_t maximumPixels = std::int64_t(1) << 28;

/// Whether the bytes begin with the PNG signature.
bool hasSignature(std::string_view bytes);
/// Throws `ImageCodecError` for anything that isn't a whole PNG within the limits.
CGImage decode(std::string_view bytes);
/// Throws `ImageCodecError` for an empty image.
std::string encode(const CGImage& image);

} // namespace ovik::PNGCodec
