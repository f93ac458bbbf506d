#pragma once
// The marks a render carries: the product's mark in one style, a custom mark from a preset,
// or both. `id()` names the combination in caches and render keys; it is derived from the
// content, so two equal watermarks always share one id.
//
// The preset's JSON that `id()` hashes is written compact, keys sorted, slashes escaped; with
// no custom preset nothing is hashed for it, only the logo's bytes.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "OvikModel/keys/OvikWatermarkStyle.h"
#include "OvikPlatform/json/JSONValue.h"

namespace ovik {

struct Watermark {
    std::optional<OvikWatermarkStyle> style;
    std::optional<JSONValue> custom; // pending: WatermarkPreset, normalised
    std::optional<std::vector<std::uint8_t>> logo;

    /// The standard mark alone.
    static Watermark madeWithOvik() { return Watermark{OvikWatermarkStyle::trailPill, std::nullopt, std::nullopt}; }

    std::string id() const;

    bool operator==(const Watermark&) const = default;
};

} // namespace ovik
