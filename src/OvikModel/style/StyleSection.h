#pragma once
// The parts of a style that a person can switch off one by one.
#include "OvikPlatform/Enumeration.h"

namespace ovik {

enum class StyleSection { background, padding, cornerRadius, shadow, look };

constexpr auto enumCases(StyleSection*) {
    return EnumCases<StyleSection, 5>{"StyleSection",
                                      {{StyleSection::background, "background"},
                                       {StyleSection::padding, "padding"},
                                       {StyleSection::cornerRadius, "cornerRadius"},
                                       {StyleSection::shadow, "shadow"},
                                       {StyleSection::look, "look"}}};
}

} // namespace ovik
