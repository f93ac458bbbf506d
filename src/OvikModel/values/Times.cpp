#include "OvikModel/values/Times.h"

#include <cmath>

namespace ovik {
namespace time_detail {

std::int64_t roundedCount(double real) {
    if (!std::isfinite(real)) return 0;
    const double count = std::round(real);
    // 2^63 is the first double beyond the range; every double below it converts exactly
    // (a product that overflowed to infinity lands in the checks as well).
    constexpr double limit = 9223372036854775808.0;
    if (count >= limit) return saturated(true);
    if (count < -limit) return saturated(false);
    return std::int64_t(count);
}

std::string description(std::string_view prefix, std::int64_t microseconds) {
    return std::string(prefix) + std::to_string(microseconds) + "µs";
}

} // namespace time_detail

double frameIndex(double seconds, double fps) {
    return std::floor((seconds + 1e-6) * fps);
}

} // namespace ovik
