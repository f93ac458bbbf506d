#pragma once
// A rectangle of working pixels. A tile either owns its pixels or views part of another
// tile's, sharing them: a view of a finished intermediate costs no copy. Rows run bottom to
// top, as y does.
#include <memory>

#include "OvikPlatform/image/Pixel.h"
#include "OvikPlatform/image/PixelRect.h"

namespace ovik {

/// The pixel under a coordinate, held far beyond any addressable pixel when it is huge.
std::int64_t pixelIndex(double coordinate);

class PixelTile {
public:
    /// No single tile holds more pixels than this (1 GiB of working pixels).
    static constexpr std::int64_t pixelLimit = std::int64_t(1) << 26;

    PixelTile() = default;
    /// Clear pixels; throws `ImageError::renderTooLarge` beyond `pixelLimit`.
    explicit PixelTile(const PixelRect& rect);
    /// Pixels of unspecified value, for a tile that is about to be written whole.
    static PixelTile uncleared(const PixelRect& rect);

    const PixelRect& rect() const { return rect_; }
    /// The pixel at (rect().x, y); y must lie within the rectangle.
    Pixel* row(std::int64_t y) const { return origin_ + (y - rect_.y) * stride_; }
    /// The pixel at (x, y), clear outside the rectangle.
    Pixel at(std::int64_t x, std::int64_t y) const;
    /// Bilinear between pixel centres (pixel (x, y) has its centre at (x + 0.5, y + 0.5)).
    Pixel interpolated(CGPoint point) const;
    /// The part of this tile within `inner`, which must lie inside it; shares the pixels.
    PixelTile view(const PixelRect& inner) const;
    /// A tile of exactly `rect`: a view where this tile covers it, else a copy clear outside.
    PixelTile covering(const PixelRect& rect) const;

private:
    struct Uncleared {};
    PixelTile(const PixelRect& rect, Uncleared);

    std::shared_ptr<Pixel[]> storage_;
    Pixel* origin_ = nullptr;
    std::int64_t stride_ = 0;
    PixelRect rect_;
};

} // namespace ovik
