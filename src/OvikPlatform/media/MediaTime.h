#pragma once
// A moment or a length of media time as a fraction of a second: `value` ticks of
// 1/`timescale` second, like the presentation times a movie file stores. Comparisons are
// exact across timescales, so "the last frame whose start is not beyond t" never flips on a
// rounding error; a frame start taken from the file compares equal to the same moment asked
// for in microseconds.
#include <compare>
#include <cstdint>

namespace ovik {

struct MediaTime {
    std::int64_t value = 0;
    /// Ticks per second; above 0 and at most 2^31, as in movie files.
    std::int64_t timescale = 1;

    static MediaTime microseconds(std::int64_t count) { return {count, 1'000'000}; }
    /// `seconds` rounded to the nearest microsecond; a value that isn't finite counts as 0.
    static MediaTime fromSeconds(double seconds);

    double seconds() const { return double(value) / double(timescale); }

    friend std::strong_ordering operator<=>(const MediaTime& a, const MediaTime& b);
    friend bool operator==(const MediaTime& a, const MediaTime& b) { return (a <=> b) == 0; }
};

} // namespace ovik
