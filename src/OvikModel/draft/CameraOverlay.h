#pragma once
// The recorded camera shown in a corner of the picture. Every key may be absent on reading.
#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

enum class CameraCorner { topLeading, topTrailing, bottomLeading, bottomTrailing };
enum class CameraShape { circle, roundedRect };

constexpr auto enumCases(CameraCorner*) {
    using C = CameraCorner;
    return EnumCases<C, 4>{"CameraCorner",
                           {{C::topLeading, "topLeading"},
                            {C::topTrailing, "topTrailing"},
                            {C::bottomLeading, "bottomLeading"},
                            {C::bottomTrailing, "bottomTrailing"}}};
}

constexpr auto enumCases(CameraShape*) {
    return EnumCases<CameraShape, 2>{
        "CameraShape", {{CameraShape::circle, "circle"}, {CameraShape::roundedRect, "roundedRect"}}};
}

struct CameraOverlay {
    bool isShown = true;
    CameraCorner corner = CameraCorner::bottomLeading;
    CameraShape shape = CameraShape::circle;
    /// A fraction of the picture.
    double size = 0.18;
    bool avoidsCursor = true;
    bool shrinksWhenZoomed = true;

    bool operator==(const CameraOverlay&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{writtenAlways("isShown", &CameraOverlay::isShown),
                          writtenAlways("corner", &CameraOverlay::corner),
                          writtenAlways("shape", &CameraOverlay::shape),
                          writtenAlways("size", &CameraOverlay::size),
                          writtenAlways("avoidsCursor", &CameraOverlay::avoidsCursor),
                          defaulted("shrinksWhenZoomed", &CameraOverlay::shrinksWhenZoomed)};
    }
};

} // namespace ovik
