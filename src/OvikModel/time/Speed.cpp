#include "OvikModel/time/Speed.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace ovik {

double Speed::clamped(double rate) {
    if (!std::isfinite(rate)) return 1.0;
    if (rate <= minimum) return minimum;
    return std::round(std::min(rate, maximum) * 100) / 100;
}

std::string Speed::text(double rate) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.2f", rate);
    std::string out = buffer;
    while (!out.empty() && out.back() == '0') out.pop_back();
    if (!out.empty() && out.back() == '.') out.pop_back();
    return out + "×";
}

} // namespace ovik
