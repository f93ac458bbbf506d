#pragma once
// The section-wide speed curve, on top of the per-stretch rates: keys of rate along the
// section's played time, holds that stop it, and a reversal. Both lists are kept ascending by
// `at`. Every key may be absent on reading; all three are written.
#include <optional>
#include <vector>

#include "OvikModel/animation/ActionCurve.h"
#include "OvikModel/values/Times.h"

namespace ovik {

struct SectionSpeed {
    struct Key {
        /// Position on the section's played time.
        MediaDuration at;
        double rate = 1;
        /// Governs the segment from this key to the next; smooth when absent.
        std::optional<ActionCurve> curve;

        bool operator==(const Key&) const = default;
        static constexpr auto jsonFields() {
            return std::tuple{required("at", &Key::at), required("rate", &Key::rate), optional("curve", &Key::curve)};
        }
    };
    struct Hold {
        MediaDuration at;
        MediaDuration duration;

        bool operator==(const Hold&) const = default;
        static constexpr auto jsonFields() {
            return std::tuple{required("at", &Hold::at), required("duration", &Hold::duration)};
        }
    };

    /// One output unit of a retimed section: `output` long, it plays the section's played time
    /// from `from` to `to`. Equal ends make a hold; `to` before `from` plays backwards.
    struct Piece {
        MediaDuration output;
        MediaDuration from;
        MediaDuration to;

        bool isHold() const { return from == to; }
        bool operator==(const Piece&) const = default;
    };

    static constexpr double slowest = 0.05;
    static constexpr double fastest = 8.0;
    /// The output length a ramp aims for per step.
    static constexpr MediaDuration stepLength{33'333};
    /// The shortest step of played time on a section with real frames.
    static constexpr MediaDuration minimumStepSource{100'000};
    /// At most this many steps per ramp, so that a map stays small.
    static constexpr std::int64_t maximumSteps = 600;

    std::vector<Key> keys;
    std::vector<Hold> holds;
    bool reversed = false;

    /// The speed with both lists sorted stably by `at`.
    static SectionSpeed make(std::vector<Key> keys, std::vector<Hold> holds, bool reversed);
    /// Two keys easing from one rate to another over `over`; one key when the rates agree.
    static SectionSpeed ramp(double from, double to, MediaDuration over, std::optional<ActionCurve> curve);

    /// A rate within the limits, to thousandths; not finite is normal speed.
    static double clamped(double rate);

    /// No holds, not reversed, and every key at rate 1 exactly: the speed changes nothing.
    bool isIdentity() const;

    /// The rate at played position `position` (µs, possibly fractional), eased between keys.
    double rate(double position) const;

    /// The played time `played` cut into output units. With `framed`, no ramp step is shorter
    /// than `minimumStepSource`.
    std::vector<Piece> pieces(MediaDuration played, bool framed) const;

    /// The speed of the part `[from, to]` of the played time, counted from `from`; none when
    /// that part plays plainly.
    std::optional<SectionSpeed> excerpt(MediaDuration from, MediaDuration to) const;

    bool operator==(const SectionSpeed&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{writtenAlways("keys", &SectionSpeed::keys), writtenAlways("holds", &SectionSpeed::holds),
                          writtenAlways("reversed", &SectionSpeed::reversed)};
    }
};

/// A speed that says something, sorted; none for one that changes nothing.
std::optional<SectionSpeed> normalized(std::optional<SectionSpeed> speed);

} // namespace ovik
