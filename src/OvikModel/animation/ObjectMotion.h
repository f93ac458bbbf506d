#pragma once
// One object bound to a clock: its actions evaluated at the clock's moment or another one.
// Evaluating each part of a split object, the object's own clock, drivers and becoming are
// not part of it yet.
#include <optional>

#include "OvikModel/animation/ActionClock.h"
#include "OvikModel/animation/ObjectAppearance.h"
#include "OvikModel/objects/ObjectNode.h"

namespace ovik {

struct ObjectMotion {
    /// The node in its draft, which outlives the motion.
    const ObjectNode* node = nullptr;
    /// None for a still that is not rendered in time.
    std::optional<ActionClock> clock;
    /// The object's outline cannot draw progressively, so drawing it fades the object instead.
    bool outlineFades = false;

    /// `actions` at the clock's moment; rest without a clock.
    ActionState state(const std::vector<Action>& actions) const;
    /// `actions` at the film moment `output` (none: the clock's own), with the node's own rest values.
    ActionState own(const std::vector<Action>& actions, std::optional<OutputTime> output) const;
    /// The actions that move all parts together.
    ActionState whole() const;
    /// Whether any action can move the object: it has actions and a clock to run them on.
    bool moves() const { return clock && !node->actions.empty(); }
    ObjectAppearance appearance() const;
};

} // namespace ovik
