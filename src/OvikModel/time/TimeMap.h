#pragma once
// One section's source time laid onto its output time: the kept stretches played one after
// another, each as long as its rate or hold makes it, and optionally retimed again by the
// section-wide speed curve. Output times here count from the section's start.
//
// A map that cannot be built (an empty or crossed range, a rate that is not a finite positive
// number, a freeze without a hold, overlapping stretches) is absent rather than an error:
// callers treat it as a section with nothing to show.
#include <optional>
#include <vector>

#include "OvikModel/draft/KeptStretch.h"
#include "OvikModel/draft/SectionSpeed.h"

namespace ovik {

class TimeMap {
public:
    struct Piece {
        KeptStretch stretch;
        OutputRange output;
        bool operator==(const Piece&) const = default;
    };
    /// The stretch of played time (output time without the section's speed) that one piece plays.
    struct PlayedSpan {
        OutputTime from;
        OutputTime to;
        bool operator==(const PlayedSpan&) const = default;
    };

    /// The stretches laid end to end; none when they are invalid. No stretches make an empty map.
    static std::optional<TimeMap> make(const std::vector<KeptStretch>& stretches);
    /// Each range played at normal speed.
    static std::optional<TimeMap> make(const std::vector<SourceRange>& keptRanges);
    /// The stretches retimed by `speed`. `framed` says the source has real frames (a recording).
    static std::optional<TimeMap> make(const std::vector<KeptStretch>& stretches,
                                       const std::optional<SectionSpeed>& speed, bool framed);

    const std::vector<Piece>& pieces() const { return pieces_; }
    /// The source ranges of the playing stretches that the map was made from.
    const std::vector<SourceRange>& keptRanges() const { return keptRanges_; }
    MediaDuration outputDuration() const { return outputDuration_; }
    const std::optional<std::vector<PlayedSpan>>& played() const { return played_; }
    /// The length of the section's played time: the output length before its speed.
    MediaDuration playedDuration() const { return playedDuration_; }

    /// The stretch of every piece.
    std::vector<KeptStretch> stretches() const;
    bool isRetimed() const;

    /// The piece showing `time` (the first for a time before 0); none past the end.
    std::optional<std::size_t> pieceIndex(OutputTime time) const;
    /// The source moment shown at `time`, held at the ends.
    SourceTime source(OutputTime time) const;
    /// Where the source moment `time` is shown first; none where it was cut.
    std::optional<OutputTime> output(SourceTime time) const;
    /// Where `time` is shown, or where it would have been had it not been cut.
    OutputTime outputOrCut(SourceTime time) const;
    /// The output moment of `time` on a playing stretch, counting the end of a stretch as its own.
    std::optional<OutputTime> playedOutput(SourceTime time) const;
    /// The played-time moment shown at `time`.
    OutputTime played(OutputTime time) const;
    /// Played microseconds per output microsecond at `time`: 0 on a hold, negative in reverse.
    double playedRate(OutputTime time) const;
    /// The first output moment that shows the played moment `playing`.
    OutputTime firstOutput(OutputTime playing) const;

    /// Where a source range is shown, merged where one piece's part follows the last's.
    std::vector<OutputRange> outputRanges(const SourceRange& range) const;
    /// The source shown over an output range, one range per playing piece it crosses.
    std::vector<SourceRange> sourceRanges(const OutputRange& range) const;
    /// The stretches under an output range, clipped to it.
    std::vector<KeptStretch> stretches(const OutputRange& range) const;

    bool operator==(const TimeMap&) const = default;

private:
    TimeMap() = default;
    /// Lays `stretches` from output 0.
    static TimeMap laid(const std::vector<KeptStretch>& stretches);
    static std::optional<TimeMap> retimed(const TimeMap& base, const SectionSpeed& speed, bool framed);

    std::vector<Piece> pieces_;
    std::vector<SourceRange> keptRanges_;
    MediaDuration outputDuration_;
    std::optional<std::vector<PlayedSpan>> played_;
    MediaDuration playedDuration_;
};

} // namespace ovik
