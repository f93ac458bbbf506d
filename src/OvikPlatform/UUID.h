#pragma once
// A 128-bit universally unique identifier. Its text is the canonical 8-4-4-4-12 form in
// upper-case hexadecimal; reading accepts either letter case and nothing else. JSON form: that
// text as a bare string.
#include <array>
#include <compare>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

class UUID {
public:
    using Bytes = std::array<std::uint8_t, 16>;

    /// The nil UUID, all zero.
    constexpr UUID() = default;
    constexpr explicit UUID(const Bytes& bytes) : bytes_(bytes) {}

    /// A fresh version-4 UUID from the system's entropy source. Never feed it into anything
    /// that must come out the same on every run.
    static UUID random();
    /// The canonical text in either letter case; anything else gives none.
    static std::optional<UUID> parse(std::string_view text);

    const Bytes& bytes() const { return bytes_; }
    /// The canonical upper-case text.
    std::string uuidString() const;

    auto operator<=>(const UUID&) const = default;

private:
    Bytes bytes_{};
};

template <>
struct JSONCoding<UUID> {
    static JSONValue encode(const UUID& value) { return JSONValue(value.uuidString()); }
    static UUID decode(JSONNode node, const CodingPath& path);
};

} // namespace ovik

template <>
struct std::hash<ovik::UUID> {
    std::size_t operator()(const ovik::UUID& uuid) const noexcept;
};
