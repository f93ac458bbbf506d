#pragma once
// A picture of a background catalogue: one of the system's desktop pictures (a file path and
// a frame of it), or a named mesh gradient. Tagged form: {"macOS": {"frame": 0, "path": ...}}
// or {"mesh": "name"}.
#include <cstdint>
#include <string>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct BackgroundReference : Enumeration<BackgroundReference> {
    struct macOS {
        static constexpr std::string_view name = "macOS";
        std::string path;
        std::int64_t frame;
        bool operator==(const macOS&) const = default;
        static constexpr auto jsonFields() {
            return std::tuple{required("path", &macOS::path), required("frame", &macOS::frame)};
        }
    };
    struct mesh {
        static constexpr std::string_view name = "mesh";
        std::string value;
        bool operator==(const mesh&) const = default;
    };
    std::variant<macOS, mesh> cases;

    bool operator==(const BackgroundReference&) const = default;
};

} // namespace ovik
