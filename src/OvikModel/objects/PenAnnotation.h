#pragma once
// A freehand stroke: the points as drawn and, when recorded, the moment of each.
#include <optional>
#include <vector>

#include "OvikPlatform/geometry/CGPoint.h"
#include "OvikModel/objects/Stroke.h"

namespace ovik {

struct PenAnnotation {
    std::vector<CGPoint> points;
    Stroke stroke;
    std::optional<std::vector<double>> times; // seconds, one per point
    LinePattern pattern = LinePattern::solid;
    bool hasShadow = false;
    bool hasHalo = false;

    bool operator==(const PenAnnotation&) const = default;
    static constexpr auto jsonFields() {
        using P = PenAnnotation;
        return std::tuple{required("points", &P::points),        required("stroke", &P::stroke),
                          optional("times", &P::times),          defaulted("pattern", &P::pattern),
                          defaulted("hasShadow", &P::hasShadow), defaulted("hasHalo", &P::hasHalo)};
    }
};

} // namespace ovik
