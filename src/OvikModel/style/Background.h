#pragma once
// What stands behind the capture. Tagged form: "none", "wallpaper", or one key naming the case
// with its payload: {"gradient": {...}}, {"solid": {...}}, {"image": "path"},
// {"catalog": {"reference": ..., "image": "path"}}, {"missingImage": "name"}.
#include <optional>
#include <string>

#include "OvikModel/PackagePath.h"
#include "OvikModel/style/BackgroundReference.h"
#include "OvikModel/style/GradientSpec.h"

namespace ovik {

struct Background : Enumeration<Background> {
    struct none {
        static constexpr std::string_view name = "none";
        bool operator==(const none&) const = default;
    };
    struct gradient {
        static constexpr std::string_view name = "gradient";
        GradientSpec value;
        bool operator==(const gradient&) const = default;
    };
    struct solid {
        static constexpr std::string_view name = "solid";
        RGBA value;
        bool operator==(const solid&) const = default;
    };
    struct image {
        static constexpr std::string_view name = "image";
        PackagePath value;
        bool operator==(const image&) const = default;
    };
    /// A catalogue picture, with the package copy of it when one was kept.
    struct catalog {
        static constexpr std::string_view name = "catalog";
        BackgroundReference reference;
        std::optional<PackagePath> image;
        bool operator==(const catalog&) const = default;
        static constexpr auto jsonFields() {
            return std::tuple{required("reference", &catalog::reference), optional("image", &catalog::image)};
        }
    };
    /// An image that could not be found; the text names it for the person.
    struct missingImage {
        static constexpr std::string_view name = "missingImage";
        std::string value;
        bool operator==(const missingImage&) const = default;
    };
    struct wallpaper {
        static constexpr std::string_view name = "wallpaper";
        bool operator==(const wallpaper&) const = default;
    };
    std::variant<none, gradient, solid, image, catalog, missingImage, wallpaper> cases;

    static Background makeNone() { return Background{}; }
    static Background makeSolid(RGBA colour) { return Background{{}, solid{colour}}; }
    static Background makeGradient(GradientSpec spec) { return Background{{}, gradient{spec}}; }

    /// The package file of a picture background (a catalogue one only when a copy was kept).
    std::optional<PackagePath> picture() const;

    bool operator==(const Background&) const = default;
};

} // namespace ovik
