#pragma once
// Gathers the contributions of actions into one state, by each property's rule of
// composition: additive places sum, multiplicative places multiply, colours layer in order
// and the last latest value stands.
#include "OvikModel/animation/ActionEvaluator.h"

namespace ovik {

struct ActionEvaluator::Accumulator {
    ActionState state = ActionState::rest();
    /// The object's outline cannot draw progressively: drawing it fades the object instead.
    bool outlineFades = false;
    const ActionOwn& own = ActionOwn::none();

    void add(const Contribution& contribution, const Action& action);
    /// The state with blur kept from going negative and shifts of 0 dropped.
    ActionState result() &&;

private:
    void set(const ActionValue& value, const PropertySlot& slot);
    void addOffset(const ActionValue& value, const PropertySlot& slot);
    void addParam(const Contribution& contribution, const std::string& name);
};

} // namespace ovik
