#pragma once
// A colour as four doubles, nominally 0 to 1 but stored as given (a channel beyond the range is
// kept, and only clamped where a colour is shown as text). JSON form: an object with all four
// channels required, at full precision.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct RGBA {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 0;

    /// A 24-bit 0xRRGGBB number, each byte over 255, with the given alpha.
    static RGBA fromHex(std::uint32_t hex, double alpha = 1);
    /// "RRGGBB" with an optional leading "#", alpha 1; any other text gives none.
    static std::optional<RGBA> fromHexText(std::string_view text);
    /// As `fromHexText`, and also "RRGGBBAA" with its own alpha.
    static std::optional<RGBA> fromHexOrAlphaText(std::string_view text);

    /// "#RRGGBB": each channel clamped to 0...1 and rounded to a byte; alpha isn't shown.
    std::string hexText() const;
    /// "#RRGGBBAA".
    std::string hexAlphaText() const;
    /// [red, green, blue, alpha] as doubles, for places that need a colour at full precision.
    JSONValue exactJSON() const;

    bool operator==(const RGBA&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple{required("red", &RGBA::red), required("green", &RGBA::green), required("blue", &RGBA::blue),
                          required("alpha", &RGBA::alpha)};
    }
};

} // namespace ovik
