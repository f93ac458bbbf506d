#pragma once
// The line that draws an annotation's outline, and the pattern it is drawn in.
#include "OvikModel/values/RGBA.h"

namespace ovik {

struct Stroke {
    RGBA color;
    double width = 0;

    bool operator==(const Stroke&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("color", &Stroke::color), required("width", &Stroke::width)};
    }
};

enum class LinePattern { solid, dashed, dotted, sketch };
constexpr auto enumCases(LinePattern*) {
    using enum LinePattern;
    return EnumCases<LinePattern, 4>{"LinePattern",
                                     {{solid, "solid"}, {dashed, "dashed"}, {dotted, "dotted"}, {sketch, "sketch"}}};
}

} // namespace ovik
