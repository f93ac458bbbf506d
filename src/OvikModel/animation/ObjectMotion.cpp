#include "OvikModel/animation/ObjectMotion.h"

#include <algorithm>
#include <iterator>

#include "OvikModel/animation/ActionEvaluator.h"

namespace ovik {
namespace {

// A text's own font axes are what its axis actions shift; generator parameters are not modelled
// yet, and other objects have nothing of their own.
const ActionOwn& ownOf(const ObjectNode& node, ActionOwn& scratch) {
    const Annotation* annotation = node.annotation();
    const auto* text = annotation ? std::get_if<Annotation::text>(&annotation->cases) : nullptr;
    if (!text || text->value.axes.values.empty()) return ActionOwn::none();
    scratch.fontAxes = text->value.axes.values;
    return scratch;
}

} // namespace

ActionState ObjectMotion::state(const std::vector<Action>& actions) const {
    if (!clock || actions.empty()) return ActionState::rest();
    return ActionEvaluator::state(actions, *clock, false, std::nullopt, ActionOwn::none());
}

ActionState ObjectMotion::own(const std::vector<Action>& actions, std::optional<OutputTime> output) const {
    if (!clock || actions.empty()) return ActionState::rest();
    ActionOwn scratch;
    const ActionOwn& mine = ownOf(*node, scratch);
    if (!output || !clock->now || *output == *clock->now)
        return ActionEvaluator::state(actions, *clock, outlineFades, std::nullopt, mine);
    return ActionEvaluator::state(actions, clock->at(*output), outlineFades, std::nullopt, mine);
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
