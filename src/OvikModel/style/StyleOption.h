#pragma once
// What a group of annotations can set in common, so that one control changes them all.
#include <set>
#include <string>
#include <vector>

#include "OvikModel/objects/AnnotationKind.h"

namespace ovik {

enum class StyleOption { pattern, body, heads, fill, corner, shadow, halo };

constexpr auto enumCases(StyleOption*) {
    using enum StyleOption;
    return EnumCases<StyleOption, 7>{"StyleOption",
                                     {{pattern, "pattern"},
                                      {body, "body"},
                                      {heads, "heads"},
                                      {fill, "fill"},
                                      {corner, "corner"},
                                      {shadow, "shadow"},
                                      {halo, "halo"}}};
}

/// The options that every one of the kinds has; none for no kinds.
std::set<StyleOption> shared(const std::vector<AnnotationKind>& kinds);

/// The localized name of the option's control. The arrow's body and its heads share one.
std::string label(StyleOption option);

} // namespace ovik
