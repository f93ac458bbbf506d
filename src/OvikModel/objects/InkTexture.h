#pragma once
// The grain of a hand-drawn stroke. Stored flat, as one object whose `kind` tells the case
// ({"kind": "dry", "amount": 0.4, "grain": 1, "seed": 7}), not in the tagged form. The plain
// look is told by leaving the field out, so `none` is never stored: it only names a kind.
#include <cstdint>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

enum class InkTextureKind { none, dry, pixel };
constexpr auto enumCases(InkTextureKind*) {
    using enum InkTextureKind;
    return EnumCases<InkTextureKind, 3>{"Kind", {{none, "none"}, {dry, "dry"}, {pixel, "pixel"}}};
}

struct InkTexture : Enumeration<InkTexture> {
    using Kind = InkTextureKind;

    struct none {
        static constexpr std::string_view name = "none";
        bool operator==(const none&) const = default;
    };
    /// `amount` 0...1, `grain` 0.25...4.
    struct dry {
        static constexpr std::string_view name = "dry";
        double amount = 0;
        double grain = 1;
        std::uint32_t seed = 0;
        bool operator==(const dry&) const = default;
        static constexpr auto jsonFields() {
            return std::tuple{required("amount", &dry::amount), required("grain", &dry::grain),
                              required("seed", &dry::seed)};
        }
        bool isValid() const;
    };
    /// `cell` 1...16 points.
    struct pixel {
        static constexpr std::string_view name = "pixel";
        double cell = 1;
        bool operator==(const pixel&) const = default;
        static constexpr auto jsonFields() { return std::tuple{required("cell", &pixel::cell)}; }
        bool isValid() const;
    };
    std::variant<none, dry, pixel> cases;

    Kind kind() const { return Kind(cases.index()); }
    bool operator==(const InkTexture&) const = default;
};

template <>
struct JSONCoding<InkTexture> {
    /// `none` can't be written: it fails as an encoding error.
    static JSONValue encode(const InkTexture& ink);
    static InkTexture decode(JSONNode node, const CodingPath& path);
};

} // namespace ovik
