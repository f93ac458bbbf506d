#include "OvikModel/effects/ProgramParam.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ovik {

std::optional<ProgramValue> ProgramParam::accepting(const ProgramValue& offered) const {
    if (!offered.hasKindOf(value)) return std::nullopt;
    if (!offered.is<ProgramValue::number>()) return offered;
    const double number = offered.as<ProgramValue::number>().value;
    if (!std::isfinite(number)) return std::nullopt;
    constexpr double infinity = std::numeric_limits<double>::infinity();
    return ProgramValue::makeNumber(std::min(std::max(number, low.value_or(-infinity)), high.value_or(infinity)));
}

} // namespace ovik
