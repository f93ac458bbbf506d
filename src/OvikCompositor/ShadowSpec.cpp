#include "OvikCompositor/ShadowSpec.h"

#include <algorithm>
#include <cmath>

namespace ovik {

std::optional<ShadowSpec> ShadowSpec::make(double strength, double pixelsPerPoint) {
    const double t = std::min(strength / 100, 1.0);
    if (!(t > 0)) return std::nullopt;
    return ShadowSpec{pixelsPerPoint * (20 * t + 4), pixelsPerPoint * (10 * t + 2), 0.45 * t + 0.2};
}

} // namespace ovik
