#pragma once
// The shadow under a card, from the style's strength (0 to 100; more counts as 100) and the
// pixels a point takes in the output.
#include <compare>
#include <optional>

namespace ovik {

struct ShadowSpec {
    double sigma = 0;
    double offset = 0;
    double opacity = 0;

    /// None at a strength of 0 or below.
    static std::optional<ShadowSpec> make(double strength, double pixelsPerPoint);

    auto operator<=>(const ShadowSpec&) const = default;
};

} // namespace ovik
