#pragma once
// The aspect of the output: a fixed ratio of whole numbers, or free (the picture's own).
// JSON form: "free", or {"ratio": {"height": ..., "width": ...}}.
#include <cstdint>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct AspectRatio : Enumeration<AspectRatio> {
    struct free {
        static constexpr std::string_view name = "free";
        bool operator==(const free&) const = default;
    };
    struct ratio {
        static constexpr std::string_view name = "ratio";
        std::int64_t width = 0;
        std::int64_t height = 0;
        bool operator==(const ratio&) const = default;
        static constexpr auto jsonFields() {
            return std::tuple{required("width", &ratio::width), required("height", &ratio::height)};
        }
    };
    std::variant<free, ratio> cases;

    static AspectRatio makeFree() { return AspectRatio{}; }
    static AspectRatio makeRatio(std::int64_t width, std::int64_t height) {
        return AspectRatio{{}, ratio{width, height}};
    }

    bool operator==(const AspectRatio&) const = default;
};

} // namespace ovik
