#include "OvikModel/effects/EffectPrimitive.h"

namespace ovik {
namespace {

using Bound = std::optional<double>;

ProgramParam number(std::string name, double value, Bound low = std::nullopt, Bound high = std::nullopt) {
    return ProgramParam{std::move(name), ProgramValue::makeNumber(value), low, high};
}

ProgramParam color(std::string name, RGBA value) {
    return ProgramParam{std::move(name), ProgramValue::makeColor(value), std::nullopt, std::nullopt};
}

ProgramParam text(std::string name, std::string value) {
    return ProgramParam{std::move(name), ProgramValue::makeText(std::move(value)), std::nullopt, std::nullopt};
}

const RGBA black{0, 0, 0, 1};
const RGBA white{1, 1, 1, 1};
// Film halation's red, where the light bleeds back through the base.
const RGBA halationRed{1, 0.3, 0.1, 1};

std::vector<ProgramParam> glowParams(bool picture) {
    return {number("radius", picture ? 24 : 12, 0, 200),        number("strength", picture ? 0.4 : 0.8, 0, 1),
            number("threshold", picture ? 0.75 : 0, 0, 1),      color("color", white),
            number("tint", picture ? 0 : 1, 0, 1),              text("place", picture ? "over" : "behind")};
}

} // namespace

std::vector<ProgramParam> primitiveParams(EffectPrimitive primitive, EffectPlace place) {
    switch (primitive) {
    case EffectPrimitive::shadow:
        return {number("angle", 90, -360, 360), number("distance", 4, 0, 200), number("blur", 8, 0, 200),
                color("color", black),          number("opacity", 0.5, 0, 1),  number("spread", 0, 0, 100)};
    case EffectPrimitive::glow: return glowParams(place == EffectPlace::picture);
    case EffectPrimitive::stroke: return {number("width", 3, 0, 60), color("color", black), text("position", "outside")};
    case EffectPrimitive::adjust:
        return {number("hue", 0, -180, 180), number("brightness", 0, -1, 1), number("saturation", 1, 0, 2)};
    case EffectPrimitive::blur: return {number("radius", 8)};
    case EffectPrimitive::exposure: return {number("amount", 0.3, -3, 3)};
    case EffectPrimitive::lift: return {number("amount", 0)};
    case EffectPrimitive::grain: return {number("amount", 0.05, 0, 0.2), number("size", 1, 0.5)};
    case EffectPrimitive::vignette: return {number("amount", 0.3, 0, 1), number("softness", 0.6, 0, 1)};
    case EffectPrimitive::shoulder: return {number("amount", 0)};
    case EffectPrimitive::halation:
        return {number("amount", 0.4, 0, 1), number("radius", 14, 2, 80), number("threshold", 0.7, 0, 1),
                color("color", halationRed)};
    case EffectPrimitive::aberration: return {number("amount", 3, 0, 20), number("falloff", 0.5)};
    case EffectPrimitive::lut: return {text("sha256", ""), text("name", ""), number("amount", 1, 0, 1)};
    }
    return {};
}

} // namespace ovik
