#pragma once
// One parameter of an effect program: its name, its value and, for a number, the bounds it is
// held within (an absent bound is no bound).
#include <optional>
#include <string>

#include "OvikModel/effects/ProgramValue.h"

namespace ovik {

struct ProgramParam {
    std::string name;
    ProgramValue value;
    std::optional<double> low;
    std::optional<double> high;

    /// `value` fitted to this parameter: a finite number clamped to the bounds, any other
    /// value of this parameter's kind as it is; none for a number that isn't finite or a
    /// value of another kind.
    std::optional<ProgramValue> accepting(const ProgramValue& value) const;

    bool operator==(const ProgramParam&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple{required("name", &ProgramParam::name), required("value", &ProgramParam::value),
                          optional("low", &ProgramParam::low), optional("high", &ProgramParam::high)};
    }
};

} // namespace ovik
