#pragma once
// A picture reduced by whole factors while its rows arrive, so that a decoder never holds more
// than one source row: each pixel out is the mean of the block of source pixels it covers
// (smaller blocks along the right and bottom edges). Rows are premultiplied RGBA, so that
// transparent pixels lend no colour to their neighbours.
#include <cstdint>
#include <span>
#include <vector>

#include "OvikPlatform/image/CGImage.h"

namespace ovik {

class RowReducer {
public:
    /// The largest whole factor that keeps the long side of a `width` × `height` picture at
    /// least `longSide` pixels; 1 when the picture is not larger than that.
    static std::int64_t factor(std::int64_t width, std::int64_t height, std::int64_t longSide);

    /// A picture of `width` × `height` reduced by `factorX` across and `factorY` down.
    RowReducer(std::int64_t width, std::int64_t height, std::int64_t factorX, std::int64_t factorY);

    /// The next source row, `width` premultiplied RGBA pixels.
    void add(std::span<const std::uint8_t> row);
    /// The reduced picture, once every row has been added.
    CGImage finish();

private:
    void emitRow();

    std::int64_t width_, height_, factorX_, factorY_, outWidth_, outHeight_;
    // Channel sums of the output row being gathered, and how many source rows it holds.
    std::vector<std::uint64_t> sums_;
    std::int64_t rowsGathered_ = 0;
    std::int64_t rowsAdded_ = 0;
    std::vector<std::uint8_t> pixels_;
    std::int64_t rowsOut_ = 0;
};

} // namespace ovik
