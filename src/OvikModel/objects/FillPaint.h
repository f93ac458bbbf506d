#pragma once
// The paint inside a closed shape: one colour, or a linear gradient between two. It is stored
// under two keys of its owner: `fill`, the colour (or the gradient's first colour), and
// `fillGradient`, the rest of a gradient. Without `fill` there is no paint, and a lone
// `fillGradient` is ignored.
#include <optional>

#include "OvikModel/values/RGBA.h"

namespace ovik {

/// What a gradient adds to its first colour.
struct FillPaintRamp {
    RGBA to;
    double angleDegrees = 0;

    bool operator==(const FillPaintRamp&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("to", &FillPaintRamp::to), required("angleDegrees", &FillPaintRamp::angleDegrees)};
    }
};

struct FillPaint : Enumeration<FillPaint> {
    using Ramp = FillPaintRamp;

    struct color {
        static constexpr std::string_view name = "color";
        RGBA value;
        bool operator==(const color&) const = default;
    };
    struct gradient {
        static constexpr std::string_view name = "gradient";
        RGBA from;
        RGBA to;
        double angleDegrees = 0;
        bool operator==(const gradient&) const = default;
    };
    std::variant<color, gradient> cases;

    static FillPaint makeColor(RGBA value) { return FillPaint{{}, color{value}}; }
    static FillPaint makeGradient(RGBA from, RGBA to, double angleDegrees) {
        return FillPaint{{}, gradient{from, to, angleDegrees}};
    }

    bool operator==(const FillPaint&) const = default;
};

void encodeFillPaint(const std::optional<FillPaint>& paint, JSONValue::Object& object);
std::optional<FillPaint> decodeFillPaint(JSONNode object, const CodingPath& path);

/// The spread part of a record whose only spread member is its `paint`.
template <class T>
struct FillPaintSpread {
    static void encode(const T& record, JSONValue::Object& object) { encodeFillPaint(record.paint, object); }
    static void decode(T& record, JSONNode node, const CodingPath& path) { record.paint = decodeFillPaint(node, path); }
};

} // namespace ovik
