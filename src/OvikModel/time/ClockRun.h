#pragma once
// A straight stretch of a clock: over the outer seconds `start`...`end` the thing plays from
// `from` to `to` of itself, linearly. What a player is told to place a clocked medium.
namespace ovik {

struct ClockRun {
    double start = 0;
    double end = 0;
    double from = 0;
    double to = 0;

    bool operator==(const ClockRun&) const = default;
};

} // namespace ovik
