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
    /// The source length of the range.
    MediaDuration length() const { return range.end - range.start; }
    /// Plays with sound: a playing stretch no faster than the audible limit.
    bool isAudible() const;

    /// Output length of `length` source microseconds at `rate`: a playing length of 1 µs or
    /// more never collapses to nothing.
    static MediaDuration outputLength(MediaDuration length, double rate);
    /// How long the stretch lasts on output: its hold for a freeze.
    MediaDuration outputLength() const;
    /// The output offset that shows the source offset `offset` from `range.start`.
    MediaDuration outputOffset(MediaDuration offset) const;
    /// The source offset from `range.start` shown at output offset `offset`.
    MediaDuration sourceOffset(MediaDuration offset) const;

    bool operator==(const KeptStretch&) const = default;
};

/// Puts a freeze into a list of stretches at its frame: before the first stretch that lies
/// after the frame, splitting a playing stretch that the frame falls inside of.
void insertFreeze(std::vector<KeptStretch>& stretches, const KeptStretch& freeze);

/// The source ranges of the playing stretches, in order.
std::vector<SourceRange> playedRanges(const std::vector<KeptStretch>& stretches);
/// The freezes, in order.
std::vector<KeptStretch> freezes(const std::vector<KeptStretch>& stretches);
/// The list with each stretch at one of `indices` merged into the one before it, where the
/// two join without a real cut: it resumes, both play, they touch, and rate and origin agree.
std::vector<KeptStretch> joined(const std::vector<KeptStretch>& stretches, const std::vector<std::size_t>& indices);

} // namespace ovik
