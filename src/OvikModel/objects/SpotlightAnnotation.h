#pragma once
// A lit area: everything outside the frame is dimmed.
#include "OvikPlatform/geometry/CGRect.h"

namespace ovik {

/// The outline of a spotlight or of a magnifier's lens.
enum class SpotlightShape { rectangle, ellipse };
constexpr auto enumCases(SpotlightShape*) {
    return EnumCases<SpotlightShape, 2>{
        "SpotlightShape", {{SpotlightShape::rectangle, "rectangle"}, {SpotlightShape::ellipse, "ellipse"}}};
}

struct SpotlightAnnotation {
    CGRect frame;
    SpotlightShape shape = SpotlightShape::rectangle;
    double dim = 0;

    bool operator==(const SpotlightAnnotation&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("frame", &SpotlightAnnotation::frame),
                          required("shape", &SpotlightAnnotation::shape), required("dim", &SpotlightAnnotation::dim)};
    }
};

} // namespace ovik
