#pragma once
// An area hidden by blurring, by a mosaic of cells or by a solid colour.
#include <optional>

#include "OvikPlatform/geometry/CGRect.h"
#include "OvikModel/values/RGBA.h"

namespace ovik {

enum class RedactMode { blur, mosaic, solid };
constexpr auto enumCases(RedactMode*) {
    using enum RedactMode;
    return EnumCases<RedactMode, 3>{"RedactMode", {{blur, "blur"}, {mosaic, "mosaic"}, {solid, "solid"}}};
}

struct RedactAnnotation {
    std::optional<double> cellSize;
    CGRect frame;
    RedactMode mode = RedactMode::mosaic;
    double strength = 0;
    RGBA color;

    bool operator==(const RedactAnnotation&) const = default;
    static constexpr auto jsonFields() {
        using R = RedactAnnotation;
        return std::tuple{optional("cellSize", &R::cellSize), required("frame", &R::frame), required("mode", &R::mode),
                          required("strength", &R::strength), required("color", &R::color)};
    }
};

} // namespace ovik
