#pragma once
// The gradient backgrounds that ship with the program, in the order they are offered.
#include <span>
#include <string_view>

#include "OvikModel/style/GradientSpec.h"

namespace ovik {

struct GradientPreset {
    /// The text-table key of the preset's name.
    std::string_view nameKey;
    GradientSpec spec;
};

namespace OvikBackgrounds {

std::span<const GradientPreset> gradients();

} // namespace OvikBackgrounds

} // namespace ovik
