#include "OvikPlatform/image/PixelRect.h"

#include <algorithm>
#include <cmath>

#include "OvikPlatform/image/ImageExtent.h"

namespace ovik {
namespace {

std::int64_t address(double edge) {
    const double limit = double(PixelRect::addressLimit);
    return std::int64_t(std::clamp(edge, -limit, limit));
}

} // namespace

PixelRect PixelRect::covering(const CGRect& rect) {
    if (ImageExtent::isNull(rect)) return {};
    return fromEdges(address(std::floor(rect.minX())), address(std::floor(rect.minY())),
                     address(std::ceil(rect.maxX())), address(std::ceil(rect.maxY())));
}

PixelRect PixelRect::nearest(const CGRect& rect) {
    if (ImageExtent::isNull(rect)) return {};
    const std::int64_t minX = address(std::round(rect.minX())), minY = address(std::round(rect.minY()));
    return fromEdges(minX, minY, std::max(address(std::round(rect.maxX())), minX + 1),
                     std::max(address(std::round(rect.maxY())), minY + 1));
}

PixelRect PixelRect::fromEdges(std::int64_t minX, std::int64_t minY, std::int64_t maxX, std::int64_t maxY) {
    if (maxX <= minX || maxY <= minY) return {};
    return {minX, minY, maxX - minX, maxY - minY};
}

bool PixelRect::contains(const PixelRect& other) const {
    return other.isEmpty() ||
           (!isEmpty() && other.x >= x && other.y >= y && other.maxX() <= maxX() && other.maxY() <= maxY());
}

PixelRect PixelRect::intersection(const PixelRect& other) const {
    if (isEmpty() || other.isEmpty()) return {};
    return fromEdges(std::max(x, other.x), std::max(y, other.y), std::min(maxX(), other.maxX()),
                     std::min(maxY(), other.maxY()));
}

PixelRect PixelRect::unionWith(const PixelRect& other) const {
    if (isEmpty()) return other;
    if (other.isEmpty()) return *this;
    return fromEdges(std::min(x, other.x), std::min(y, other.y), std::max(maxX(), other.maxX()),
                     std::max(maxY(), other.maxY()));
}

PixelRect PixelRect::grown(std::int64_t dx, std::int64_t dy) const {
    if (isEmpty()) return {};
    return fromEdges(x - dx, y - dy, maxX() + dx, maxY() + dy);
}

} // namespace ovik
