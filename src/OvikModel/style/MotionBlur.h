#pragma once
// A style's motion blur: the shutter angle in degrees and how carefully the smear is drawn.
// No record at all is no motion blur.
#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

enum class MotionBlurQuality { automatic, draft, best };

constexpr auto enumCases(MotionBlurQuality*) {
    using enum MotionBlurQuality;
    return EnumCases<MotionBlurQuality, 3>{"MotionBlurQuality", {{automatic, "auto"}, {draft, "draft"}, {best, "best"}}};
}

struct MotionBlur {
    /// The shutter of the natural preset, and of blur turned on without an angle.
    static constexpr double natural = 180;
    static constexpr double strong = 270;

    double shutter = natural;
    MotionBlurQuality quality = MotionBlurQuality::automatic;

    bool operator==(const MotionBlur&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("shutter", &MotionBlur::shutter), defaulted("quality", &MotionBlur::quality)};
    }
};

} // namespace ovik
