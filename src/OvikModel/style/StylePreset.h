#pragma once
// A saved `Style` under a name. The built-in presets ship with the program; "original" is
// the style that changes nothing.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "OvikModel/style/Style.h"

namespace ovik {

struct StylePreset {
    std::string id;
    std::string name;
    Style style;
    bool isBuiltIn = false;

    bool operator==(const StylePreset&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple{required("id", &StylePreset::id), required("name", &StylePreset::name),
                          required("style", &StylePreset::style), required("isBuiltIn", &StylePreset::isBuiltIn)};
    }
};

namespace BuiltInPresets {

/// The presets that ship with the program, named in the language in force.
std::vector<StylePreset> all();
std::optional<StylePreset> builtIn(std::string_view id);

} // namespace BuiltInPresets

} // namespace ovik
