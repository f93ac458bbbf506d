#pragma once
// Half-open spans of time on one time line: `SourceRange` and `OutputRange`. A reversed range
// is allowed and counts as empty. JSON form: {"end": ..., "start": ...}, both required.
#include <algorithm>
#include <optional>
#include <string>

#include "OvikModel/values/Times.h"

namespace ovik {

template <class Time>
struct TimeRange {
    Time start;
    Time end;

    /// The range of `duration` from `start`.
    static constexpr TimeRange startingAt(Time start, MediaDuration duration) { return TimeRange{start, start + duration}; }

    constexpr bool contains(Time time) const { return start <= time && time < end; }
    constexpr bool isEmpty() const { return start >= end; }
    constexpr MediaDuration duration() const { return end - start; }

    /// The stretch both ranges cover; ranges that only touch have none.
    constexpr std::optional<TimeRange> intersection(const TimeRange& other) const {
        const TimeRange common{std::max(start, other.start), std::min(end, other.end)};
        if (common.isEmpty()) return std::nullopt;
        return common;
    }

    /// "[start, end)" with the microsecond counts.
    std::string description() const {
        return "[" + std::to_string(start.microseconds) + ", " + std::to_string(end.microseconds) + ")";
    }

    bool operator==(const TimeRange&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple{required("start", &TimeRange::start), required("end", &TimeRange::end)};
    }
};

using SourceRange = TimeRange<SourceTime>;
using OutputRange = TimeRange<OutputTime>;

} // namespace ovik
