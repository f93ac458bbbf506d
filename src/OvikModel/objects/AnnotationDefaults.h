#pragma once
// The values from which new annotations are made, and the factories that make them.
#include <optional>
#include <string>
#include <vector>

#include "OvikModel/objects/Annotation.h"

namespace ovik {

struct AnnotationDefaults {
    RGBA color;
    double strokeWidth = 0;
    double fontSize = 0;
    FontWeight fontWeight = FontWeight::regular;
    double counterDiameter = 0;
    RedactMode redactMode = RedactMode::mosaic;
    double redactStrength = 0;
    SpotlightShape spotlightShape = SpotlightShape::rectangle;
    double spotlightDim = 0;
    ArrowHeads arrowHeads = ArrowHeads::end;
    TextFontChoice textFont;

    /// The defaults of a new draft.
    static AnnotationDefaults standard();

    /// Shapes get a standardized frame (no negative size), no rotation, the default stroke
    /// and no paint.
    Annotation rectangle(CGRect frame) const;
    Annotation ellipse(CGRect frame) const;
    Annotation arrow(CGPoint from, CGPoint to) const;
    Annotation line(CGPoint from, CGPoint to) const;
    Annotation pen(std::vector<CGPoint> points, std::optional<std::vector<double>> times) const;
    Annotation text(CGPoint at, std::string string) const;
    /// An empty text that is a formula, at the given font size.
    Annotation formula(CGPoint at, double size) const;
    Annotation counter(CGPoint at) const;
    Annotation redact(CGRect frame) const;
    Annotation spotlight(CGRect frame) const;
    /// A round lens a quarter of the shorter side of `within`, in its middle.
    Annotation magnifier(double zoom, CGRect within) const;
    Annotation sticker(CGRect frame, PackagePath image) const;

    bool operator==(const AnnotationDefaults&) const = default;

private:
    Stroke stroke() const { return Stroke{color, strokeWidth}; }
    ShapeAnnotation shape(CGRect frame) const;
    LineAnnotation lineFrom(CGPoint from, CGPoint to, ArrowHeads heads) const;
    TextAnnotation textAt(CGPoint at, std::string string) const;
};

} // namespace ovik
