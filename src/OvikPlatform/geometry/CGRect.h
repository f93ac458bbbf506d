#pragma once
// A rectangle of origin and size; JSON `[[x, y], [width, height]]`.
#include "OvikPlatform/geometry/CGPoint.h"

namespace ovik {

struct CGRect {
    CGPoint origin;
    CGSize size;

    double minX() const;
    double minY() const;
    double maxX() const;
    double maxY() const;
    double width() const;  // never negative
    double height() const; // never negative
    /// The same area with a non-negative size.
    CGRect standardized() const;

    bool operator==(const CGRect&) const = default;
};

template <>
struct JSONCoding<CGRect> {
    static JSONValue encode(const CGRect& rect);
    static CGRect decode(JSONNode node, const CodingPath& path);
};

} // namespace ovik
