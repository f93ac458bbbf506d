#include "OvikPlatform/codecs/ImageOrientation.h"

#include <array>
#include <cstring>

namespace ovik {
namespace {

// Where a shown pixel (x, y) comes from in a stored picture of width w and height h:
// source x = x·xx + y·xy + (w−1)·xw, source y = x·yx + y·yy + (h−1)·yh.
struct SourceMap {
    int xx, xy, xw, yx, yy, yh;
};

constexpr std::array<SourceMap, 8> sourceMaps = {{
    {1, 0, 0, 0, 1, 0},    // up
    {-1, 0, 1, 0, 1, 0},   // upMirrored
    {-1, 0, 1, 0, -1, 1},  // down
    {1, 0, 0, 0, -1, 1},   // downMirrored
    {0, 1, 0, 1, 0, 0},    // leftMirrored: the transpose
    {0, 1, 0, -1, 0, 1},   // right: the stored top row becomes the right column
    {0, -1, 1, -1, 0, 1},  // rightMirrored: the transverse
    {0, -1, 1, 1, 0, 0},   // left: the stored top row becomes the left column, read upwards
}};

} // namespace

ImageOrientation orientationOfTurns(std::int64_t turns) {
    constexpr ImageOrientation byTurns[] = {ImageOrientation::up, ImageOrientation::right, ImageOrientation::down,
                                            ImageOrientation::left};
    return byTurns[((turns % 4) + 4) % 4];
}

bool swapsSides(ImageOrientation orientation) { return std::uint8_t(orientation) >= 5; }

CGImage oriented(CGImage stored, ImageOrientation orientation) {
    if (orientation == ImageOrientation::up) return stored;
    const SourceMap map = sourceMaps[std::uint8_t(orientation) - 1];
    const std::int64_t w = stored.width(), h = stored.height();
    const std::int64_t outWidth = swapsSides(orientation) ? h : w, outHeight = swapsSides(orientation) ? w : h;
    std::vector<std::uint8_t> pixels(std::size_t(outWidth * outHeight * 4));
    const std::uint8_t* source = stored.pixels().data();
    for (std::int64_t y = 0; y < outHeight; ++y)
        for (std::int64_t x = 0; x < outWidth; ++x) {
            const std::int64_t sx = x * map.xx + y * map.xy + (w - 1) * map.xw;
            const std::int64_t sy = x * map.yx + y * map.yy + (h - 1) * map.yh;
            std::memcpy(&pixels[std::size_t((y * outWidth + x) * 4)], source + sy * stored.bytesPerRow() + sx * 4, 4);
        }
    return CGImage(outWidth, outHeight, outWidth * 4, std::move(pixels));
}

} // namespace ovik
