#pragma once
// The colours of the terms of a formula, by the term's text.
#include <map>
#include <string>

#include "OvikModel/objects/FormulaInk.h"

namespace ovik {

struct FormulaStyle {
    std::map<std::string, FormulaInk> colors;

    bool operator==(const FormulaStyle&) const = default;
    static constexpr auto jsonFields() { return std::tuple{defaulted("colors", &FormulaStyle::colors)}; }
};

} // namespace ovik
