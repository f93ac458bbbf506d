#pragma once
// The personal time of a snippet, or of a picture that plays inside another object: which
// moment of itself a thing shows when the film is at a given moment. Times are in seconds;
// `length` is the thing's own length, none when it has no end.
//
// JSON form: an object whose every key is optional and left out at its default, so the plain
// clock is `{}`.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "OvikModel/time/ClockKey.h"
#include "OvikModel/time/ClockLoop.h"
#include "OvikModel/time/ClockRun.h"
#include "OvikModel/values/Times.h"

namespace ovik {

struct Clock {
    /// Own seconds per second.
    double rate = 1;
    ClockLoop loop = ClockLoop::makeCount(1);
    /// Where in itself it starts.
    MediaDuration offset;
    /// Each second pass runs backward.
    bool bounce = false;
    /// After the end, stay on the last moment.
    bool hold = false;
    /// Outer time stops here.
    std::optional<MediaDuration> freeze;
    /// An explicit time curve in place of rate and loop.
    std::optional<std::vector<ClockKey>> curve;

    /// The rate limits that editing allows, and the largest loop count.
    static constexpr double slowest = 0.1;
    static constexpr double fastest = 16;
    static constexpr std::int64_t mostPasses = 1000;
    /// Most runs that `runs` gives, to bound what a composition holds.
    static constexpr std::size_t mostRuns = 3000;

    static Clock plain() { return Clock{}; }

    /// The moment of itself shown at the outer moment `at`.
    double own(double at, std::optional<double> length) const;
    /// How long it plays on its own account; 0 when it has no end of its own.
    double natural(std::optional<double> length) const;
    /// Straight stretches over the outer seconds 0...`over`, sampled every `step` seconds.
    std::vector<ClockRun> runs(double over, std::optional<double> length, double step) const;
    /// Why editing must refuse this clock, as finished text; none when it is sound.
    std::optional<std::string> problem() const;
    /// The settings in words, for a person.
    std::string summary() const;

    bool operator==(const Clock&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple{defaulted("rate", &Clock::rate),     defaulted("loop", &Clock::loop),
                          defaulted("offset", &Clock::offset), defaulted("bounce", &Clock::bounce),
                          defaulted("hold", &Clock::hold),     optional("freeze", &Clock::freeze),
                          optional("curve", &Clock::curve)};
    }

private:
    const std::vector<ClockKey>* keys() const;
    double curveOwn(const std::vector<ClockKey>& keys, double a) const;
    double loopedOwn(double p, double length) const;
    bool stops() const { return hold || freeze.has_value(); }
};

} // namespace ovik
