#include "OvikModel/draft/Transition.h"

namespace ovik {
namespace {

void scale(std::vector<Action>& actions, double factor) {
    for (Action& action : actions) action.range = action.range.scaled(factor);
}

} // namespace

Transition Transition::retimed(MediaDuration length) const {
    if (length == duration) return *this;
    Transition out = *this;
    out.duration = length;
    if (duration.microseconds >= 1) {
        const double factor = double(length.microseconds) / double(duration.microseconds);
        scale(out.outgoing, factor);
        scale(out.incoming, factor);
    }
    return out;
}

} // namespace ovik
