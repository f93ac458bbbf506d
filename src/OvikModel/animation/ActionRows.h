#pragma once
// Moment-to-moment `to` actions of one property, kept in time order as tracks: a later action
// carries on from where the one before it had got to, unless it names a `from` that jumps
// away, which starts a track of its own.
#include <memory_resource>
#include <optional>
#include <string_view>
#include <tuple>
#include <vector>

#include "OvikModel/animation/ActionEvaluator.h"

namespace ovik {

/// What one row animates: a property, or one axis, parameter or effect of it. The texts are
/// views into the action, which outlives the key.
struct ActionEvaluator::RowKey {
    int rank = -1;
    PropertyKey property;
    bool keyframe = false;
    std::optional<std::string_view> axis;
    std::optional<std::string_view> param;
    std::optional<std::tuple<int, std::string_view>> effect;

    explicit RowKey(const Action& action);
    auto operator<=>(const RowKey&) const = default;
};

struct ActionEvaluator::Track {
    /// Actions of the list being evaluated, which outlives the track.
    std::pmr::vector<const Action*> actions;

    /// The row's value at source moment `time`; none for a track without actions.
    std::optional<ActionValue> value(SourceTime time, const ActionOwn& own) const;
};

struct ActionEvaluator::Rows {
    /// Where the tracks and their lists live: the evaluation's own scratch memory.
    std::pmr::memory_resource* memory;
    std::pmr::vector<Track> tracks{memory};
    std::size_t current = 0;

    void take(const Action& action, const ActionOwn& own);
    /// Values of one kind equal within a relative 1e-9 (absolute where both are below 1).
    static bool same(const ActionValue& a, const ActionValue& b);
};

} // namespace ovik
