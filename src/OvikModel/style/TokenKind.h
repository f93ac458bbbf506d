#pragma once
// The kinds of named value a theme holds, each in a list of its own.
#include <string>

#include "OvikPlatform/Enumeration.h"

namespace ovik {

enum class TokenKind { color, font, size, spacing, radius };

constexpr auto enumCases(TokenKind*) {
    return EnumCases<TokenKind, 5>{"TokenKind",
                                   {{TokenKind::color, "color"},
                                    {TokenKind::font, "font"},
                                    {TokenKind::size, "size"},
                                    {TokenKind::spacing, "spacing"},
                                    {TokenKind::radius, "radius"}}};
}

/// The localized name of the kind, as a person reads it.
std::string label(TokenKind kind);

} // namespace ovik
