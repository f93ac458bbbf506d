#pragma once
// Actions and clocks built in code, for evaluation tests. Times are in seconds.
#include <optional>

#include "OvikModel/animation/ActionClock.h"
#include "OvikModel/animation/ActionEvaluator.h"

namespace ovik::testing {

inline MediaDuration secs(double s) { return MediaDuration::fromSeconds(s); }
inline SourceTime sourceAt(double s) { return SourceTime::fromSeconds(s); }

inline PathAnchor anchor(double x, double y) {
    PathAnchor out;
    out.point = CGPoint{x, y};
    return out;
}

inline ActionMode toMode(ActionValue to, std::optional<ActionValue> from = std::nullopt) {
    return ActionMode{{}, ActionMode::to{std::move(from), std::move(to)}};
}
inline ActionMode toNumber(double to, std::optional<double> from = std::nullopt) {
    return toMode(ActionValue::makeNumber(to), from ? std::optional{ActionValue::makeNumber(*from)} : std::nullopt);
}
inline ActionRange opening(double delay, double length) {
    return ActionRange{{}, ActionRange::opening{secs(delay), secs(length)}};
}
inline ActionRange closing(double advance, double length) {
    return ActionRange{{}, ActionRange::closing{secs(advance), secs(length)}};
}
inline ActionRange between(double start, double end) {
    return ActionRange{{}, ActionRange::between{sourceAt(start), sourceAt(end)}};
}
inline ActionRange whole() { return ActionRange{{}, ActionRange::whole{}}; }
inline ActionCurve linear() { return ActionCurve{{}, ActionCurve::linear{}}; }

inline Action action(PropertyKey property, ActionMode mode, ActionRange range, ActionCurve curve = linear()) {
    Action out;
    out.property = property;
    out.mode = std::move(mode);
    out.range = std::move(range);
    out.curve = std::move(curve);
    return out;
}

/// A clock at film moment `now` of a life from `start` to `end`, source and film one line.
inline ActionClock clockAt(double now, double start = 0, double end = 10) {
    return ActionClock{OutputTime::fromSeconds(now), sourceAt(now),
                       OutputRange{OutputTime::fromSeconds(start), OutputTime::fromSeconds(end)},
                       [](const SourceRange& r) { return std::optional{OutputRange{r.start.asOutput(), r.end.asOutput()}}; },
                       [](OutputTime t) { return SourceTime::fromOutput(t); }};
}

inline ActionState evaluate(const std::vector<Action>& actions, const ActionClock& clock, bool outlineFades = false,
                            const ActionOwn& own = ActionOwn::none()) {
    return ActionEvaluator::state(actions, clock, outlineFades, std::nullopt, own);
}

} // namespace ovik::testing
