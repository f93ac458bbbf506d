#pragma once
// An affine transform of the plane, x' = a x + c y + tx, y' = b x + d y + ty; JSON
// `[a, b, c, d, tx, ty]`.
#include "OvikPlatform/geometry/CGPoint.h"

namespace ovik {

struct CGAffineTransform {
    double a = 1, b = 0, c = 0, d = 1, tx = 0, ty = 0;

    static CGAffineTransform identity() { return {}; }
    static CGAffineTransform translation(double tx, double ty) { return {1, 0, 0, 1, tx, ty}; }
    static CGAffineTransform scale(double sx, double sy) { return {sx, 0, 0, sy, 0, 0}; }
    static CGAffineTransform rotation(double radians);

    /// This transform followed by `then`.
    CGAffineTransform concatenating(const CGAffineTransform& then) const;
    CGPoint apply(CGPoint point) const { return {a * point.x + c * point.y + tx, b * point.x + d * point.y + ty}; }

    bool operator==(const CGAffineTransform&) const = default;
};

template <>
struct JSONCoding<CGAffineTransform> {
    static JSONValue encode(const CGAffineTransform& t);
    static CGAffineTransform decode(JSONNode node, const CodingPath& path);
};

} // namespace ovik
