#pragma once
// The value of one token whatever its kind: a colour, a font, or a number (sizes, spacing
// and radii). Not stored; it carries a value into and out of a theme.
#include "OvikModel/style/FontRole.h"
#include "OvikModel/style/TokenKind.h"
#include "OvikModel/values/RGBA.h"

namespace ovik {

struct TokenValue : Enumeration<TokenValue> {
    struct color {
        static constexpr std::string_view name = "color";
        RGBA value;
        bool operator==(const color&) const = default;
    };
    struct font {
        static constexpr std::string_view name = "font";
        FontRole value;
        bool operator==(const font&) const = default;
    };
    struct number {
        static constexpr std::string_view name = "number";
        double value;
        bool operator==(const number&) const = default;
    };
    std::variant<color, font, number> cases;

    static TokenValue makeColor(RGBA value) { return TokenValue{{}, color{value}}; }
    static TokenValue makeFont(FontRole value) { return TokenValue{{}, font{std::move(value)}}; }
    static TokenValue makeNumber(double value) { return TokenValue{{}, number{value}}; }

    /// Whether a token of `kind` can hold this value.
    bool fits(TokenKind kind) const;

    bool operator==(const TokenValue&) const = default;
};

} // namespace ovik
