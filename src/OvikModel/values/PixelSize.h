#pragma once
// A size in whole pixels. JSON form: {"height": ..., "width": ...}, both required.
#include <cstdint>
#include <string>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct PixelSize {
    std::int64_t width = 0;
    std::int64_t height = 0;

    /// "1920 × 1080"
    std::string description() const { return std::to_string(width) + " × " + std::to_string(height); }

    bool operator==(const PixelSize&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple{required("width", &PixelSize::width), required("height", &PixelSize::height)};
    }
};

} // namespace ovik
