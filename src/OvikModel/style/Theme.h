#pragma once
// A draft's small table of named values that objects (and the draft's style) follow by
// name, so that changing one token changes everyone who follows it. One list per kind of
// token, each left out of the JSON when empty.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "OvikModel/style/ThemeToken.h"
#include "OvikModel/style/TokenRefs.h"
#include "OvikModel/style/TokenValue.h"

namespace ovik {

struct Theme {
    std::vector<ThemeToken<RGBA>> colors;
    std::vector<ThemeToken<FontRole>> fonts;
    std::vector<ThemeToken<double>> sizes;
    std::vector<ThemeToken<double>> spacing;
    std::vector<ThemeToken<double>> radii;
    /// What the draft's `Style` itself follows.
    std::optional<TokenRefs> style;

    /// The starting theme: text, secondary, accent and base colours, a heading and a body
    /// font, and a type scale.
    static Theme neutral();

    /// `round(base × ratio^(i − baseIndex))` for the name at index i, halves away from zero.
    static std::vector<ThemeToken<double>> scale(double base, double ratio, const std::vector<std::string>& names,
                                                 int baseIndex);

    std::vector<std::string> names(TokenKind kind) const;
    bool contains(TokenKind kind, std::string_view name) const;
    /// The first token of that name in the list of the kind; none when no token has it.
    std::optional<TokenValue> value(TokenKind kind, std::string_view name) const;
    /// The value of a size, spacing or radius token; none for colours and fonts.
    std::optional<double> number(TokenKind kind, std::string_view name) const;
    std::optional<RGBA> color(std::string_view name) const;
    std::optional<FontRole> font(std::string_view name) const;
    std::optional<double> size(std::string_view name) const;

    /// Replaces the value of the token of that name, or adds one at the end. False (and no
    /// change) when the value doesn't fit the kind.
    bool upsert(TokenKind kind, const std::string& name, const TokenValue& value);
    /// Takes the token away; false when there was none.
    bool remove(TokenKind kind, std::string_view name);
    /// Renames a token when the new name is free in its list; false otherwise.
    bool rename(TokenKind kind, std::string_view name, const std::string& newName);

    bool operator==(const Theme&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple{defaulted("colors", &Theme::colors), defaulted("fonts", &Theme::fonts),
                          defaulted("sizes", &Theme::sizes),   defaulted("spacing", &Theme::spacing),
                          defaulted("radii", &Theme::radii),   optional("style", &Theme::style)};
    }
};

} // namespace ovik
