#include "OvikModel/animation/ActionRows.h"

#include <algorithm>
#include <cmath>

namespace ovik {
namespace {

const ActionRange::between* betweenOf(const Action& action) { return std::get_if<ActionRange::between>(&action.range.cases); }
const ActionMode::to* toOf(const Action& action) { return std::get_if<ActionMode::to>(&action.mode.cases); }

bool close(double a, double b) {
    const double scale = std::max(std::fabs(a), std::fabs(b));
    return std::fabs(a - b) <= (scale < 1 ? 1e-9 : 1e-9 * scale);
}

bool samePoints(const BezierPath& a, const BezierPath& b) {
    return a.isClosed == b.isClosed && std::equal(a.anchors.begin(), a.anchors.end(), b.anchors.begin(), b.anchors.end(),
                                                  [](const PathAnchor& x, const PathAnchor& y) { return x.point == y.point; });
}

// A zoom about a point moves by equal ratios in equal times.
ActionValue stepped(const Action& action, const ActionValue& from, const ActionValue& to, double u) {
    const auto* a = std::get_if<ActionValue::number>(&from.cases);
    const auto* b = std::get_if<ActionValue::number>(&to.cases);
    if (action.about && a && b && a->value > 0 && b->value > 0)
        return ActionValue::makeNumber(std::exp(std::log(a->value) + (std::log(b->value) - std::log(a->value)) * u));
    return ActionEvaluator::blend(from, to, u);
}

} // namespace

ActionEvaluator::RowKey::RowKey(const Action& action)
    : rank(action.property.slot().rank), property(action.property), keyframe(action.isKeyframe) {
    if (action.axis) axis = *action.axis;
    if (action.param) param = *action.param;
    if (action.effect) effect = std::tuple<int, std::string_view>{action.effect->index, action.effect->name};
}

std::optional<ActionValue> ActionEvaluator::Track::value(SourceTime time, const ActionOwn& own) const {
    if (actions.empty()) return std::nullopt;
    const Action& first = *actions.front();
    // Keyframe rows are evaluated as keyframes, which are not built yet: such a row gives nothing.
    if (first.isKeyframe) return std::nullopt;
    const auto* firstRange = betweenOf(first);
    if (!firstRange || firstRange->start > time) return start(first, own, std::nullopt);
    std::optional<ActionValue> running;
    for (std::size_t i = 0; i < actions.size(); ++i) {
        const Action& action = *actions[i];
        const auto* range = betweenOf(action);
        const auto* mode = toOf(action);
        const auto* next = i + 1 < actions.size() ? betweenOf(*actions[i + 1]) : nullptr;
        if (range && mode) {
            const SourceTime stop = next ? std::min(time, next->start) : time;
            const ActionValue from = start(action, own, running);
            if (stop >= range->end) {
                running = mode->to;
            } else if (stop <= range->start) {
                running = from;
            } else {
                const double u = ease(action.curve, (stop - range->start).seconds() / (range->end - range->start).seconds());
                running = stepped(action, from, mode->to, u);
            }
        }
        if (!next || next->start > time) break;
    }
    return running;
}

void ActionEvaluator::Rows::take(const Action& action, const ActionOwn& own) {
    const auto* mode = toOf(action);
    const auto* range = betweenOf(action);
    if (!tracks.empty() && !tracks[current].actions.empty() && mode && range && !action.isKeyframe && mode->from) {
        const auto reached = tracks[current].value(range->start, own);
        if (reached && !same(*reached, *mode->from)) {
            tracks.push_back(Track{std::pmr::vector<const Action*>({&action}, memory)});
            current = tracks.size() - 1;
            return;
        }
    }
    if (tracks.empty()) tracks.push_back(Track{std::pmr::vector<const Action*>(memory)});
    tracks[current].actions.push_back(&action);
}

bool ActionEvaluator::Rows::same(const ActionValue& a, const ActionValue& b) {
    using V = ActionValue;
    if (a.kind() != b.kind()) return false;
    if (const auto* x = std::get_if<V::number>(&a.cases)) return close(x->value, std::get<V::number>(b.cases).value);
    if (const auto* x = std::get_if<V::vector>(&a.cases)) {
        const auto& y = std::get<V::vector>(b.cases);
        return close(x->dx, y.dx) && close(x->dy, y.dy);
    }
    if (const auto* x = std::get_if<V::color>(&a.cases)) {
        const RGBA& p = x->value;
        const RGBA& q = std::get<V::color>(b.cases).value;
        return close(p.red, q.red) && close(p.green, q.green) && close(p.blue, q.blue) && close(p.alpha, q.alpha);
    }
    if (const auto* x = std::get_if<V::text>(&a.cases)) return x->value == std::get<V::text>(b.cases).value;
    return samePoints(std::get<V::path>(a.cases).value, std::get<V::path>(b.cases).value);
}

} // namespace ovik
