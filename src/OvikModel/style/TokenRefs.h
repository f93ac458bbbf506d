#pragma once
// Which theme token each slot of a thing follows, by name. Every key is optional text,
// written when present. A slot names a kind of token: colours for `color`, `fill` and
// `background`, fonts, sizes, radii for `cornerRadius`, spacing for `padding`.
#include <optional>
#include <string>

#include "OvikModel/style/TokenKind.h"
#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

enum class TokenSlot { color, fill, background, font, size, cornerRadius, padding };

constexpr auto enumCases(TokenSlot*) {
    return EnumCases<TokenSlot, 7>{"TokenSlot",
                                   {{TokenSlot::color, "color"},
                                    {TokenSlot::fill, "fill"},
                                    {TokenSlot::background, "background"},
                                    {TokenSlot::font, "font"},
                                    {TokenSlot::size, "size"},
                                    {TokenSlot::cornerRadius, "cornerRadius"},
                                    {TokenSlot::padding, "padding"}}};
}

/// Every slot, in declaration order.
inline constexpr TokenSlot allTokenSlots[] = {TokenSlot::color, TokenSlot::fill,         TokenSlot::background,
                                              TokenSlot::font,  TokenSlot::size,         TokenSlot::cornerRadius,
                                              TokenSlot::padding};

/// The kind of token that a slot follows.
TokenKind tokenKind(TokenSlot slot);

struct TokenRefs {
    std::optional<std::string> color;
    std::optional<std::string> fill;
    std::optional<std::string> background;
    std::optional<std::string> font;
    std::optional<std::string> size;
    std::optional<std::string> cornerRadius;
    std::optional<std::string> padding;

    std::optional<std::string>& operator[](TokenSlot slot);
    const std::optional<std::string>& operator[](TokenSlot slot) const;

    /// No slot follows anything.
    bool isEmpty() const;

    bool operator==(const TokenRefs&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple{optional("color", &TokenRefs::color),
                          optional("fill", &TokenRefs::fill),
                          optional("background", &TokenRefs::background),
                          optional("font", &TokenRefs::font),
                          optional("size", &TokenRefs::size),
                          optional("cornerRadius", &TokenRefs::cornerRadius),
                          optional("padding", &TokenRefs::padding)};
    }
};

} // namespace ovik
