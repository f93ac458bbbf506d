#include "OvikModel/time/DraftTiming.h"

#include <algorithm>
#include <set>

namespace ovik {
namespace {

const DraftMemoKey timelineKey{"timeline"};
const DraftMemoKey playedTimelineKey{"playedTimeline"};

std::shared_ptr<const DraftTimeline> present(std::shared_ptr<const std::optional<DraftTimeline>> made) {
    if (!*made) return nullptr;
    return std::shared_ptr<const DraftTimeline>(made, &**made);
}

bool isRecording(const Draft& draft, MediaID media) {
    return std::any_of(draft.media.begin(), draft.media.end(), [&](const Media& m) {
        return m.id == media && m.source.is<MediaSource::recording>();
    });
}

// Ranges shorter than a frame at 60 fps are the slivers of rounding at a join.
std::vector<SourceRange> withoutSlivers(std::vector<SourceRange> ranges) {
    if (ranges.size() < 2) return ranges;
    std::erase_if(ranges, [](const SourceRange& r) { return r.duration().microseconds < 16'667; });
    return ranges;
}

// The rate of the playing stretch that holds `time`; a shown source range lies inside one.
double rateAt(const std::vector<KeptStretch>& stretches, SourceTime time) {
    for (const KeptStretch& stretch : stretches)
        if (!stretch.isFreeze() && stretch.range.contains(time)) return stretch.rate;
    return 1.0;
}

bool anySpeed(const Draft& draft) {
    return std::any_of(draft.sections.begin(), draft.sections.end(),
                       [](const Section& section) { return section.speed.has_value(); });
}

} // namespace

std::shared_ptr<const DraftTimeline> timeline(const Draft& draft) {
    return present(draft.memo.value<std::optional<DraftTimeline>>(
        timelineKey, [&] { return DraftTimeline::make(draft.sections.items()); }));
}

std::shared_ptr<const DraftTimeline> playedTimeline(const Draft& draft) {
    if (!anySpeed(draft)) return timeline(draft);
    return present(draft.memo.value<std::optional<DraftTimeline>>(
        playedTimelineKey, [&] { return DraftTimeline::make(played(draft).sections.items()); }));
}

Draft played(const Draft& draft) {
    if (!anySpeed(draft)) return draft;
    Draft out = draft;
    for (Section& section : out.sections.mutableItems()) section.speed.reset();
    out.memo = DraftMemo();
    return out;
}

std::optional<PlayedMoment> playedMoment(const Draft& draft, OutputTime time) {
    if (!anySpeed(draft)) return std::nullopt;
    const auto written = timeline(draft);
    const auto plain = playedTimeline(draft);
    if (!written || !plain || written->entries().size() != plain->entries().size()) return std::nullopt;
    const std::size_t index = *written->entryIndex(time);
    const DraftTimeline::Entry& entry = written->entries()[index];
    const OutputTime local = OutputTime{} + (std::clamp(time, entry.output.start, entry.output.end) - entry.output.start);
    PlayedMoment moment;
    moment.output = plain->entries()[index].output.start + (entry.map.played(local) - OutputTime{});
    for (const VisibleSection& shown : written->visible(time)) {
        moment.sections.push_back(shown.section);
        moment.sources[shown.section] = shown.time;
        if (shown.transition) moment.phases[shown.section] = *shown.transition;
    }
    moment.rate = entry.map.playedRate(local);
    return moment;
}

std::optional<OutputTime> firstOutput(const DraftTimeline& written, const DraftTimeline& played, OutputTime time) {
    const auto index = played.entryIndex(time);
    if (!index || played.entries().size() != written.entries().size()) return std::nullopt;
    const OutputRange span = played.entries()[*index].output;
    const DraftTimeline::Entry& entry = written.entries()[*index];
    const OutputTime local = OutputTime{} + (std::clamp(time, span.start, span.end) - span.start);
    return entry.output.start + (entry.map.firstOutput(local) - OutputTime{});
}

std::optional<std::size_t> recordingSectionIndex(const Draft& draft, std::optional<SectionID> section) {
    if (draft.sections.empty()) return std::nullopt;
    std::size_t index = 0;
    if (section) {
        const auto found = std::find_if(draft.sections.begin(), draft.sections.end(),
                                        [&](const Section& s) { return s.id == *section; });
        if (found == draft.sections.end()) return std::nullopt;
        index = std::size_t(found - draft.sections.begin());
    }
    const Section& chosen = draft.sections[index];
    if (!chosen.length.isFramed() || !isRecording(draft, chosen.media)) return std::nullopt;
    return index;
}

double rate(const Draft& draft, const SourceRange& range, SectionID section) {
    const auto index = recordingSectionIndex(draft, section);
    if (!index) return 1.0;
    for (const KeptStretch& stretch : draft.sections[*index].length.stretches())
        if (!stretch.isFreeze() && stretch.range == range) return stretch.rate;
    return 1.0;
}

std::optional<double> rate(const Draft& draft, const OutputRange& range) {
    const auto line = timeline(draft);
    if (!line) return std::nullopt;
    std::set<double> rates;
    for (const DraftTimeline::Entry& entry : line->entries()) {
        const MediaDuration shift = entry.output.start - OutputTime{};
        const auto index = recordingSectionIndex(draft, entry.section);
        if (!index) continue;
        const auto stretches = draft.sections[*index].length.stretches();
        for (const SourceRange& part : withoutSlivers(entry.map.sourceRanges({range.start - shift, range.end - shift})))
            rates.insert(rateAt(stretches, part.start));
    }
    if (rates.size() != 1) return std::nullopt;
    return *rates.begin();
}

} // namespace ovik
