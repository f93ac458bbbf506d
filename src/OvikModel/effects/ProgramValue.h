#pragma once
// The value of an effect program's parameter. Tagged: {"number": 0.5}, {"color": {...}},
// {"text": "…"} or {"flag": true}.
#include <string>

#include "OvikModel/values/RGBA.h"
#include "OvikPlatform/Enumeration.h"

namespace ovik {

struct ProgramValue : Enumeration<ProgramValue> {
    struct number {
        static constexpr std::string_view name = "number";
        double value;
        bool operator==(const number&) const = default;
    };
    struct color {
        static constexpr std::string_view name = "color";
        RGBA value;
        bool operator==(const color&) const = default;
    };
    struct text {
        static constexpr std::string_view name = "text";
        std::string value;
        bool operator==(const text&) const = default;
    };
    struct flag {
        static constexpr std::string_view name = "flag";
        bool value;
        bool operator==(const flag&) const = default;
    };
    std::variant<number, color, text, flag> cases;

    static ProgramValue makeNumber(double value) { return ProgramValue{{}, number{value}}; }
    static ProgramValue makeColor(RGBA value) { return ProgramValue{{}, color{value}}; }
    static ProgramValue makeText(std::string value) { return ProgramValue{{}, text{std::move(value)}}; }
    static ProgramValue makeFlag(bool value) { return ProgramValue{{}, flag{value}}; }

    /// Whether both are of the same case, whatever their payloads.
    bool hasKindOf(const ProgramValue& other) const { return cases.index() == other.cases.index(); }

    bool operator==(const ProgramValue&) const = default;
};

} // namespace ovik
