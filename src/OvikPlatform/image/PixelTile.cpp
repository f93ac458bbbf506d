#include "OvikPlatform/image/PixelTile.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "OvikPlatform/image/ImageError.h"
#include "OvikPlatform/image/TileMemory.h"

namespace ovik {

std::int64_t pixelIndex(double coordinate) {
    const double limit = double(PixelRect::addressLimit) * 2;
    return std::int64_t(std::floor(std::clamp(coordinate, -limit, limit)));
}

PixelTile::PixelTile(const PixelRect& rect, Uncleared) : rect_(rect.isEmpty() ? PixelRect{} : rect) {
    if (rect_.pixelCount() > pixelLimit)
        throw ImageError::renderTooLarge(std::to_string(rect_.width) + " × " + std::to_string(rect_.height) +
                                         " pixels would be needed at once");
    storage_ = TileMemory::take(std::size_t(rect_.pixelCount()));
    origin_ = storage_.get();
    stride_ = rect_.width;
}

PixelTile::PixelTile(const PixelRect& rect) : PixelTile(rect, Uncleared{}) {
    std::fill_n(origin_, rect_.pixelCount(), Pixel{});
}

PixelTile PixelTile::uncleared(const PixelRect& rect) { return PixelTile(rect, Uncleared{}); }

Pixel PixelTile::at(std::int64_t x, std::int64_t y) const {
    if (x < rect_.x || y < rect_.y || x >= rect_.maxX() || y >= rect_.maxY()) return {};
    return row(y)[x - rect_.x];
}

Pixel PixelTile::interpolated(CGPoint point) const {
    const double x = point.x - 0.5, y = point.y - 0.5;
    const double fx = std::floor(x), fy = std::floor(y);
    const std::int64_t ix = pixelIndex(fx), iy = pixelIndex(fy);
    const float tx = float(x - fx), ty = float(y - fy);
    const Pixel bottom = at(ix, iy) * (1 - tx) + at(ix + 1, iy) * tx;
    const Pixel top = at(ix, iy + 1) * (1 - tx) + at(ix + 1, iy + 1) * tx;
    return bottom * (1 - ty) + top * ty;
}

PixelTile PixelTile::view(const PixelRect& inner) const {
    PixelTile part = *this;
    part.rect_ = inner;
    part.origin_ = inner.isEmpty() ? nullptr : row(inner.y) + (inner.x - rect_.x);
    return part;
}

PixelTile PixelTile::covering(const PixelRect& rect) const {
    if (rect_.contains(rect)) return view(rect);
    PixelTile copy(rect);
    const PixelRect shared = rect.intersection(rect_);
    for (std::int64_t y = shared.y; y < shared.maxY(); ++y)
        std::copy_n(row(y) + (shared.x - rect_.x), shared.width, copy.row(y) + (shared.x - rect.x));
    return copy;
}

} // namespace ovik
