#pragma once
// A drawn or imported path, with the outline and paint of a shape. The in-between outlines of
// a morph are made when needed and never stored, so they have no place here.
#include <optional>

#include "OvikModel/objects/BezierPath.h"
#include "OvikModel/objects/FillPaint.h"
#include "OvikModel/objects/PathDetail.h"
#include "OvikModel/objects/SpreadRecord.h"
#include "OvikModel/objects/Stroke.h"

namespace ovik {

struct PathAnnotationFields {
    BezierPath path;
    std::optional<Stroke> stroke;
    bool isFillTranslucent = false;
    LinePattern pattern = LinePattern::solid;
    bool hasShadow = false;
    bool hasHalo = false;
    std::optional<PathDetail> detail;

    bool operator==(const PathAnnotationFields&) const = default;
    static constexpr auto jsonFields() {
        using F = PathAnnotationFields;
        return std::tuple{required("path", &F::path),
                          optional("stroke", &F::stroke),
                          defaulted("isFillTranslucent", &F::isFillTranslucent),
                          defaulted("pattern", &F::pattern),
                          defaulted("hasShadow", &F::hasShadow),
                          defaulted("hasHalo", &F::hasHalo),
                          optional("detail", &F::detail)};
    }
};

struct PathAnnotation : PathAnnotationFields {
    std::optional<FillPaint> paint;

    bool operator==(const PathAnnotation&) const = default;

    using Declared = PathAnnotationFields;
    using Spread = FillPaintSpread<PathAnnotation>;
};

template <>
struct JSONCoding<PathAnnotation> : SpreadRecordCoding<PathAnnotation> {};

} // namespace ovik
