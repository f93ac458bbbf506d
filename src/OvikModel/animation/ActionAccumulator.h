#pragma once
// Gathers the contributions of actions into one state, by each property's rule of
// composition: additive places sum, multiplicative places multiply, colours layer in order
// and the last latest value stands.
#include "OvikModel/animation/ActionEvaluator.h"

namespace ovik {

struct ActionEvaluator::Accumulator {
    /// The caller's state, made at rest, that the contributions are gathered into in place.
    ActionState& state;
    /// The object's outline cannot draw progressively: drawing it fades the object instead.
    bool outlineFades = false;
    const ActionOwn& own = ActionOwn::none();

    void add(const Contribution& contribution, const Action& action);
    /// Keeps blur from going negative and drops shifts of 0.
    void finish();

private:
    void set(const ActionValue& value, const PropertySlot& slot);
    void addOffset(const ActionValue& value, const PropertySlot& slot);
    void addParam(const Contribution& contribution, const std::string& name);
};

} // namespace ovik
