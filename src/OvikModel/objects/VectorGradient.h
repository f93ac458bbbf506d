#pragma once
// A gradient of a shape imported from a vector file, in the shape's own coordinates.
#include <optional>
#include <vector>

#include "OvikPlatform/geometry/CGPoint.h"
#include "OvikModel/values/RGBA.h"

namespace ovik {

enum class VectorGradientKind { linear, radial };
constexpr auto enumCases(VectorGradientKind*) {
    return EnumCases<VectorGradientKind, 2>{
        "Kind", {{VectorGradientKind::linear, "linear"}, {VectorGradientKind::radial, "radial"}}};
}

struct VectorGradientStop {
    double offset = 0;
    RGBA color;

    bool operator==(const VectorGradientStop&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("offset", &VectorGradientStop::offset),
                          required("color", &VectorGradientStop::color)};
    }
};

struct VectorGradient {
    using Kind = VectorGradientKind;

    Kind kind = Kind::linear;
    CGPoint from;
    CGPoint to;
    std::vector<VectorGradientStop> stops;
    std::optional<CGPoint> focal;

    bool operator==(const VectorGradient&) const = default;
    static constexpr auto jsonFields() {
        using G = VectorGradient;
        return std::tuple{required("kind", &G::kind), required("from", &G::from), required("to", &G::to),
                          required("stops", &G::stops), optional("focal", &G::focal)};
    }
};

} // namespace ovik
