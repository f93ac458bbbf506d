#include "OvikModel/style/Theme.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace ovik {
namespace {

/// Calls `f` with the list that holds tokens of `kind`.
template <class ThemeType, class F>
decltype(auto) withList(ThemeType& theme, TokenKind kind, F&& f) {
    switch (kind) {
    case TokenKind::color: return f(theme.colors);
    case TokenKind::font: return f(theme.fonts);
    case TokenKind::size: return f(theme.sizes);
    case TokenKind::spacing: return f(theme.spacing);
    case TokenKind::radius: break;
    }
    return f(theme.radii);
}

template <class List>
auto find(List& list, std::string_view name) {
    return std::find_if(list.begin(), list.end(), [&](const auto& token) { return token.name == name; });
}

TokenValue wrap(const RGBA& value) { return TokenValue::makeColor(value); }
TokenValue wrap(const FontRole& value) { return TokenValue::makeFont(value); }
TokenValue wrap(double value) { return TokenValue::makeNumber(value); }

void unwrap(const TokenValue& value, RGBA& out) { out = value.as<TokenValue::color>().value; }
void unwrap(const TokenValue& value, FontRole& out) { out = value.as<TokenValue::font>().value; }
void unwrap(const TokenValue& value, double& out) { out = value.as<TokenValue::number>().value; }

template <class Value>
std::optional<Value> payload(const std::optional<TokenValue>& value) {
    if (!value) return std::nullopt;
    Value out{};
    unwrap(*value, out);
    return out;
}

FontRole systemFont(FontWeight weight) { return FontRole{std::nullopt, weight}; }

} // namespace

Theme Theme::neutral() {
    Theme theme;
    theme.colors = {{"正文色", {0.11373, 0.11373, 0.12157, 1}},
                    {"次要色", {0.43137, 0.43137, 0.45098, 1}},
                    {"强调", {0.03922, 0.51765, 1, 1}},
                    {"底色", {1, 1, 1, 1}}};
    theme.fonts = {{"标题", systemFont(FontWeight::bold)}, {"正文", systemFont(FontWeight::regular)}};
    theme.sizes = scale(20, 1.25, {"小注", "正文", "小标题", "标题", "大标题"}, 1);
    return theme;
}

std::vector<ThemeToken<double>> Theme::scale(double base, double ratio, const std::vector<std::string>& names,
                                             int baseIndex) {
    std::vector<ThemeToken<double>> out;
    out.reserve(names.size());
    for (std::size_t i = 0; i < names.size(); ++i)
        out.push_back({names[i], std::round(base * std::pow(ratio, double(int(i) - baseIndex)))});
    return out;
}

std::vector<std::string> Theme::names(TokenKind kind) const {
    return withList(*this, kind, [](const auto& list) {
        std::vector<std::string> out;
        for (const auto& token : list) out.push_back(token.name);
        return out;
    });
}

bool Theme::contains(TokenKind kind, std::string_view name) const { return value(kind, name).has_value(); }

std::optional<TokenValue> Theme::value(TokenKind kind, std::string_view name) const {
    return withList(*this, kind, [&](const auto& list) -> std::optional<TokenValue> {
        const auto found = find(list, name);
        if (found == list.end()) return std::nullopt;
        return wrap(found->value);
    });
}

std::optional<double> Theme::number(TokenKind kind, std::string_view name) const {
    if (kind == TokenKind::color || kind == TokenKind::font) return std::nullopt;
    return payload<double>(value(kind, name));
}

std::optional<RGBA> Theme::color(std::string_view name) const {
    return payload<RGBA>(value(TokenKind::color, name));
}

std::optional<FontRole> Theme::font(std::string_view name) const {
    return payload<FontRole>(value(TokenKind::font, name));
}

std::optional<double> Theme::size(std::string_view name) const { return number(TokenKind::size, name); }

bool Theme::upsert(TokenKind kind, const std::string& name, const TokenValue& value) {
    if (!value.fits(kind)) return false;
    withList(*this, kind, [&](auto& list) {
        auto found = find(list, name);
        if (found == list.end()) {
            list.emplace_back().name = name;
            found = std::prev(list.end());
        }
        unwrap(value, found->value);
    });
    return true;
}

bool Theme::remove(TokenKind kind, std::string_view name) {
    return withList(*this, kind, [&](auto& list) {
        const auto found = find(list, name);
        if (found == list.end()) return false;
        list.erase(found);
        return true;
    });
}

bool Theme::rename(TokenKind kind, std::string_view name, const std::string& newName) {
    return withList(*this, kind, [&](auto& list) {
        const auto found = find(list, name);
        if (found == list.end() || find(list, newName) != list.end()) return false;
        found->name = newName;
        return true;
    });
}

} // namespace ovik
