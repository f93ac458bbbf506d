#pragma once
// The largest picture any decoder here accepts, checked before pixels are allocated so that a
// header claiming a huge size can't exhaust memory.
#include <cstdint>
#include <string_view>

namespace ovik::ImageLimits {

/// A side of at most 32768 pixels and at most 2^28 pixels in all.
constexpr std::int64_t maximumSide = 32768;
constexpr std::int64_t maximumPixels = std::int64_t(1) << 28;

/// Throws `ImageCodecError`, naming `format`, for an empty size or one beyond the limits.
void require(std::int64_t width, std::int64_t height, std::string_view format);

} // namespace ovik::ImageLimits
