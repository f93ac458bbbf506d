#pragma once
// Extents of images: rectangles of the y-up picture space that may be infinite (a constant
// colour covers the plane) or null (an empty image covers nothing). Infinite edges are held
// at ±edgeLimit rather than as infinities, so that sums of edges never turn into NaN.
#include "OvikPlatform/geometry/CGAffineTransform.h"
#include "OvikPlatform/geometry/CGRect.h"

namespace ovik {

class ImageExtent {
public:
    /// An edge at or beyond this distance from the origin counts as infinitely far.
    static constexpr double edgeLimit = 0x1p1000;

    static CGRect infinite();
    /// Covers nothing; its origin is at +infinity, as the platform's null rectangle.
    static CGRect null();
    /// The rectangle of these edges, edges held within ±edgeLimit; null when it has no area.
    static CGRect fromEdges(double minX, double minY, double maxX, double maxY);

    /// Some edge is infinitely far.
    static bool isInfinite(const CGRect& rect);
    /// No area, or not a rectangle of numbers.
    static bool isNull(const CGRect& rect);
    /// Origin and size are all finite numbers.
    static bool isFinite(const CGRect& rect);

    static CGRect intersection(const CGRect& a, const CGRect& b);
    static CGRect unionOf(const CGRect& a, const CGRect& b);
    /// Grown by dx and dy on each side (shrunk when negative); infinite edges stay infinite.
    static CGRect grown(const CGRect& rect, double dx, double dy);
    /// The bounding box of the rectangle moved by `transform`; infinite stays infinite.
    static CGRect transformed(const CGRect& rect, const CGAffineTransform& transform);
};

} // namespace ovik
