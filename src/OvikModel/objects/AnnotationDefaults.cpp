#include "OvikModel/objects/AnnotationDefaults.h"

#include <algorithm>

namespace ovik {
namespace {

template <class Case, class Payload>
Annotation make(Payload payload) {
    return Annotation{{}, Case{std::move(payload)}};
}

} // namespace

AnnotationDefaults AnnotationDefaults::standard() {
    AnnotationDefaults defaults;
    defaults.color = RGBA{242.0 / 255, 84.0 / 255, 45.0 / 255, 1};
    defaults.strokeWidth = 4;
    defaults.fontSize = 18;
    defaults.fontWeight = FontWeight::semibold;
    defaults.counterDiameter = 28;
    defaults.redactMode = RedactMode::mosaic;
    defaults.redactStrength = 0.5;
    defaults.spotlightShape = SpotlightShape::rectangle;
    defaults.spotlightDim = 0.5;
    defaults.arrowHeads = ArrowHeads::end;
    return defaults;
}

ShapeAnnotation AnnotationDefaults::shape(CGRect frame) const {
    ShapeAnnotation shape;
    shape.frame = frame.standardized();
    shape.stroke = stroke();
    return shape;
}

LineAnnotation AnnotationDefaults::lineFrom(CGPoint from, CGPoint to, ArrowHeads heads) const {
    LineAnnotation line;
    line.start = from;
    line.end = to;
    line.stroke = stroke();
    line.heads = heads;
    return line;
}

TextAnnotation AnnotationDefaults::textAt(CGPoint at, std::string string) const {
    TextAnnotation text;
    text.origin = at;
    text.string = std::move(string);
    text.fontSize = fontSize;
    text.weight = fontWeight;
    text.alignment = TextAlignment::leading;
    text.color = color;
    text.font = textFont.font;
    text.tracking = textFont.tracking;
    text.lineSpacing = textFont.lineSpacing;
    return text;
}

Annotation AnnotationDefaults::rectangle(CGRect frame) const { return make<Annotation::rectangle>(shape(frame)); }

Annotation AnnotationDefaults::ellipse(CGRect frame) const { return make<Annotation::ellipse>(shape(frame)); }

Annotation AnnotationDefaults::arrow(CGPoint from, CGPoint to) const {
    return make<Annotation::arrow>(lineFrom(from, to, arrowHeads));
}

Annotation AnnotationDefaults::line(CGPoint from, CGPoint to) const {
    return make<Annotation::line>(lineFrom(from, to, ArrowHeads::none));
}

Annotation AnnotationDefaults::pen(std::vector<CGPoint> points, std::optional<std::vector<double>> times) const {
    PenAnnotation pen;
    pen.points = std::move(points);
    pen.stroke = stroke();
    pen.times = std::move(times);
    return make<Annotation::pen>(std::move(pen));
}

Annotation AnnotationDefaults::text(CGPoint at, std::string string) const {
    return make<Annotation::text>(textAt(at, std::move(string)));
}

Annotation AnnotationDefaults::formula(CGPoint at, double size) const {
    TextAnnotation text = textAt(at, "");
    text.fontSize = size;
    text.formula = FormulaStyle{};
    return make<Annotation::text>(std::move(text));
}

Annotation AnnotationDefaults::counter(CGPoint at) const {
    return make<Annotation::counter>(CounterAnnotation{at, 1, counterDiameter, color});
}

Annotation AnnotationDefaults::redact(CGRect frame) const {
    return make<Annotation::redact>(
        RedactAnnotation{std::nullopt, frame.standardized(), redactMode, redactStrength, color});
}

Annotation AnnotationDefaults::spotlight(CGRect frame) const {
    return make<Annotation::spotlight>(SpotlightAnnotation{frame.standardized(), spotlightShape, spotlightDim});
}

Annotation AnnotationDefaults::magnifier(double zoom, CGRect within) const {
    const CGRect area = within.standardized();
    const double side = std::min(area.width(), area.height()) / 4;
    const CGRect frame{{area.minX() + (area.width() - side) / 2, area.minY() + (area.height() - side) / 2},
                       {side, side}};
    return make<Annotation::magnifier>(
        MagnifierAnnotation{frame, zoom, SpotlightShape::ellipse, true, std::nullopt, std::nullopt});
}

Annotation AnnotationDefaults::sticker(CGRect frame, PackagePath image) const {
    return make<Annotation::sticker>(StickerAnnotation{frame.standardized(), 0, std::move(image)});
}

} // namespace ovik
