#include "OvikModel/time/DraftRetiming.h"

#include <algorithm>
#include <cmath>

#include "OvikModel/time/DraftTiming.h"
#include "OvikModel/time/Freeze.h"
#include "OvikModel/time/Speed.h"

namespace ovik {
namespace {

// A frame at 60 fps, less a microsecond: nothing this short is left at the edge of an edit.
constexpr MediaDuration sliver{16'666};
// The least a recording section may keep playing after a cut.
constexpr MediaDuration shortestKept{100'000};

[[noreturn]] void refuse(TimeEditError::Reason reason) { throw TimeEditError(reason); }

// An edited draft gets a memo of its own: copies taken before the edit keep what they derived.
void store(Draft& draft, Draft edited) {
    edited.memo = DraftMemo();
    draft = std::move(edited);
}

std::optional<std::size_t> sectionIndex(const Draft& draft, SectionID id) {
    const auto found =
        std::find_if(draft.sections.begin(), draft.sections.end(), [&](const Section& s) { return s.id == id; });
    if (found == draft.sections.end()) return std::nullopt;
    return std::size_t(found - draft.sections.begin());
}

// The stored stretches of a section cut out of a recording; none for a still.
std::vector<KeptStretch>* keptStretches(Draft& draft, std::size_t index) {
    Section& section = draft.sections.mutableItems()[index];
    if (!section.length.isFramed()) return nullptr;
    return &section.length.as<Section::Length::kept>().value;
}

std::vector<KeptStretch>& recordingStretches(Draft& draft, std::size_t index) { return *keptStretches(draft, index); }

OutputRange localRange(const OutputRange& range, const DraftTimeline::Entry& entry) {
    const MediaDuration shift = entry.output.start - OutputTime{};
    return {range.start - shift, range.end - shift};
}

bool isPlayingAround(const KeptStretch& stretch, SourceTime time) {
    return !stretch.isFreeze() && stretch.range.contains(time);
}

// Plays [a, b) of the playing stretch that holds it at `rate`, snapping ends that would leave
// slivers; answers the range retimed, none when no stretch holds it.
std::optional<SourceRange> retime(std::vector<KeptStretch>& stretches, SourceRange part, double rate) {
    const auto found = std::find_if(stretches.begin(), stretches.end(), [&](const KeptStretch& s) {
        return !s.isFreeze() && s.range.start <= part.start && part.end <= s.range.end;
    });
    if (found == stretches.end()) return std::nullopt;
    const KeptStretch old = *found;
    if (part.start - old.range.start <= sliver) part.start = old.range.start;
    if (old.range.end - part.end <= sliver) part.end = old.range.end;
    std::vector<KeptStretch> pieces;
    if (old.range.start < part.start) {
        pieces.push_back(old);
        pieces.back().range.end = part.start;
    }
    KeptStretch middle = old;
    middle.range = part;
    middle.rate = rate;
    middle.origin = SpeedOrigin::manual;
    middle.resumes = pieces.empty() && old.resumes;
    pieces.push_back(middle);
    if (part.end < old.range.end) {
        KeptStretch right = old;
        right.range.start = part.end;
        right.resumes = false;
        pieces.push_back(right);
    }
    const auto at = stretches.erase(found);
    stretches.insert(at, pieces.begin(), pieces.end());
    return part;
}

std::vector<KeptStretch>::iterator freezeAt(std::vector<KeptStretch>& stretches, SourceTime frame) {
    return std::find_if(stretches.begin(), stretches.end(),
                        [&](const KeptStretch& s) { return s.isFreeze() && s.frame() == frame; });
}

// The stored freeze at an anchored moment, for editing; refuses when there is none.
std::pair<std::size_t, std::size_t> storedFreeze(Draft& draft, const AnchoredTime& at) {
    const auto index = sectionIndex(draft, at.section);
    if (!index) refuse(TimelineEditError::nothingThere);
    auto* stretches = keptStretches(draft, *index);
    if (!stretches) refuse(TimelineEditError::nothingThere);
    const auto found = freezeAt(*stretches, at.time);
    if (found == stretches->end()) refuse(TimelineEditError::nothingThere);
    return {*index, std::size_t(found - stretches->begin())};
}

void dropFreeze(std::vector<KeptStretch>& stretches, std::size_t index) {
    stretches.erase(stretches.begin() + std::ptrdiff_t(index));
    stretches = joined(stretches, {index});
}

// New stretches for kept ranges cut out of old ones: each takes rate and origin from the old
// playing stretch it overlaps most, and resumes where an old one started at the same moment.
std::vector<KeptStretch> remapped(const std::vector<KeptStretch>& old, const std::vector<SourceRange>& keeping) {
    std::vector<KeptStretch> out;
    for (const SourceRange& range : keeping) {
        KeptStretch stretch;
        stretch.range = range;
        MediaDuration most{-1};
        for (const KeptStretch& s : old) {
            if (s.isFreeze()) continue;
            const auto common = s.range.intersection(range);
            if (common && common->duration() > most) {
                most = common->duration();
                stretch.rate = s.rate;
                stretch.origin = s.origin;
            }
            if (s.range.start == range.start) stretch.resumes = s.resumes;
        }
        out.push_back(stretch);
    }
    return out;
}

MediaDuration playingOutput(const std::vector<KeptStretch>& stretches) {
    MediaDuration total;
    for (const KeptStretch& s : stretches)
        if (!s.isFreeze()) total = total + s.outputLength();
    return total;
}

// A freeze under a cut output range, and how much of it is left outside the range.
struct NotedFreeze {
    SourceTime frame;
    MediaDuration remaining;
};

std::vector<NotedFreeze> freezesUnder(const TimeMap& map, const OutputRange& local) {
    std::vector<NotedFreeze> out;
    for (const TimeMap::Piece& piece : map.pieces()) {
        if (!piece.stretch.isFreeze()) continue;
        if (const auto common = piece.output.intersection(local))
            out.push_back({piece.stretch.frame(), *piece.stretch.hold - common->duration()});
    }
    return out;
}

bool shorten(std::vector<KeptStretch>& stretches, const NotedFreeze& noted) {
    const auto found = freezeAt(stretches, noted.frame);
    if (found == stretches.end()) return false;
    if (noted.remaining < MediaDuration{100'000})
        dropFreeze(stretches, std::size_t(found - stretches.begin()));
    else
        found->hold = noted.remaining;
    return true;
}

bool inLimits(double value, double lo, double hi) { return std::isfinite(value) && lo <= value && value <= hi; }

void checkSpeed(const SectionSpeed& speed, const Section& section) {
    const auto map = TimeMap::make(section.length.stretches());
    if (!map) refuse(TimelineEditError::nothingThere);
    const MediaDuration P = map->outputDuration();
    if (speed.reversed && section.length.isFramed()) refuse(SectionSpeedError::cannotReverse);
    const auto within = [&](MediaDuration at) { return MediaDuration{} <= at && at <= P; };
    for (const SectionSpeed::Key& key : speed.keys)
        if (!inLimits(key.rate, SectionSpeed::slowest, SectionSpeed::fastest) || !within(key.at))
            refuse(SectionSpeedError::outOfRange);
    for (const SectionSpeed::Hold& hold : speed.holds)
        if (!inLimits(hold.duration.seconds(), 0.05, 60) || !within(hold.at)) refuse(SectionSpeedError::outOfRange);
}

} // namespace

void setSectionSpeed(Draft& draft, std::optional<SectionSpeed> speed, SectionID id) {
    const auto index = sectionIndex(draft, id);
    if (!index) refuse(TimelineEditError::nothingThere);
    Draft edited = draft;
    Section& section = edited.sections.mutableItems()[*index];
    if (!speed || speed->isIdentity()) {
        section.speed.reset();
    } else {
        checkSpeed(*speed, section);
        for (SectionSpeed::Key& key : speed->keys) key.rate = SectionSpeed::clamped(key.rate);
        section.speed = SectionSpeed::make(std::move(speed->keys), std::move(speed->holds), speed->reversed);
    }
    store(draft, std::move(edited));
}

std::optional<SectionSpeed> sectionSpeed(const Draft& draft, SectionID id) {
    const auto index = sectionIndex(draft, id);
    if (!index) return std::nullopt;
    return draft.sections[*index].speed;
}

void setRate(Draft& draft, double rate, const SourceRange& clip, std::optional<SectionID> section) {
    const auto index = recordingSectionIndex(draft, section);
    if (!index) refuse(TimelineEditError::nothingThere);
    Draft edited = draft;
    auto& stretches = recordingStretches(edited, *index);
    const auto found = std::find_if(stretches.begin(), stretches.end(),
                                    [&](const KeptStretch& s) { return !s.isFreeze() && s.range == clip; });
    if (found == stretches.end()) refuse(TimelineEditError::nothingThere);
    found->rate = Speed::clamped(rate);
    found->origin = SpeedOrigin::manual;
    store(draft, std::move(edited));
}

OutputRange setRate(Draft& draft, double rate, const OutputRange& over) {
    const auto line = timeline(draft);
    if (!line) refuse(TimelineEditError::nothingThere);
    rate = Speed::clamped(rate);
    Draft edited = draft;
    std::vector<std::pair<SectionID, SourceRange>> retimed;
    for (const DraftTimeline::Entry& entry : line->entries()) {
        const auto index = recordingSectionIndex(draft, entry.section);
        if (!index) continue;
        auto ranges = entry.map.sourceRanges(localRange(over, entry));
        if (ranges.size() > 1) std::erase_if(ranges, [](const SourceRange& r) { return r.duration() <= sliver; });
        for (const SourceRange& range : ranges)
            if (const auto done = retime(recordingStretches(edited, *index), range, rate))
                retimed.push_back({entry.section, *done});
    }
    if (retimed.empty()) refuse(TimelineEditError::nothingThere);
    edited.memo = DraftMemo();
    const auto after = timeline(edited);
    if (!after) refuse(TimelineEditError::nothingThere);
    std::optional<OutputRange> taken;
    for (const auto& [section, range] : retimed)
        for (const OutputRange& part : after->outputRanges(range, section))
            taken = taken ? OutputRange{std::min(taken->start, part.start), std::max(taken->end, part.end)} : part;
    store(draft, std::move(edited));
    return taken.value_or(over);
}

AnchoredTime freeze(Draft& draft, OutputTime at, MediaDuration length) {
    const auto line = timeline(draft);
    if (!line) refuse(TimelineEditError::nothingThere);
    const auto anchored = line->anchored(at);
    if (!anchored) refuse(TimelineEditError::nothingThere);
    const auto index = recordingSectionIndex(draft, anchored->section);
    const DraftTimeline::Entry* entry = line->entry(anchored->section);
    if (!index || !entry) refuse(RetimeError::notARecording);
    const OutputTime local = OutputTime{} + (std::clamp(at, entry->output.start, entry->output.end) - entry->output.start);
    const auto piece = entry->map.pieceIndex(local);
    if (piece && entry->map.pieces()[*piece].stretch.isFreeze()) refuse(RetimeError::alreadyFrozen);
    Draft edited = draft;
    auto& stretches = recordingStretches(edited, *index);
    SourceTime frame = anchored->time;
    const auto around = std::find_if(stretches.begin(), stretches.end(),
                                     [&](const KeptStretch& s) { return isPlayingAround(s, frame); });
    if (around != stretches.end()) {
        if (frame - around->range.start <= sliver)
            frame = around->range.start;
        else if (around->range.end - frame <= sliver)
            frame = around->range.end;
    }
    if (freezeAt(stretches, frame) != stretches.end()) refuse(RetimeError::alreadyFrozen);
    insertFreeze(stretches, KeptStretch::freeze(frame, Freeze::clamped(length)));
    store(draft, std::move(edited));
    return AnchoredTime{anchored->section, frame};
}

void setFreezeLength(Draft& draft, MediaDuration length, const AnchoredTime& at) {
    Draft edited = draft;
    const auto [section, index] = storedFreeze(edited, at);
    recordingStretches(edited, section)[index].hold = Freeze::clamped(length);
    store(draft, std::move(edited));
}

void removeFreeze(Draft& draft, const AnchoredTime& at) {
    Draft edited = draft;
    const auto [section, index] = storedFreeze(edited, at);
    dropFreeze(recordingStretches(edited, section), index);
    store(draft, std::move(edited));
}

std::optional<FreezeAt> freeze(const Draft& draft, const AnchoredTime& at) {
    for (const FreezeAt& found : allFreezes(draft))
        if (found.at == at) return found;
    return std::nullopt;
}

std::vector<FreezeAt> allFreezes(const Draft& draft) {
    std::vector<FreezeAt> out;
    for (const Section& section : draft.sections)
        if (section.length.isFramed())
            for (const KeptStretch& stretch : freezes(section.length.stretches()))
                out.push_back({{section.id, stretch.frame()}, *stretch.hold});
    return out;
}

SourceRange swallowingSlivers(const SourceRange& range, const std::vector<SourceRange>& keptRanges) {
    SourceTime lo = std::min(range.start, range.end), hi = std::max(range.start, range.end);
    for (const SourceRange& kept : keptRanges) {
        if (kept.start < lo && lo < kept.end && lo - kept.start <= sliver) lo = kept.start;
        if (kept.start < hi && hi < kept.end && kept.end - hi <= sliver) hi = kept.end;
    }
    return {lo, hi};
}

void cut(Draft& draft, const SourceRange& range, std::optional<SectionID> section) {
    const auto index = recordingSectionIndex(draft, section);
    if (!index) refuse(TimelineEditError::nothingThere);
    const std::vector<KeptStretch> old = draft.sections[*index].length.stretches();
    const std::vector<SourceRange> kept = playedRanges(old);
    const SourceRange span = swallowingSlivers(range, kept);
    const auto overlaps = [&](const SourceRange& r) { return r.intersection(span).has_value(); };
    if (span.isEmpty() || std::none_of(kept.begin(), kept.end(), overlaps)) refuse(TimelineEditError::nothingThere);
    std::vector<SourceRange> left;
    for (const SourceRange& r : kept) {
        if (!overlaps(r)) {
            left.push_back(r);
            continue;
        }
        if (r.start < span.start) left.push_back({r.start, span.start});
        if (span.end < r.end) left.push_back({span.end, r.end});
    }
    std::vector<KeptStretch> stretches = remapped(old, left);
    for (const KeptStretch& f : freezes(old))
        if (!(span.start < f.frame() && f.frame() < span.end)) insertFreeze(stretches, f);
    if (left.empty() || playingOutput(stretches) < shortestKept || !TimeMap::make(stretches))
        refuse(TimelineEditError::wouldRemoveEverything);
    Draft edited = draft;
    edited.sections.mutableItems()[*index].length = Section::Length::makeKept(std::move(stretches));
    store(draft, std::move(edited));
}

void cut(Draft& draft, const OutputRange& range) {
    const auto line = timeline(draft);
    if (draft.kind() != DraftKind::recording || !line) refuse(TimelineEditError::nothingThere);
    Draft edited = draft;
    bool changed = false;
    for (const DraftTimeline::Entry& entry : line->entries()) {
        const auto index = recordingSectionIndex(draft, entry.section);
        if (!index) continue;
        const OutputRange local = localRange(range, entry);
        const auto ranges = entry.map.sourceRanges(local);
        const auto noted = freezesUnder(entry.map, local);
        if (!ranges.empty()) {
            cut(edited, SourceRange{ranges.front().start, ranges.back().end}, entry.section);
            changed = true;
        }
        for (const NotedFreeze& freeze : noted) changed = shorten(recordingStretches(edited, *index), freeze) || changed;
    }
    if (!changed) refuse(TimelineEditError::nothingThere);
    store(draft, std::move(edited));
}

} // namespace ovik
