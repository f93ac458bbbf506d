#pragma once
// A rectangle of whole pixels in the y-up picture space: pixel (x, y) covers the unit square
// whose lower left corner is (x, y). Pixels beyond ±addressLimit are never addressed, so that
// an infinite extent becomes a large but countable rectangle.
#include <cstdint>

#include "OvikPlatform/geometry/CGRect.h"

namespace ovik {

struct PixelRect {
    static constexpr std::int64_t addressLimit = std::int64_t(1) << 30;

    std::int64_t x = 0;
    std::int64_t y = 0;
    std::int64_t width = 0;
    std::int64_t height = 0;

    /// The pixels a rectangle touches (its edges rounded outward), within ±addressLimit.
    static PixelRect covering(const CGRect& rect);
    /// The whole pixels between the rectangle's edges rounded to the nearest, at least one
    /// pixel each way when the rectangle isn't null.
    static PixelRect nearest(const CGRect& rect);
    /// From edges; empty when they cross.
    static PixelRect fromEdges(std::int64_t minX, std::int64_t minY, std::int64_t maxX, std::int64_t maxY);

    std::int64_t maxX() const { return x + width; }
    std::int64_t maxY() const { return y + height; }
    bool isEmpty() const { return width <= 0 || height <= 0; }
    std::int64_t pixelCount() const { return isEmpty() ? 0 : width * height; }
    bool contains(const PixelRect& other) const;

    PixelRect intersection(const PixelRect& other) const;
    /// The smallest rectangle holding both; an empty one adds nothing.
    PixelRect unionWith(const PixelRect& other) const;
    PixelRect grown(std::int64_t dx, std::int64_t dy) const;
    CGRect cgRect() const { return {{double(x), double(y)}, {double(width), double(height)}}; }

    bool operator==(const PixelRect&) const = default;
};

} // namespace ovik
