#pragma once
// Edits of a draft's time: section speed curves, stretch rates, freezes and cuts. Each either
// succeeds, leaving a draft whose derived values are made afresh, or throws `TimeEditError`
// and leaves the draft untouched.
//
// After a cut, the section's objects, zooms, markers and sounds are not yet brought along
// (they keep their source times); a cut that would empty a section of a longer draft is
// refused rather than deleting the section.
#include <optional>
#include <vector>

#include "OvikModel/Draft.h"
#include "OvikModel/time/AnchoredTime.h"
#include "OvikModel/time/TimeEditError.h"

namespace ovik {

/// A freeze of a section: where it stands and how long it holds.
struct FreezeAt {
    AnchoredTime at;
    MediaDuration length;
    bool operator==(const FreezeAt&) const = default;
};

/// Sets or clears (none, or a speed that changes nothing) a section's speed curve.
void setSectionSpeed(Draft& draft, std::optional<SectionSpeed> speed, SectionID section);
std::optional<SectionSpeed> sectionSpeed(const Draft& draft, SectionID section);

/// Sets the rate of the playing stretch whose range is exactly `clip`, in `section` (the first
/// when none) which must be a recording.
void setRate(Draft& draft, double rate, const SourceRange& clip, std::optional<SectionID> section = std::nullopt);
/// Plays the recording under an output range at `rate`, splitting stretches at its ends;
/// answers the output range that the retimed part takes afterwards.
OutputRange setRate(Draft& draft, double rate, const OutputRange& over);

/// Freezes the recording's frame shown at `at` for `length`; answers the frozen frame.
AnchoredTime freeze(Draft& draft, OutputTime at, MediaDuration length);
void setFreezeLength(Draft& draft, MediaDuration length, const AnchoredTime& at);
void removeFreeze(Draft& draft, const AnchoredTime& at);
std::optional<FreezeAt> freeze(const Draft& draft, const AnchoredTime& at);
std::vector<FreezeAt> allFreezes(const Draft& draft);

/// Cuts a source range out of a recording section (the first when none). A cut never leaves a
/// sliver of a frame or less at either side.
void cut(Draft& draft, const SourceRange& range, std::optional<SectionID> section = std::nullopt);
/// Cuts what an output range of the film shows out of its recording sections, shortening
/// freezes under it. Still sections are never shortened.
void cut(Draft& draft, const OutputRange& range);

/// The ends of `range`, moved out to the end of a kept range where they would leave a sliver.
SourceRange swallowingSlivers(const SourceRange& range, const std::vector<SourceRange>& keptRanges);

} // namespace ovik
