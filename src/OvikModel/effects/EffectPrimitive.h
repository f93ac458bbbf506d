#pragma once
// What an effect does. Each primitive has its own parameters, listed with their defaults and
// bounds by `primitiveParams`.
#include <vector>

#include "OvikModel/effects/EffectPlace.h"
#include "OvikModel/effects/ProgramParam.h"

namespace ovik {

enum class EffectPrimitive {
    shadow,
    glow,
    stroke,
    adjust,
    blur,
    exposure,
    lift,
    grain,
    vignette,
    shoulder,
    halation,
    aberration,
    lut
};

constexpr auto enumCases(EffectPrimitive*) {
    using enum EffectPrimitive;
    return EnumCases<EffectPrimitive, 13>{"EffectPrimitive",
                                          {{shadow, "shadow"},
                                           {glow, "glow"},
                                           {stroke, "stroke"},
                                           {adjust, "adjust"},
                                           {blur, "blur"},
                                           {exposure, "exposure"},
                                           {lift, "lift"},
                                           {grain, "grain"},
                                           {vignette, "vignette"},
                                           {shoulder, "shoulder"},
                                           {halation, "halation"},
                                           {aberration, "aberration"},
                                           {lut, "lut"}}};
}

/// The parameters of `primitive` at `place`, each holding its default value. An amount given
/// without a default starts at rest (0), a text without one empty.
std::vector<ProgramParam> primitiveParams(EffectPrimitive primitive, EffectPlace place);

} // namespace ovik
