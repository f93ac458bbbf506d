#pragma once
// The effects that run over one picture, first to last, each on what the earlier ones made.
// Stored as {"entries": [...]}; an empty stack is left out by the records that hold one.
#include <vector>

#include "OvikModel/effects/Effect.h"

namespace ovik {

struct EffectStack {
    std::vector<Effect> entries;

    bool isEmpty() const { return entries.empty(); }

    bool operator==(const EffectStack&) const = default;

    static constexpr auto jsonFields() { return std::tuple{required("entries", &EffectStack::entries)}; }
};

} // namespace ovik
