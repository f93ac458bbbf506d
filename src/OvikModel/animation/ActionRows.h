#pragma once
// Moment-to-moment `to` actions of one property, kept in time order as tracks: a later action
// carries on from where the one before it had got to, unless it names a `from` that jumps
// away, which starts a track of its own.
#include <optional>
#include <string>
#include <vector>

#include "OvikModel/animation/ActionEvaluator.h"

namespace ovik {

/// What one row animates: a property, or one axis, parameter or effect of it.
struct ActionEvaluator::RowKey {
    int rank = -1;
    PropertyKey property;
    bool keyframe = false;
    std::optional<std::string> axis;
    std::optional<std::string> param;
    std::optional<EffectAddress> effect;

    explicit RowKey(const Action& action);
    auto operator<=>(const RowKey&) const = default;
};

struct ActionEvaluator::Track {
    /// Actions of the list being evaluated, which outlives the track.
    std::vector<const Action*> actions;

    /// The row's value at source moment `time`; none for a track without actions.
    std::optional<ActionValue> value(SourceTime time, const ActionOwn& own) const;
};

struct ActionEvaluator::Rows {
    std::vector<Track> tracks;
    std::size_t current = 0;

    void take(const Action& action, const ActionOwn& own);
    /// Values of one kind equal within a relative 1e-9 (absolute where both are below 1).
    static bool same(const ActionValue& a, const ActionValue& b);
};

} // namespace ovik
