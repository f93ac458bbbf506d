#pragma once
// A rectangle or an ellipse: a frame with a rotation, an outline and a paint.
#include <optional>

#include "OvikPlatform/geometry/CGRect.h"
#include "OvikModel/objects/FillPaint.h"
#include "OvikModel/objects/SpreadRecord.h"
#include "OvikModel/objects/Stroke.h"

namespace ovik {

enum class CornerStyle { sharp, rounded, capsule };
constexpr auto enumCases(CornerStyle*) {
    using enum CornerStyle;
    return EnumCases<CornerStyle, 3>{"CornerStyle", {{sharp, "sharp"}, {rounded, "rounded"}, {capsule, "capsule"}}};
}

struct ShapeAnnotationFields {
    CGRect frame;
    double rotation = 0;
    std::optional<Stroke> stroke;
    bool isFillTranslucent = false;
    LinePattern pattern = LinePattern::solid;
    CornerStyle corner = CornerStyle::rounded;
    bool hasShadow = false;
    bool hasHalo = false;

    bool operator==(const ShapeAnnotationFields&) const = default;
    static constexpr auto jsonFields() {
        using F = ShapeAnnotationFields;
        return std::tuple{required("frame", &F::frame),          required("rotation", &F::rotation),
                          optional("stroke", &F::stroke),        defaulted("isFillTranslucent", &F::isFillTranslucent),
                          defaulted("pattern", &F::pattern),     defaulted("corner", &F::corner),
                          defaulted("hasShadow", &F::hasShadow), defaulted("hasHalo", &F::hasHalo)};
    }
};

struct ShapeAnnotation : ShapeAnnotationFields {
    std::optional<FillPaint> paint;

    bool operator==(const ShapeAnnotation&) const = default;

    using Declared = ShapeAnnotationFields;
    using Spread = FillPaintSpread<ShapeAnnotation>;
};

template <>
struct JSONCoding<ShapeAnnotation> : SpreadRecordCoding<ShapeAnnotation> {};

} // namespace ovik
