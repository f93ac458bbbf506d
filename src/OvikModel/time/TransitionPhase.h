#pragma once
// How far a transition has run at a moment, seen from one of its two sections.
#include "OvikModel/draft/Transition.h"

namespace ovik {

struct TransitionPhase {
    Transition transition;
    /// 0 to 1.
    double progress = 0;
    /// Seen from the section coming in; false for the one going out.
    bool isIncoming = false;

    bool operator==(const TransitionPhase&) const = default;
};

} // namespace ovik
