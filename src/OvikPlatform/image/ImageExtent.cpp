#include "OvikPlatform/image/ImageExtent.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ovik {
namespace {

double held(double edge) { return std::clamp(edge, -ImageExtent::edgeLimit, ImageExtent::edgeLimit); }

} // namespace

CGRect ImageExtent::infinite() { return {{-edgeLimit, -edgeLimit}, {2 * edgeLimit, 2 * edgeLimit}}; }

CGRect ImageExtent::null() {
    constexpr double far = std::numeric_limits<double>::infinity();
    return {{far, far}, {0, 0}};
}

CGRect ImageExtent::fromEdges(double minX, double minY, double maxX, double maxY) {
    minX = held(minX), minY = held(minY), maxX = held(maxX), maxY = held(maxY);
    if (!(maxX > minX && maxY > minY)) return null();
    return {{minX, minY}, {maxX - minX, maxY - minY}};
}

bool ImageExtent::isInfinite(const CGRect& rect) {
    if (isNull(rect)) return false;
    return rect.minX() <= -edgeLimit || rect.minY() <= -edgeLimit || rect.maxX() >= edgeLimit ||
           rect.maxY() >= edgeLimit;
}

bool ImageExtent::isNull(const CGRect& rect) {
    return !(rect.maxX() > rect.minX() && rect.maxY() > rect.minY()) || !std::isfinite(rect.minX()) ||
           !std::isfinite(rect.minY());
}

bool ImageExtent::isFinite(const CGRect& rect) {
    return std::isfinite(rect.origin.x) && std::isfinite(rect.origin.y) && std::isfinite(rect.size.width) &&
           std::isfinite(rect.size.height);
}

CGRect ImageExtent::intersection(const CGRect& a, const CGRect& b) {
    if (isNull(a) || isNull(b)) return null();
    return fromEdges(std::max(a.minX(), b.minX()), std::max(a.minY(), b.minY()), std::min(a.maxX(), b.maxX()),
                     std::min(a.maxY(), b.maxY()));
}

CGRect ImageExtent::unionOf(const CGRect& a, const CGRect& b) {
    if (isNull(a)) return isNull(b) ? null() : b;
    if (isNull(b)) return a;
    return fromEdges(std::min(a.minX(), b.minX()), std::min(a.minY(), b.minY()), std::max(a.maxX(), b.maxX()),
                     std::max(a.maxY(), b.maxY()));
}

CGRect ImageExtent::grown(const CGRect& rect, double dx, double dy) {
    if (isNull(rect)) return null();
    const auto move = [](double edge, double by) { return std::fabs(edge) >= edgeLimit ? edge : edge + by; };
    return fromEdges(move(rect.minX(), -dx), move(rect.minY(), -dy), move(rect.maxX(), dx), move(rect.maxY(), dy));
}

CGRect ImageExtent::transformed(const CGRect& rect, const CGAffineTransform& t) {
    if (isNull(rect)) return null();
    if (isInfinite(rect)) return infinite();
    const CGPoint corners[] = {t.apply({rect.minX(), rect.minY()}), t.apply({rect.maxX(), rect.minY()}),
                               t.apply({rect.minX(), rect.maxY()}), t.apply({rect.maxX(), rect.maxY()})};
    double minX = corners[0].x, maxX = minX, minY = corners[0].y, maxY = minY;
    for (const CGPoint& p : corners) {
        minX = std::min(minX, p.x), maxX = std::max(maxX, p.x);
        minY = std::min(minY, p.y), maxY = std::max(maxY, p.y);
    }
    return fromEdges(minX, minY, maxX, maxY);
}

} // namespace ovik
