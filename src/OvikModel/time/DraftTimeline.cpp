#include "OvikModel/time/DraftTimeline.h"

#include <algorithm>

namespace ovik {
namespace {

// The transition as it plays between two maps, and how much the sections overlap.
std::pair<std::optional<Transition>, MediaDuration> effectiveTransition(const Transition& stored, MediaDuration before,
                                                                        MediaDuration after) {
    if (stored.outgoing.empty() && stored.incoming.empty()) return {std::nullopt, {}};
    const MediaDuration limit{std::min(before, after).microseconds / 2};
    const MediaDuration d = std::min(limit, std::max(stored.duration, MediaDuration{}));
    if (d.microseconds < 1) return {std::nullopt, {}};
    return {stored.retimed(d), d};
}

double progress(MediaDuration elapsed, MediaDuration length) {
    if (length.microseconds < 1) return 1.0;
    return std::clamp(elapsed.seconds() / length.seconds(), 0.0, 1.0);
}

} // namespace

// GCC 12 reads the moves of the whole-draft entry's optional fields, once inlined, as reads of
// uninitialized members; they are initialized (its transition is none). Only that warning goes.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
std::optional<DraftTimeline> DraftTimeline::make(const std::vector<Section>& sections) {
    DraftTimeline timeline;
    OutputTime cursor;
    for (const Section& section : sections) {
        auto map = TimeMap::make(section.length.stretches(), section.speed, section.length.isFramed());
        if (!map) return std::nullopt;
        std::optional<Transition> transition;
        MediaDuration overlap;
        if (!timeline.entries_.empty() && section.transitionIn)
            std::tie(transition, overlap) = effectiveTransition(
                *section.transitionIn, timeline.entries_.back().map.outputDuration(), map->outputDuration());
        const OutputTime start = cursor - overlap;
        const OutputRange output{start, start + map->outputDuration()};
        cursor = output.end;
        timeline.entries_.push_back({section.id, section.media, std::move(*map), output, std::move(transition)});
    }
    timeline.duration_ = cursor - OutputTime{};
    if (timeline.duration_.microseconds >= 1) {
        const OutputRange whole{OutputTime{}, timeline.end()};
        const SourceRange wholeSource{SourceTime{}, SourceTime{} + timeline.duration_};
        timeline.wholeDraft_ = Entry{SectionID::wholeDraft(), timeline.entries_.front().media,
                                     *TimeMap::make(std::vector{wholeSource}), whole, std::nullopt};
    }
    return timeline;
}
#pragma GCC diagnostic pop

const DraftTimeline::Entry* DraftTimeline::entry(SectionID section) const {
    if (section == SectionID::wholeDraft()) return wholeDraft_ ? &*wholeDraft_ : nullptr;
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Entry& entry) { return entry.section == section; });
    return found == entries_.end() ? nullptr : &*found;
}

std::optional<std::size_t> DraftTimeline::entryIndex(OutputTime time) const {
    if (entries_.empty()) return std::nullopt;
    // Starts never fall: an overlap takes at most half of the section before.
    const auto after = std::upper_bound(entries_.begin(), entries_.end(), time,
                                        [](OutputTime t, const Entry& entry) { return t < entry.output.start; });
    return after == entries_.begin() ? 0 : std::size_t(after - entries_.begin()) - 1;
}

std::optional<OutputTime> DraftTimeline::output(const AnchoredTime& time) const {
    const Entry* found = entry(time.section);
    if (!found) return std::nullopt;
    const auto local = found->map.output(time.time);
    if (!local) return std::nullopt;
    return found->output.start + (*local - OutputTime{});
}

std::optional<AnchoredTime> DraftTimeline::anchored(OutputTime time) const {
    const auto index = entryIndex(time);
    if (!index) return std::nullopt;
    const Entry& at = entries_[*index];
    const OutputTime local = time.microseconds < 0 ? OutputTime{} : OutputTime{} + (time - at.output.start);
    return AnchoredTime{at.section, at.map.source(local)};
}

std::optional<SourceTime> DraftTimeline::source(OutputTime time, SectionID section) const {
    const Entry* found = entry(section);
    if (!found) return std::nullopt;
    return found->map.source(OutputTime{} + (time - found->output.start));
}

std::optional<OutputRange> DraftTimeline::outputRange(SectionID section) const {
    const Entry* found = entry(section);
    if (!found) return std::nullopt;
    return found->output;
}

std::vector<OutputRange> DraftTimeline::outputRanges(const SourceRange& range, SectionID section) const {
    const Entry* found = entry(section);
    if (!found) return {};
    std::vector<OutputRange> out = found->map.outputRanges(range);
    const MediaDuration shift = found->output.start - OutputTime{};
    for (OutputRange& part : out) part = {part.start + shift, part.end + shift};
    return out;
}

std::vector<DraftTimeline::SectionRange> DraftTimeline::sourceRanges(const OutputRange& range) const {
    std::vector<SectionRange> out;
    for (const Entry& entry : entries_) {
        const MediaDuration shift = entry.output.start - OutputTime{};
        const OutputRange local{range.start - shift, range.end - shift};
        for (const SourceRange& part : entry.map.sourceRanges(local)) out.push_back({entry.section, part});
    }
    return out;
}

std::vector<VisibleSection> DraftTimeline::visible(OutputTime time) const {
    std::vector<VisibleSection> out;
    if (entries_.empty()) return out;
    time = std::clamp(time, OutputTime{}, end());
    // Ends never fall either, so the first entry that can show `time` is found by search.
    const auto first = std::lower_bound(entries_.begin(), entries_.end(), time,
                                        [](const Entry& entry, OutputTime t) { return entry.output.end < t; });
    for (auto i = std::size_t(first - entries_.begin()); i < entries_.size() && entries_[i].output.start <= time; ++i) {
        const Entry& entry = entries_[i];
        const bool last = i + 1 == entries_.size();
        if (!(entry.output.start <= time && (time < entry.output.end || (time == entry.output.end && last)))) continue;
        VisibleSection shown{entry.section, entry.media, entry.map.source(OutputTime{} + (time - entry.output.start)),
                             std::nullopt};
        const Entry* next = last ? nullptr : &entries_[i + 1];
        if (entry.transitionIn && time < entry.output.start + entry.transitionIn->duration)
            shown.transition = TransitionPhase{*entry.transitionIn,
                                               progress(time - entry.output.start, entry.transitionIn->duration), true};
        else if (next && next->transitionIn && time >= next->output.start)
            shown.transition = TransitionPhase{*next->transitionIn,
                                               progress(time - next->output.start, next->transitionIn->duration), false};
        out.push_back(std::move(shown));
    }
    return out;
}

} // namespace ovik
