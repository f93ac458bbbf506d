#pragma once
// One effect of a stack: a primitive and the parameters stored for it. A parameter the
// primitive knows but that isn't stored has its default; stored parameters the primitive
// doesn't list are kept as they are.
#include <vector>

#include "OvikModel/effects/EffectPrimitive.h"

namespace ovik {

struct Effect {
    EffectPrimitive primitive = EffectPrimitive::blur;
    std::vector<ProgramParam> params;

    /// The stored parameter called `name`; none when it isn't stored.
    const ProgramParam* storedParam(std::string_view name) const;
    /// The stored parameter called `name`, else the primitive's default for it at `place`;
    /// none when neither has it.
    std::optional<ProgramParam> param(std::string_view name, EffectPlace place) const;
    /// This effect with `param` stored in place of the one of its name, or after the others.
    Effect storing(ProgramParam param) const;

    bool operator==(const Effect&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple{required("primitive", &Effect::primitive), defaulted("params", &Effect::params)};
    }
};

} // namespace ovik
