#pragma once
// Pure functions that turn a list of actions and a moment into an `ActionState`, with the
// curve mathematics under them: easing, the spring, the keyframe spline, gradient noise and
// the blending of two values.
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "OvikModel/animation/Action.h"
#include "OvikModel/animation/ActionClock.h"
#include "OvikModel/animation/ActionCurve.h"
#include "OvikModel/animation/ActionState.h"

namespace ovik {

struct ActionEvaluator {
    /// Where an action stands at a moment. All times in seconds.
    struct Phase {
        enum class Kind { before, during, done };
        Kind kind = Kind::before;
        double progress = 0;
        double remaining = 0;
        double elapsed = 0;
        double length = 0;

        static Phase before() { return Phase{}; }
        static Phase during(double progress, double elapsed, double length) {
            return Phase{Kind::during, progress, 1 - progress, elapsed, length};
        }
        static Phase done(double length) { return Phase{Kind::done, 1, 0, length, length}; }
        bool operator==(const Phase&) const = default;
    };

    /// What one action gives: a value that stands, an offset from rest, or a row's value.
    struct Contribution {
        enum class Kind { value, offset, track };
        Kind kind = Kind::value;
        ActionValue value;
    };

    struct Accumulator;
    struct RowKey;
    struct Track;
    struct Rows;

    /// Eased progress for progress `t`. Every curve but `overshoot` holds 0 below 0 and 1 above 1;
    /// `overshoot` rises past 1 between its ends.
    static double ease(const ActionCurve& curve, double t);

    /// A damped spring's position at normalised progress `t` (not seconds).
    static double spring(double t, double stiffness, double damping);

    /// CSS-style cubic Bézier easing with ends (0,0) and (1,1).
    static double bezier(double t, double x1, double y1, double x2, double y2);

    /// The smooth keyframe curve through `values` at `times`, on `segment` at progress `t`;
    /// `monotone` keeps it from overshooting between keys.
    static double continuous(const std::vector<double>& times, const std::vector<double>& values, std::size_t segment,
                             double t, bool monotone);

    /// One-dimensional gradient noise, within -1...1, the same for the same input everywhere.
    static double noise(double x, std::uint64_t seed);
    /// The seed of a vector's second component.
    static std::uint64_t secondSeed(std::uint64_t seed);

    /// `a` moved towards `b` by `t`.
    static ActionValue blend(const ActionValue& a, const ActionValue& b, double t);
    /// Counts from one number text to another in the larger count of decimals (at most 6);
    /// none unless both texts are plain numbers.
    static std::optional<std::string> counting(const std::string& from, const std::string& to, double t);

    /// Sorted by `sortKey`, stably, so that the order actions were added in doesn't matter.
    static std::vector<const Action*> ordered(std::vector<const Action*> actions);
    /// The same, in place.
    static void order(std::span<const Action*> actions);
    /// The longest entrance and the longest exit, summed, in seconds.
    static double reach(std::span<const Action* const> actions);
    /// The factor that shortens entrance and exit to fit a short life; none when they fit.
    static std::optional<double> squeeze(std::span<const Action* const> actions, const std::optional<OutputRange>& life);
    /// None when the range needs a film moment or a life that the clock lacks.
    static std::optional<Phase> phase(const Action& action, const ActionClock& clock, std::optional<double> squeeze);

    /// The state of `actions` at `clock`. With `term`, only the actions of that term of a
    /// formula; without, the actions of no term. `outlineFades` makes a drawn outline fade.
    static ActionState state(const std::vector<Action>& actions, const ActionClock& clock, bool outlineFades,
                             const std::optional<std::string>& term, const ActionOwn& own);
    /// One side of a transition at `progress` of its `length`.
    static ActionState stateOfTransition(const std::vector<Action>& actions, double progress, MediaDuration length);

    /// Where a `to` action starts: its `from`, else `running`, else the property's rest; a
    /// property without a neutral value starts from clear (a colour) or from the target itself.
    static ActionValue start(const Action& action, const ActionOwn& own, const std::optional<ActionValue>& running);
    /// What a started action gives in its phase; none for nothing.
    static std::optional<Contribution> contribution(const Action& action, const Phase& phase, const ActionOwn& own);
};

} // namespace ovik
