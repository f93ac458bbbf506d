#pragma once
// Positions on a variable font's axes, by four-letter OpenType tag ("wght", "wdth", "slnt").
// An empty table is the font as it comes.
#include <map>
#include <string>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct FontAxes {
    static constexpr const char* weight = "wght";
    static constexpr const char* width = "wdth";
    static constexpr const char* slant = "slnt";

    std::map<std::string, double> values;

    /// An OpenType tag: four printable ASCII characters, not starting with a space.
    static bool isTag(std::string_view tag);

    bool operator==(const FontAxes&) const = default;
    static constexpr auto jsonFields() { return std::tuple{required("values", &FontAxes::values)}; }
};

} // namespace ovik
