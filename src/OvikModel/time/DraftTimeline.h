#pragma once
// The sections' maps laid end to end on the film's output time, each overlapping the one
// before it by its transition. Transitions are limited here, not in the draft: one may take
// at most half of either neighbour, and the first section has none.
#include <optional>
#include <vector>

#include "OvikModel/draft/Section.h"
#include "OvikModel/time/AnchoredTime.h"
#include "OvikModel/time/TimeMap.h"
#include "OvikModel/time/VisibleSection.h"

namespace ovik {

class DraftTimeline {
public:
    struct Entry {
        SectionID section;
        MediaID media;
        TimeMap map;
        /// Draft-wide.
        OutputRange output;
        /// The transition as it plays, after the limits.
        std::optional<Transition> transitionIn;
        bool operator==(const Entry&) const = default;
    };
    /// A source range of one section.
    struct SectionRange {
        SectionID section;
        SourceRange range;
        bool operator==(const SectionRange&) const = default;
    };

    /// None when any section's map cannot be built.
    static std::optional<DraftTimeline> make(const std::vector<Section>& sections);

    const std::vector<Entry>& entries() const { return entries_; }
    MediaDuration duration() const { return duration_; }
    OutputTime end() const { return OutputTime{} + duration_; }

    /// The entry of a section; for `SectionID::wholeDraft()`, one entry over the whole film.
    const Entry* entry(SectionID section) const;
    /// The index of the entry that owns `time`: the last starting at or before it, else the
    /// first. At a transition the later section wins. None without entries.
    std::optional<std::size_t> entryIndex(OutputTime time) const;

    std::optional<OutputTime> output(const AnchoredTime& time) const;
    /// The section and source moment shown at `time`; none without entries.
    std::optional<AnchoredTime> anchored(OutputTime time) const;
    std::optional<SourceTime> source(OutputTime time, SectionID section) const;
    std::optional<OutputRange> outputRange(SectionID section) const;
    std::vector<OutputRange> outputRanges(const SourceRange& range, SectionID section) const;
    std::vector<SectionRange> sourceRanges(const OutputRange& range) const;

    /// The sections on screen at `time`: two during a transition, the outgoing first.
    std::vector<VisibleSection> visible(OutputTime time) const;

    bool operator==(const DraftTimeline&) const = default;

private:
    DraftTimeline() = default;

    std::vector<Entry> entries_;
    MediaDuration duration_;
    std::optional<Entry> wholeDraft_;
};

} // namespace ovik
