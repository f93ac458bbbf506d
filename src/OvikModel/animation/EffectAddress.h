#pragma once
// One parameter of one effect in an effect stack: "effects[<index>].<name>".
#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace ovik {

struct EffectAddress {
    int index = 0;
    std::string name;

    /// "effects[2].amount".
    std::string text() const;
    /// Reads "effects[<i>].<name>"; none for any other text.
    static std::optional<EffectAddress> parse(std::string_view text);

    auto operator<=>(const EffectAddress&) const = default;
};

} // namespace ovik
