#pragma once
// The language a person picks for the program. Its raw value is what the settings store
// holds; "system" leaves the choice to the environment.
#include <optional>
#include <string>
#include <string_view>

#include "OvikPlatform/Enumeration.h"

namespace ovik {

enum class LanguageChoice { system, chinese, english, japanese, korean };

constexpr auto enumCases(LanguageChoice*) {
    using enum LanguageChoice;
    return EnumCases<LanguageChoice, 5>{
        "LanguageChoice",
        {{system, "system"}, {chinese, "zh-Hans"}, {english, "en"}, {japanese, "ja"}, {korean, "ko"}}};
}

/// The language it sets; none for `system`.
std::optional<std::string> language(LanguageChoice choice);

/// Its name in a menu: each language in its own words, `system` in the language in force.
std::string title(LanguageChoice choice);

} // namespace ovik
