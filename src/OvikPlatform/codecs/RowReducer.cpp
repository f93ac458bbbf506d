#include "OvikPlatform/codecs/RowReducer.h"

#include <algorithm>
#include <cstring>

#include "OvikPlatform/codecs/ImageCodecError.h"

namespace ovik {

std::int64_t RowReducer::factor(std::int64_t width, std::int64_t height, std::int64_t longSide) {
    return std::max<std::int64_t>(1, std::max(width, height) / std::max<std::int64_t>(longSide, 1));
}

RowReducer::RowReducer(std::int64_t width, std::int64_t height, std::int64_t factorX, std::int64_t factorY)
    : width_(width), height_(height), factorX_(factorX), factorY_(factorY), outWidth_((width + factorX - 1) / factorX),
      outHeight_((height + factorY - 1) / factorY), sums_(std::size_t(outWidth_) * 4),
      pixels_(std::size_t(outWidth_ * outHeight_) * 4) {}

void RowReducer::add(std::span<const std::uint8_t> row) {
    if (rowsAdded_++ >= height_) throw ImageCodecError("More rows than the picture holds");
    if (factorX_ == 1 && factorY_ == 1) {
        std::memcpy(pixels_.data() + std::size_t(rowsOut_++ * width_) * 4, row.data(), std::size_t(width_) * 4);
        return;
    }
    for (std::int64_t out = 0, x = 0; out < outWidth_; ++out) {
        std::uint64_t* sum = sums_.data() + out * 4;
        for (const std::int64_t end = std::min(x + factorX_, width_); x < end; ++x)
            for (int c = 0; c < 4; ++c) sum[c] += row[std::size_t(x * 4 + c)];
    }
    if (++rowsGathered_ == factorY_) emitRow();
}

void RowReducer::emitRow() {
    std::uint8_t* out = pixels_.data() + std::size_t(rowsOut_++ * outWidth_) * 4;
    for (std::int64_t x = 0; x < outWidth_; ++x) {
        const std::uint64_t count = std::uint64_t(std::min(factorX_, width_ - x * factorX_) * rowsGathered_);
        for (int c = 0; c < 4; ++c) out[x * 4 + c] = std::uint8_t((sums_[std::size_t(x * 4 + c)] + count / 2) / count);
    }
    std::fill(sums_.begin(), sums_.end(), 0);
    rowsGathered_ = 0;
}

CGImage RowReducer::finish() {
    if (rowsGathered_ > 0) emitRow();
    if (rowsAdded_ != height_) throw ImageCodecError("Fewer rows than the picture holds");
    return CGImage(outWidth_, outHeight_, outWidth_ * 4, std::move(pixels_));
}

} // namespace ovik
