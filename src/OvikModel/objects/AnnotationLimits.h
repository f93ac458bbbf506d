#pragma once
// The smallest and largest sizes an annotation may be given.

namespace ovik {

struct AnnotationLimits {
    static constexpr double minimumStrokeWidth = 0.5;
    static constexpr double minimumFontSize = 4;
    static constexpr double maximumFontSize = 2000;
    static constexpr double minimumCounterDiameter = 8;
};

} // namespace ovik
