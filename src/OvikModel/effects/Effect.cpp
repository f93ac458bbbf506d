#include "OvikModel/effects/Effect.h"

#include <algorithm>

namespace ovik {
namespace {

template <class Params>
auto named(Params& params, std::string_view name) {
    return std::find_if(params.begin(), params.end(), [&](const ProgramParam& each) { return each.name == name; });
}

} // namespace

const ProgramParam* Effect::storedParam(std::string_view name) const {
    const auto found = named(params, name);
    return found == params.end() ? nullptr : &*found;
}

std::optional<ProgramParam> Effect::param(std::string_view name, EffectPlace place) const {
    if (const ProgramParam* stored = storedParam(name)) return *stored;
    std::vector<ProgramParam> defaults = primitiveParams(primitive, place);
    const auto found = named(defaults, name);
    if (found == defaults.end()) return std::nullopt;
    return std::move(*found);
}

Effect Effect::storing(ProgramParam param) const {
    Effect out = *this;
    const auto found = named(out.params, param.name);
    if (found == out.params.end())
        out.params.push_back(std::move(param));
    else
        *found = std::move(param);
    return out;
}

} // namespace ovik
