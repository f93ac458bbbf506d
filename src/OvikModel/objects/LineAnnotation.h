#pragma once
// An arrow or a plain line from `start` to `end`, bent through points given relative to the
// straight line, or along a drawn path.
#include <optional>
#include <vector>

#include "OvikModel/objects/BezierPath.h"
#include "OvikModel/objects/Stroke.h"

namespace ovik {

enum class ArrowHeads { none, end, both };
constexpr auto enumCases(ArrowHeads*) {
    using enum ArrowHeads;
    return EnumCases<ArrowHeads, 3>{"ArrowHeads", {{none, "none"}, {end, "end"}, {both, "both"}}};
}

enum class ArrowBody { standard, tapered, slim };
constexpr auto enumCases(ArrowBody*) {
    using enum ArrowBody;
    return EnumCases<ArrowBody, 3>{"ArrowBody", {{standard, "standard"}, {tapered, "tapered"}, {slim, "slim"}}};
}

/// A point the line passes through: a fraction `along` the straight line from start to end,
/// and a distance `across` it.
struct LinePoint {
    double along = 0;
    double across = 0;

    bool operator==(const LinePoint&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("along", &LinePoint::along), required("across", &LinePoint::across)};
    }
};

struct LineAnnotation {
    CGPoint start;
    CGPoint end;
    Stroke stroke;
    ArrowHeads heads = ArrowHeads::none;
    LinePattern pattern = LinePattern::solid;
    ArrowBody body = ArrowBody::standard;
    std::vector<LinePoint> through;
    std::optional<BezierPath> path;
    bool hasShadow = false;
    bool hasHalo = false;

    bool operator==(const LineAnnotation&) const = default;
    static constexpr auto jsonFields() {
        using L = LineAnnotation;
        return std::tuple{required("start", &L::start),          required("end", &L::end),
                          required("stroke", &L::stroke),        required("heads", &L::heads),
                          defaulted("pattern", &L::pattern),     defaulted("body", &L::body),
                          defaulted("through", &L::through),     optional("path", &L::path),
                          defaulted("hasShadow", &L::hasShadow), defaulted("hasHalo", &L::hasHalo)};
    }
};

} // namespace ovik
