#pragma once
// The largest picture any decoder here accepts, checked before pixels are allocated so that a
// header claiming a huge size can't exhaust memory.
//
// A picture decoded for a given size on screen has a tighter limit: decoding costs time in
// proportion to the picture's pixels, whatever it is reduced to, so a small thumbnail refuses
// from the header a picture many times larger than it could show.
#include <algorithm>
#include <cstdint>
#include <string_view>

namespace ovik::ImageLimits {

/// A side of at most 32768 pixels and at most 2^28 pixels in all.
constexpr std::int64_t maximumSide = 32768;
constexpr std::int64_t maximumPixels = std::int64_t(1) << 28;

/// The most pixels a picture shown `longSide` pixels on its long side may have: eight times
/// that side each way (64 times its square), at least 2^25 (a square of 5792, so that the
/// screenshots of the largest screens, 7680 × 4320, serve any thumbnail), at most
/// `maximumPixels`.
constexpr std::int64_t pixelsFor(std::int64_t longSide) {
    const std::int64_t side = std::clamp<std::int64_t>(longSide, 1, maximumSide);
    return std::clamp<std::int64_t>(64 * side * side, std::int64_t(1) << 25, maximumPixels);
}

/// Throws `ImageCodecError`, naming `format`, for an empty size or one beyond the limits.
void require(std::int64_t width, std::int64_t height, std::string_view format);
/// The same with the limit of a picture shown `longSide` pixels on its long side.
void require(std::int64_t width, std::int64_t height, std::int64_t longSide, std::string_view format);

} // namespace ovik::ImageLimits
