#pragma once
// How a reveal uncovers its object: a straight wipe at an angle, along a path with a width,
// or a circle from the middle. JSON: tagged, {"wipe": 90}, {"path": {"path": …,
// "width": 12}}, "circle".
#include "OvikModel/objects/BezierPath.h"
#include "OvikPlatform/Enumeration.h"
#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct RevealShape : Enumeration<RevealShape> {
    struct wipe {
        static constexpr std::string_view name = "wipe";
        // No initializer: the first case of a variant declared in the same type must be
        // default-constructible before that type is complete. The variant zeroes it.
        double angle;
        bool operator==(const wipe&) const = default;
        static constexpr auto jsonFields() { return std::tuple{required("angle", &wipe::angle)}; }
    };
    /// Stored as the record `Along`.
    struct path {
        static constexpr std::string_view name = "path";
        BezierPath path;
        double width = 0;
        bool operator==(const struct path&) const = default;
        static constexpr auto jsonFields() {
            return std::tuple{required("path", &path::path), required("width", &path::width)};
        }
    };
    struct circle {
        static constexpr std::string_view name = "circle";
        bool operator==(const circle&) const = default;
    };
    std::variant<wipe, path, circle> cases;

    bool operator==(const RevealShape&) const = default;
};

} // namespace ovik
