#include "OvikModel/animation/ActionList.h"

#include <algorithm>

namespace ovik {
namespace {

// The largest `lead + length` over the ranges of case `Range`.
template <class Range, class Lead>
MediaDuration longest(const std::vector<Action>& actions, Lead Range::*lead) {
    MediaDuration out;
    for (const Action& action : actions)
        if (const auto* range = std::get_if<Range>(&action.range.cases))
            out = std::max(out, range->*lead + range->length);
    return out;
}

} // namespace

MediaDuration entranceLength(const std::vector<Action>& actions) {
    return longest(actions, &ActionRange::opening::delay);
}

MediaDuration exitLength(const std::vector<Action>& actions) {
    return longest(actions, &ActionRange::closing::advance);
}

SplitActions beyondBasics(const std::vector<Action>& actions, SourceTime splitAt) {
    SplitActions out;
    for (const Action& action : actions) {
        bool earlier = true, later = true;
        if (action.range.is<ActionRange::opening>()) {
            later = false;
        } else if (action.range.is<ActionRange::closing>()) {
            earlier = false;
        } else if (const auto* b = std::get_if<ActionRange::between>(&action.range.cases)) {
            earlier = b->start < splitAt;
            later = !(earlier && b->end <= splitAt);
        }
        if (earlier) out.earlier.push_back(action);
        if (later) out.later.push_back(action);
    }
    return out;
}

} // namespace ovik
