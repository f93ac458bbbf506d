#include "OvikModel/animation/ObjectMotion.h"

#include <algorithm>
#include <iterator>

#include "OvikModel/animation/ActionEvaluator.h"

namespace ovik {

ActionState ObjectMotion::state(const std::vector<Action>& actions) const {
    if (!clock || actions.empty()) return ActionState::rest();
    return ActionEvaluator::state(actions, *clock, false, std::nullopt, ActionOwn::none());
}

ActionState ObjectMotion::own(const std::vector<Action>& actions, std::optional<OutputTime> output) const {
    if (!clock || actions.empty()) return ActionState::rest();
    // The node's own font axes and generator parameters are not modelled yet: nothing of its own.
    if (!output || !clock->now || *output == *clock->now)
        return ActionEvaluator::state(actions, *clock, outlineFades, std::nullopt, ActionOwn::none());
    return ActionEvaluator::state(actions, clock->at(*output), outlineFades, std::nullopt, ActionOwn::none());
}

ActionState ObjectMotion::whole() const {
    std::vector<Action> together;
    std::copy_if(node->actions.begin(), node->actions.end(), std::back_inserter(together),
                 [](const Action& action) { return action.scope == ActionScope::whole; });
    return own(together, clock ? clock->now : std::nullopt);
}

ObjectAppearance ObjectMotion::appearance() const {
    if (!moves()) return ObjectAppearance::full();
    return ObjectAppearance(own(node->actions, clock->now), !outlineFades);
}

} // namespace ovik
