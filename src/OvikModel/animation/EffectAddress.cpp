#include "OvikModel/animation/EffectAddress.h"

#include <charconv>

namespace ovik {
namespace {

constexpr std::string_view prefix = "effects[";
constexpr std::string_view separator = "].";

} // namespace

std::string EffectAddress::text() const { return std::string(prefix) + std::to_string(index) + std::string(separator) + name; }

std::optional<EffectAddress> EffectAddress::parse(std::string_view text) {
    if (!text.starts_with(prefix)) return std::nullopt;
    text.remove_prefix(prefix.size());
    const std::size_t close = text.find(separator);
    if (close == std::string_view::npos || close == 0) return std::nullopt;
    const std::string_view digits = text.substr(0, close);
    EffectAddress out;
    // Digits only: from_chars alone would take a sign.
    if (digits.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), out.index);
    if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
    out.name = std::string(text.substr(close + separator.size()));
    if (out.name.empty()) return std::nullopt;
    return out;
}

} // namespace ovik
