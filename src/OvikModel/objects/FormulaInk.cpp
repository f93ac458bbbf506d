#include "OvikModel/objects/FormulaInk.h"

#include "OvikPlatform/TextTrim.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cstdio>

#include "OvikL10n/L10n.h"

namespace ovik {
namespace {

struct NamedColor {
    std::uint32_t hex;
    std::string_view name;
};

constexpr std::uint32_t gray = 0x8E8E93;

constexpr std::array<NamedColor, 25> namedColors{{
    {0x0A84FF, "blue"},   {0x0A84FF, "蓝"},     {0xFF453A, "red"},  {0xFF453A, "红"},     {0x30D158, "green"},
    {0x30D158, "绿"},     {0xFF9F0A, "orange"}, {0xFF9F0A, "橙"},   {0xFFD60A, "yellow"}, {0xFFD60A, "黄"},
    {0xBF5AF2, "purple"}, {0xBF5AF2, "紫"},     {0xFF375F, "pink"}, {0xFF375F, "粉"},     {0x40C8E0, "teal"},
    {0x40C8E0, "青"},     {0x5E5CE6, "indigo"}, {0x5E5CE6, "靛"},   {gray, "gray"},       {gray, "grey"},
    {gray, "灰"},         {0x000000, "black"},  {0x000000, "黑"},   {0xFFFFFF, "white"},  {0xFFFFFF, "白"},
}};

std::optional<std::uint32_t> colorNamed(std::string_view name) {
    for (const NamedColor& entry : namedColors)
        if (entry.name == name) return entry.hex;
    return std::nullopt;
}

std::optional<std::uint32_t> parseHex(std::string_view digits) {
    std::string six(digits);
    if (six.size() == 3) six = {digits[0], digits[0], digits[1], digits[1], digits[2], digits[2]};
    if (six.size() != 6 || !std::all_of(six.begin(), six.end(), [](char c) { return std::isxdigit((unsigned char)c); }))
        return std::nullopt;
    std::uint32_t value = 0;
    std::from_chars(six.data(), six.data() + six.size(), value, 16);
    return value;
}

std::string lowercased(std::string_view text) {
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](char c) { return (c >= 'A' && c <= 'Z') ? char(c + 32) : c; });
    return out;
}

} // namespace

std::optional<FormulaInk> FormulaInk::parse(std::string_view text) {
    text = trimmingWhitespace(text);
    if (text.starts_with('#')) {
        if (auto value = parseHex(text.substr(1))) return FormulaInk{{}, hex{*value}};
        return std::nullopt;
    }
    std::string name = lowercased(text);
    if (!colorNamed(name)) return std::nullopt;
    return FormulaInk{{}, named{std::move(name)}};
}

RGBA FormulaInk::color() const {
    if (is<hex>()) return RGBA::fromHex(as<hex>().value);
    return RGBA::fromHex(colorNamed(as<named>().value).value_or(gray));
}

std::string FormulaInk::text() const {
    if (is<named>()) return as<named>().value;
    char digits[8];
    std::snprintf(digits, sizeof digits, "#%06X", unsigned(as<hex>().value & 0xFFFFFF));
    return digits;
}

FormulaInk JSONCoding<FormulaInk>::decode(JSONNode node, const CodingPath& path) {
    const std::string text = JSONCoding<std::string>::decode(node, path);
    if (auto ink = FormulaInk::parse(text)) return std::move(*ink);
    throw DecodingError::dataCorrupted(path,
                                       L10n::format("model.formula.error.unknownColor", {std::string(trimmingWhitespace(text))}));
}

} // namespace ovik
