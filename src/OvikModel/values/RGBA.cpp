#include "OvikModel/values/RGBA.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace ovik {
namespace {

constexpr char hexDigits[] = "0123456789ABCDEF";

double channel(std::uint32_t bits, int shift) {
    return double((bits >> shift) & 0xFF) / 255.0;
}

// A channel as the byte shown in text; a NaN shows as 0.
std::uint32_t byteOf(double value) {
    if (std::isnan(value)) return 0;
    return std::uint32_t(std::round(std::clamp(value, 0.0, 1.0) * 255.0));
}

void appendByte(std::string& out, std::uint32_t byte) {
    out.push_back(hexDigits[byte >> 4]);
    out.push_back(hexDigits[byte & 0x0F]);
}

// Exactly `digits` hexadecimal digits, after an optional "#".
std::optional<std::uint32_t> parseHex(std::string_view text, std::size_t digits) {
    if (!text.empty() && text.front() == '#') text.remove_prefix(1);
    if (text.size() != digits) return std::nullopt;
    std::uint32_t value = 0;
    // Unsigned reading takes no sign and no "0x": only digits of either letter case pass.
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

} // namespace

RGBA RGBA::fromHex(std::uint32_t hex, double alpha) {
    return RGBA{channel(hex, 16), channel(hex, 8), channel(hex, 0), alpha};
}

std::optional<RGBA> RGBA::fromHexText(std::string_view text) {
    const std::optional<std::uint32_t> hex = parseHex(text, 6);
    if (!hex) return std::nullopt;
    return fromHex(*hex);
}

std::optional<RGBA> RGBA::fromHexOrAlphaText(std::string_view text) {
    if (std::optional<RGBA> opaque = fromHexText(text)) return opaque;
    const std::optional<std::uint32_t> hex = parseHex(text, 8);
    if (!hex) return std::nullopt;
    return fromHex(*hex >> 8, channel(*hex, 0));
}

std::string RGBA::hexText() const {
    std::string text = "#";
    for (double value : {red, green, blue}) appendByte(text, byteOf(value));
    return text;
}

std::string RGBA::hexAlphaText() const {
    std::string text = hexText();
    appendByte(text, byteOf(alpha));
    return text;
}

JSONValue RGBA::exactJSON() const {
    return JSONValue(JSONValue::Array{red, green, blue, alpha});
}

} // namespace ovik
