#pragma once
// One piece of source time of a recording section, in the order that it plays. A stretch with
// a hold is a freeze: its range stands still at `range.start` for the hold's length.
//
// `auto` is a keyword, so the case of a rate set by skipping idle time is `auto_` here; its
// JSON name stays "auto".
#include <optional>
#include <vector>

#include "OvikModel/values/TimeRange.h"

namespace ovik {

enum class SpeedOrigin { manual, auto_ };

constexpr auto enumCases(SpeedOrigin*) {
    return EnumCases<SpeedOrigin, 2>{"SpeedOrigin", {{SpeedOrigin::manual, "manual"}, {SpeedOrigin::auto_, "auto"}}};
}

struct KeptStretch {
    SourceRange range;
    /// Source microseconds per output microsecond.
    double rate = 1;
    std::optional<MediaDuration> hold;
    SpeedOrigin origin = SpeedOrigin::manual;
    /// Follows its predecessor with no real cut at the join.
    bool resumes = false;
    bool reversed = false;

    /// A freeze of `length` at the source moment `at`.
    static KeptStretch freeze(SourceTime at, MediaDuration length) {
        KeptStretch stretch;
        stretch.range = {at, at};
        stretch.hold = length;
        return stretch;
    }

    bool isFreeze() const { return hold.has_value(); }
    SourceTime frame() const { return range.start; }

    bool operator==(const KeptStretch&) const = default;
};

/// Puts a freeze into a list of stretches at its frame: before the first stretch that lies
/// after the frame, splitting a playing stretch that the frame falls inside of.
void insertFreeze(std::vector<KeptStretch>& stretches, const KeptStretch& freeze);

} // namespace ovik
