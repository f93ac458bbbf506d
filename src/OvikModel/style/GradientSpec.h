#pragma once
// A two-colour linear gradient at an angle in degrees.
#include "OvikModel/values/RGBA.h"

namespace ovik {

struct GradientSpec {
    RGBA from;
    RGBA to;
    double angleDegrees = 0;

    bool operator==(const GradientSpec&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple{required("from", &GradientSpec::from), required("to", &GradientSpec::to),
                          required("angleDegrees", &GradientSpec::angleDegrees)};
    }
};

} // namespace ovik
