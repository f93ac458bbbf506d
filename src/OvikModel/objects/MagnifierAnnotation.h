#pragma once
// A lens that shows an area enlarged: what lies under it, or a fixed source area when pinned.
#include <optional>

#include "OvikModel/objects/SpotlightAnnotation.h"
#include "OvikModel/objects/Stroke.h"

namespace ovik {

struct MagnifierAnnotation {
    CGRect frame;
    double zoom = 2;
    SpotlightShape shape = SpotlightShape::ellipse;
    bool hasShadow = false;
    std::optional<CGRect> pinned;
    std::optional<Stroke> stroke;

    bool operator==(const MagnifierAnnotation&) const = default;
    static constexpr auto jsonFields() {
        using M = MagnifierAnnotation;
        return std::tuple{required("frame", &M::frame),   required("zoom", &M::zoom),
                          required("shape", &M::shape),   required("hasShadow", &M::hasShadow),
                          optional("pinned", &M::pinned), optional("stroke", &M::stroke)};
    }
};

} // namespace ovik
