#pragma once
// What a list of actions says as a whole: how long its entrance and exit take, and how it
// divides when its object is split in two.
#include <vector>

#include "OvikModel/animation/Action.h"

namespace ovik {

/// The two halves of an action list at a split.
struct SplitActions {
    std::vector<Action> earlier;
    std::vector<Action> later;
};

/// The longest delay plus length of the `opening` actions; zero without one.
MediaDuration entranceLength(const std::vector<Action>& actions);
/// The longest advance plus length of the `closing` actions; zero without one.
MediaDuration exitLength(const std::vector<Action>& actions);
/// Divides the actions of an object split at `splitAt`: entrances stay with the earlier half,
/// exits go to the later, actions over the whole life to both, and actions between moments to
/// the half (or halves) they overlap.
SplitActions beyondBasics(const std::vector<Action>& actions, SourceTime splitAt);

} // namespace ovik
