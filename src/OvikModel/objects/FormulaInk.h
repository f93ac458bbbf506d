#pragma once
// The colour of a term of a formula: a name of the colour table or a 24-bit number. Its JSON
// form is one string, the name or "#RRGGBB"; reading also takes "#RGB", any case and white
// space around it.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "OvikModel/values/RGBA.h"

namespace ovik {

struct FormulaInk : Enumeration<FormulaInk> {
    struct named {
        static constexpr std::string_view name = "named";
        std::string value;
        bool operator==(const named&) const = default;
    };
    struct hex {
        static constexpr std::string_view name = "hex";
        std::uint32_t value = 0;
        bool operator==(const hex&) const = default;
    };
    std::variant<named, hex> cases;

    /// The ink a text names, or none when it names no colour.
    static std::optional<FormulaInk> parse(std::string_view text);
    /// The colour of the table for a name (gray for a name it doesn't hold), or the number.
    RGBA color() const;
    /// The stored text.
    std::string text() const;

    bool operator==(const FormulaInk&) const = default;
};

template <>
struct JSONCoding<FormulaInk> {
    static JSONValue encode(const FormulaInk& ink) { return JSONValue(ink.text()); }
    static FormulaInk decode(JSONNode node, const CodingPath& path);
};

} // namespace ovik
