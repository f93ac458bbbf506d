#include "OvikModel/scene/AnnotationAccess.h"

#include <algorithm>

#include "OvikL10n/L10n.h"
#include "OvikModel/objects/AnnotationDefaults.h"
#include "OvikModel/objects/AnnotationLimits.h"

namespace ovik {
namespace {

using enum AnnotationKind;
using Paint = std::optional<FillPaint>;

const std::vector<AnnotationKind> paintedKinds{rectangle, ellipse, path};

Annotation* annotationOf(ObjectNode& node) {
    auto* leaf = std::get_if<ObjectContent::annotation>(&node.content.cases);
    return leaf ? &leaf->value : nullptr;
}

JSONValue hex(const RGBA& color) { return JSONValue(color.hexText()); }

// A paint turned on without a colour of its own starts from the colour of new marks.
RGBA firstColor(const Paint& paint) {
    if (!paint) return AnnotationDefaults::standard().color;
    if (const auto* gradient = std::get_if<FillPaint::gradient>(&paint->cases)) return gradient->from;
    return paint->as<FillPaint::color>().value;
}

const FillPaint::gradient* gradientOf(const Paint& paint) {
    return paint ? std::get_if<FillPaint::gradient>(&paint->cases) : nullptr;
}

// A gradient begins at the fill's colour and runs to white, across.
FillPaint::gradient& madeGradient(Paint& paint) {
    if (!gradientOf(paint)) paint = FillPaint::makeGradient(firstColor(paint), RGBA{1, 1, 1, 1}, 0);
    return std::get<FillPaint::gradient>(paint->cases);
}

void dropGradient(Paint& paint) {
    if (const auto* gradient = gradientOf(paint)) paint = FillPaint::makeColor(gradient->from);
}

std::shared_ptr<const ObjectAccess> paintAccess(std::function<std::optional<JSONValue>(const Paint&)> read,
                                                std::function<void(Paint&, const PropertyValue&)> write) {
    return annotationPart<Paint>(
        paintedKinds, std::move(read),
        [write](Paint& paint, const PropertyValue& value, const PropertySpec&) { write(paint, value); },
        &ShapeAnnotation::paint, &PathAnnotation::paint);
}

// Widths and diameters below their limit are raised to it; a font size has a range of its own.
void setWidth(std::optional<Stroke>& stroke, double width) {
    if (!stroke) stroke = Stroke{AnnotationDefaults::standard().color, 0};
    stroke->width = std::max(width, AnnotationLimits::minimumStrokeWidth);
}

} // namespace

const std::vector<Annotation>& annotationSamples() {
    static const std::vector<Annotation> samples = [] {
        const AnnotationDefaults defaults = AnnotationDefaults::standard();
        const CGRect frame{{0, 0}, {100, 60}};
        return std::vector<Annotation>{
            defaults.rectangle(frame),
            defaults.ellipse(frame),
            defaults.arrow({0, 0}, {100, 0}),
            defaults.line({0, 0}, {100, 0}),
            defaults.pen({{0, 0}, {100, 0}}, std::nullopt),
            defaults.text({0, 0}, "Text"),
            defaults.counter({0, 0}),
            defaults.redact(frame),
            defaults.spotlight(frame),
            defaults.magnifier(2, frame),
            defaults.sticker(frame, PackagePath{}),
            Annotation{{}, Annotation::path{}},
            Annotation{{}, Annotation::followPoint{}},
            Annotation{{}, Annotation::particles{ParticlesAnnotation::standard(frame, std::nullopt, 0)}},
            Annotation{{}, Annotation::solid{OpaqueJSON(JSONValue::Object{})}},
            Annotation{{}, Annotation::generator{OpaqueJSON(JSONValue::Object{})}},
        };
    }();
    return samples;
}

std::string kindsHavingIt(const ObjectAccess& access) {
    std::vector<std::string> names;
    for (const Annotation& sample : annotationSamples())
        if (!access.leaves || access.leaves(sample)) names.push_back(displayName(sample.kind()));
    return L10n::list(names);
}

std::function<bool(const Annotation&)> ofKinds(std::vector<AnnotationKind> kinds) {
    return [kinds = std::move(kinds)](const Annotation& annotation) {
        return std::find(kinds.begin(), kinds.end(), annotation.kind()) != kinds.end();
    };
}

std::shared_ptr<const ObjectAccess> annotationAccess(
    std::vector<AnnotationKind> kinds, std::function<std::optional<JSONValue>(const Annotation&)> read,
    std::function<void(Annotation&, const PropertyValue&, const PropertySpec&)> write) {
    return std::make_shared<const ObjectAccess>(ObjectAccess{
        ofKinds(std::move(kinds)),
        [read](const ObjectNode& node) -> std::optional<JSONValue> {
            const Annotation* annotation = node.annotation();
            return annotation ? read(*annotation) : std::nullopt;
        },
        [write](ObjectNode& node, const PropertyValue& value, const PropertySpec& spec) {
            if (Annotation* annotation = annotationOf(node)) write(*annotation, value, spec);
        }});
}

std::shared_ptr<const ObjectAccess> fillAccess() {
    return paintAccess([](const Paint& paint) { return JSONValue(paint.has_value()); },
                       [](Paint& paint, const PropertyValue& value) {
                           if (!value.boolean()) paint.reset();
                           else if (!paint) paint = FillPaint::makeColor(firstColor(paint));
                       });
}

std::shared_ptr<const ObjectAccess> fillColorAccess() {
    return paintAccess([](const Paint& paint) { return paint ? hex(firstColor(paint)) : JSONValue("none"); },
                       [](Paint& paint, const PropertyValue& value) {
                           const auto color = value.colorOrNone();
                           if (!color) paint.reset();
                           else if (gradientOf(paint)) madeGradient(paint).from = *color;
                           else paint = FillPaint::makeColor(*color);
                       });
}

std::shared_ptr<const ObjectAccess> gradientAccess() {
    return paintAccess([](const Paint& paint) { return JSONValue(gradientOf(paint) != nullptr); },
                       [](Paint& paint, const PropertyValue& value) {
                           if (value.boolean()) madeGradient(paint);
                           else dropGradient(paint);
                       });
}

std::shared_ptr<const ObjectAccess> gradientColorAccess(bool last) {
    return paintAccess(
        [last](const Paint& paint) {
            const auto* gradient = gradientOf(paint);
            return gradient ? hex(last ? gradient->to : gradient->from) : JSONValue("none");
        },
        [last](Paint& paint, const PropertyValue& value) {
            const auto color = value.colorOrNone();
            if (!color) return dropGradient(paint);
            FillPaint::gradient& gradient = madeGradient(paint);
            (last ? gradient.to : gradient.from) = *color;
        });
}

std::shared_ptr<const ObjectAccess> gradientAngleAccess() {
    return annotationPart<Paint>(
        paintedKinds,
        [](const Paint& paint) -> std::optional<JSONValue> {
            const auto* gradient = gradientOf(paint);
            return gradient ? std::optional(JSONValue(gradient->angleDegrees)) : std::nullopt;
        },
        [](Paint& paint, const PropertyValue& value, const PropertySpec& spec) {
            const double angle = value.number(spec.range);
            madeGradient(paint).angleDegrees = angle;
        },
        &ShapeAnnotation::paint, &PathAnnotation::paint);
}

std::shared_ptr<const ObjectAccess> throughAccess() {
    return annotationPart<std::vector<LinePoint>>(
        {arrow, line}, [](const std::vector<LinePoint>& through) { return JSONValue(!through.empty()); },
        [](std::vector<LinePoint>& through, const PropertyValue& value, const PropertySpec&) {
            // Bending starts from one point in the middle, on the straight line.
            if (!value.boolean()) through.clear();
            else if (through.empty()) through.push_back(LinePoint{0.5, 0});
        },
        &LineAnnotation::through);
}

std::shared_ptr<const ObjectAccess> sizeAccess() {
    const auto read = [](const Annotation& annotation) {
        std::optional<JSONValue> out;
        const auto outline = [&](const auto& payload) {
            if (payload.stroke) out.emplace(payload.stroke->width);
        };
        withRecord<TextAnnotation>(annotation, [&](const auto& text) { out.emplace(text.fontSize); }) ||
            withRecord<CounterAnnotation>(annotation, [&](const auto& counter) { out.emplace(counter.diameter); }) ||
            withRecord<LineAnnotation>(annotation, [&](const auto& line) { out.emplace(line.stroke.width); }) ||
            withRecord<PenAnnotation>(annotation, [&](const auto& pen) { out.emplace(pen.stroke.width); }) ||
            withRecord<ShapeAnnotation>(annotation, outline) || withRecord<PathAnnotation>(annotation, outline);
        return out;
    };
    const auto write = [](Annotation& annotation, const PropertyValue& value, const PropertySpec&) {
        if (withRecord<TextAnnotation>(annotation, [&](auto& text) {
                text.fontSize = value.number(std::pair{AnnotationLimits::minimumFontSize, AnnotationLimits::maximumFontSize});
            }))
            return;
        const double size = value.number();
        const auto stroked = [&](auto& payload) { payload.stroke.width = std::max(size, AnnotationLimits::minimumStrokeWidth); };
        const auto outline = [&](auto& payload) { setWidth(payload.stroke, size); };
        withRecord<CounterAnnotation>(annotation, [&](auto& counter) {
            counter.diameter = std::max(size, AnnotationLimits::minimumCounterDiameter);
        }) || withRecord<LineAnnotation>(annotation, stroked) || withRecord<PenAnnotation>(annotation, stroked) ||
            withRecord<ShapeAnnotation>(annotation, outline) || withRecord<PathAnnotation>(annotation, outline);
    };
    return annotationAccess({rectangle, ellipse, arrow, line, pen, text, counter, path}, read, write);
}

std::shared_ptr<const ObjectAccess> fontAccess() {
    return annotationPart<std::optional<TextFont>>(
        {text},
        [](const std::optional<TextFont>& font) { return JSONValue(font ? font->postScriptName : "none"); },
        [](std::optional<TextFont>& font, const PropertyValue& value, const PropertySpec&) {
            const std::string name = value.text();
            if (name == "none") return font.reset();
            // A name the text already uses keeps its face and its package copy.
            if (font && (font->postScriptName == name || font->family == name)) return;
            font = TextFont{name, name, "", std::nullopt};
        },
        &TextAnnotation::font);
}

std::shared_ptr<const ObjectAccess> fontWeightAccess() {
    const auto read = [](const Annotation& annotation) {
        std::optional<JSONValue> out;
        withRecord<TextAnnotation>(annotation, [&](const TextAnnotation& text) {
            const auto axis = text.axes.values.find(FontAxes::weight);
            out = axis != text.axes.values.end() ? JSONValue(axis->second) : PropertyFieldForm<FontWeight>::read(text.weight);
        });
        return out;
    };
    const auto write = [](Annotation& annotation, const PropertyValue& value, const PropertySpec& spec) {
        withRecord<TextAnnotation>(annotation, [&](TextAnnotation& text) {
            if (value.json.string()) {
                enumCases(static_cast<FontWeight*>(nullptr)).find(value.choice(caseWords<FontWeight>()), text.weight);
                text.axes.values.erase(FontAxes::weight);
            } else {
                text.axes.values[FontAxes::weight] = value.number(spec.range);
            }
        });
    };
    return annotationAccess({AnnotationKind::text}, read, write);
}

std::shared_ptr<const ObjectAccess> fontAxisAccess(const char* tag, double normal) {
    return annotationPart<FontAxes>(
        {AnnotationKind::text},
        [tag, normal](const FontAxes& axes) {
            const auto found = axes.values.find(tag);
            return JSONValue(found != axes.values.end() ? found->second : normal);
        },
        [tag](FontAxes& axes, const PropertyValue& value, const PropertySpec& spec) {
            axes.values[tag] = value.number(spec.range);
        },
        &TextAnnotation::axes);
}

} // namespace ovik
