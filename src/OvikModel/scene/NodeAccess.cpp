#include "OvikModel/scene/NodeAccess.h"

#include <cmath>

#include "OvikL10n/L10n.h"
#include "OvikModel/scene/AnnotationAccess.h"
#include "OvikModel/scene/PropertyError.h"

namespace ovik {
namespace {

using Read = std::function<std::optional<JSONValue>(const ObjectNode&)>;
using Write = std::function<void(ObjectNode&, const PropertyValue&, const PropertySpec&)>;

std::shared_ptr<const ObjectAccess> onNodes(Read read, Write write) {
    return std::make_shared<const ObjectAccess>(ObjectAccess{{}, std::move(read), std::move(write)});
}

[[noreturn]] void refuse(std::string message) { throw PropertyError(PropertyError::Kind::invalid, std::move(message)); }

JSONValue point(double x, double y) { return JSONValue(JSONValue::Array{JSONValue(x), JSONValue(y)}); }

// A count must be whole; anything but a count or "forever" is refused.
ClockLoop takeLoop(const PropertyValue& value) {
    double count = 0;
    if (value.json.number(count) && std::isfinite(count) && count == std::trunc(count))
        return ClockLoop::makeCount(std::int64_t(count));
    const std::string* text = value.json.string();
    if (text && *text == ClockLoop::forever::name) return ClockLoop::makeForever();
    refuse(L10n::text("model.clock.validation.loopType"));
}

JSONValue readClock(const Clock& clock, ClockPart part) {
    switch (part) {
    case ClockPart::speed: return JSONValue(clock.rate);
    case ClockPart::loop:
        return clock.loop.is<ClockLoop::forever>() ? JSONValue(ClockLoop::forever::name)
                                                   : JSONValue(clock.loop.as<ClockLoop::count>().value);
    case ClockPart::offset: return JSONValue(clock.offset.seconds());
    case ClockPart::bounce: return JSONValue(clock.bounce);
    case ClockPart::hold: return JSONValue(clock.hold);
    case ClockPart::freeze: return clock.freeze ? JSONValue(clock.freeze->seconds()) : JSONValue("none");
    case ClockPart::timeCurve: {
        if (!clock.curve) return JSONValue("none");
        JSONValue::Array keys;
        for (const ClockKey& key : *clock.curve) keys.push_back(point(key.at, key.own));
        return JSONValue(std::move(keys));
    }
    }
    return JSONValue();
}

void writeClock(Clock& clock, ClockPart part, const PropertyValue& value, const PropertySpec& spec) {
    switch (part) {
    case ClockPart::speed: clock.rate = value.number(spec.range); break;
    case ClockPart::loop: clock.loop = takeLoop(value); break;
    case ClockPart::offset: clock.offset = MediaDuration::fromSeconds(value.number()); break;
    case ClockPart::bounce: clock.bounce = value.boolean(); break;
    case ClockPart::hold: clock.hold = value.boolean(); break;
    case ClockPart::freeze: {
        const auto seconds = value.numberOrNone();
        clock.freeze = seconds ? std::optional(MediaDuration::fromSeconds(*seconds)) : std::nullopt;
        break;
    }
    case ClockPart::timeCurve: {
        const auto points = value.pointsOrNone();
        clock.curve.reset();
        if (points) {
            clock.curve.emplace();
            for (const CGPoint& each : *points) clock.curve->push_back(ClockKey{each.x, each.y});
        }
        break;
    }
    }
}

InkTexture::dry dryOf(const HeldIfSet<InkTexture>& ink) {
    return ink && ink->is<InkTexture::dry>() ? ink->as<InkTexture::dry>() : InkTexture::dry{0.5, 1, 0};
}

InkTexture::pixel pixelOf(const HeldIfSet<InkTexture>& ink) {
    return ink && ink->is<InkTexture::pixel>() ? ink->as<InkTexture::pixel>() : InkTexture::pixel{4};
}

std::optional<JSONValue> readInk(const HeldIfSet<InkTexture>& ink, InkPart part) {
    if (part == InkPart::kind) return PropertyFieldForm<InkTextureKind>::read(ink ? ink->kind() : InkTextureKind::none);
    const auto* dry = ink ? std::get_if<InkTexture::dry>(&ink->cases) : nullptr;
    const auto* pixel = ink ? std::get_if<InkTexture::pixel>(&ink->cases) : nullptr;
    if (part == InkPart::cell) return pixel ? std::optional(JSONValue(pixel->cell)) : std::nullopt;
    if (!dry) return std::nullopt;
    if (part == InkPart::amount) return JSONValue(dry->amount);
    if (part == InkPart::grain) return JSONValue(dry->grain);
    return JSONValue(std::int64_t(dry->seed));
}

// Choosing a kind the node already has keeps its settings; a setting of one kind switches
// the ink to that kind.
void writeInk(HeldIfSet<InkTexture>& ink, InkPart part, const PropertyValue& value, const PropertySpec& spec) {
    if (part == InkPart::kind) {
        const InkTextureKind kind = PropertyFieldForm<InkTextureKind>::take(value, spec);
        if (kind == InkTextureKind::none) ink = std::nullopt;
        else if (kind == InkTextureKind::dry) ink = InkTexture{{}, dryOf(ink)};
        else ink = InkTexture{{}, pixelOf(ink)};
        return;
    }
    const double number = value.number(spec.range);
    if (part == InkPart::cell) return void(ink = InkTexture{{}, InkTexture::pixel{number}});
    InkTexture::dry dry = dryOf(ink);
    if (part == InkPart::amount) dry.amount = number;
    else if (part == InkPart::grain) dry.grain = number;
    else dry.seed = std::uint32_t(std::llround(number));
    ink = InkTexture{{}, dry};
}

Thickness thicknessOf(const ObjectNode& node) { return node.thickness ? *node.thickness : Thickness{}; }

} // namespace

std::shared_ptr<const ObjectAccess> clockAccess(ClockPart part) {
    return onNodes(
        [part](const ObjectNode& node) -> std::optional<JSONValue> {
            return readClock(node.clock ? *node.clock : Clock::plain(), part);
        },
        [part](ObjectNode& node, const PropertyValue& value, const PropertySpec& spec) {
            Clock clock = node.clock ? *node.clock : Clock::plain();
            writeClock(clock, part, value, spec);
            if (const auto problem = clock.problem()) refuse(*problem);
            // The plain clock is told by leaving it out.
            node.clock = clock == Clock::plain() ? HeldIfSet<Clock>() : HeldIfSet<Clock>(clock);
        });
}

std::shared_ptr<const ObjectAccess> inkAccess(InkPart part) {
    using enum AnnotationKind;
    return std::make_shared<const ObjectAccess>(ObjectAccess{
        ofKinds({rectangle, ellipse, arrow, line, pen, path}),
        [part](const ObjectNode& node) { return readInk(node.inkTexture, part); },
        [part](ObjectNode& node, const PropertyValue& value, const PropertySpec& spec) {
            writeInk(node.inkTexture, part, value, spec);
        }});
}

std::shared_ptr<const ObjectAccess> pivotAccess() {
    return onNodes(
        [](const ObjectNode& node) -> std::optional<JSONValue> {
            return node.pivot ? point(node.pivot->dx, node.pivot->dy) : JSONValue("none");
        },
        [](ObjectNode& node, const PropertyValue& value, const PropertySpec&) {
            const auto offset = value.pointOrNone();
            node.pivot = offset ? std::optional(CGVector{offset->x, offset->y}) : std::nullopt;
        });
}

std::shared_ptr<const ObjectAccess> spanAccess(bool underLens) {
    if (!underLens)
        return onNodes([](const ObjectNode& node) -> std::optional<JSONValue> { return JSONValue(node.span.has_value()); },
                       [](ObjectNode& node, const PropertyValue& value, const PropertySpec&) {
                           if (!value.boolean()) node.span.reset();
                           else if (!node.span) node.span = ObjectSpan{};
                       });
    return onNodes(
        [](const ObjectNode& node) -> std::optional<JSONValue> {
            return node.span ? std::optional(JSONValue(node.span->underLens)) : std::nullopt;
        },
        [](ObjectNode& node, const PropertyValue& value, const PropertySpec&) { node.span = ObjectSpan{value.boolean()}; });
}

std::shared_ptr<const ObjectAccess> bevelAccess(BevelPart part) {
    return onNodes(
        [part](const ObjectNode& node) -> std::optional<JSONValue> {
            if (!node.thickness) return std::nullopt;
            if (part == BevelPart::size) return JSONValue(node.thickness->bevel);
            if (part == BevelPart::segments) return JSONValue(node.thickness->bevelSegments);
            return PropertyFieldForm<BevelProfile>::read(node.thickness->bevelProfile);
        },
        [part](ObjectNode& node, const PropertyValue& value, const PropertySpec& spec) {
            Thickness thickness = thicknessOf(node);
            // A bevel takes at most half the depth, from each face.
            if (part == BevelPart::size) thickness.bevel = value.number(std::pair{0.0, thickness.depth / 2});
            else if (part == BevelPart::segments) thickness.bevelSegments = std::llround(value.number(spec.range));
            else thickness.bevelProfile = PropertyFieldForm<BevelProfile>::take(value, spec);
            node.thickness = thickness;
        });
}

std::shared_ptr<const ObjectAccess> faceMaterialAccess(bool back) {
    const auto field = back ? &Thickness::backMaterial : &Thickness::sideMaterial;
    return onNodes(
        [field](const ObjectNode& node) -> std::optional<JSONValue> {
            if (!node.thickness) return std::nullopt;
            return (*node.thickness).*field ? ((*node.thickness).*field)->value() : JSONValue("none");
        },
        [field](ObjectNode& node, const PropertyValue& value, const PropertySpec&) {
            Thickness thickness = thicknessOf(node);
            if (value.json.object())
                thickness.*field = OpaqueJSON(value.json);
            else if (const std::string* text = value.json.string(); text && *text == "none")
                (thickness.*field).reset();
            else
                refuse(L10n::format("model.property.material.invalid", {value.name}));
            node.thickness = thickness;
        });
}

} // namespace ovik
