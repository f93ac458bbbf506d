#include "OvikModel/draft/Transition.h"

#include "OvikModel/animation/ActionRange.h"
#include "OvikPlatform/json/DecodingError.h"

namespace ovik {
namespace {

// Actions are still kept as their JSON: only the range is read and written back.
JSONValue scaledAction(const JSONValue& action, double factor) {
    const JSONValue* range = action.at("range");
    if (!range) return action;
    try {
        return action.setting("range", encodeJSON(decodeJSON<ActionRange>(*range).scaled(factor)));
    } catch (const DecodingError&) {
        return action;
    }
}

void scale(std::vector<JSONValue>& actions, double factor) {
    for (JSONValue& action : actions) action = scaledAction(action, factor);
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
