#pragma once
// What a plain path can't say of a shape that came from a vector file: holes and further
// subpaths, the fill rule, caps, joins, dashes and a gradient.
#include <optional>
#include <vector>

#include "OvikModel/objects/BezierPath.h"
#include "OvikModel/objects/VectorGradient.h"

namespace ovik {

enum class LineCap { butt, round, square };
constexpr auto enumCases(LineCap*) {
    using enum LineCap;
    return EnumCases<LineCap, 3>{"LineCap", {{butt, "butt"}, {round, "round"}, {square, "square"}}};
}

enum class LineJoin { miter, round, bevel };
constexpr auto enumCases(LineJoin*) {
    using enum LineJoin;
    return EnumCases<LineJoin, 3>{"LineJoin", {{miter, "miter"}, {round, "round"}, {bevel, "bevel"}}};
}

struct PathDetail {
    std::vector<BezierPath> subpaths;
    bool evenOdd = false;
    std::optional<LineCap> cap;
    std::optional<LineJoin> join;
    std::optional<double> miterLimit;
    std::optional<std::vector<double>> dash;
    std::optional<double> dashPhase;
    std::optional<VectorGradient> gradient;

    bool operator==(const PathDetail&) const = default;
    static constexpr auto jsonFields() {
        using D = PathDetail;
        return std::tuple{
            defaulted("subpaths", &D::subpaths),  defaulted("evenOdd", &D::evenOdd),      optional("cap", &D::cap),
            optional("join", &D::join),           optional("miterLimit", &D::miterLimit), optional("dash", &D::dash),
            optional("dashPhase", &D::dashPhase), optional("gradient", &D::gradient)};
    }
};

} // namespace ovik
