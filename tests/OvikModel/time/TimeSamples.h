#pragma once
// Stretches, sections and drafts for the tests of time.
#include <cstdint>
#include <vector>

#include "OvikModel/Draft.h"

namespace ovik::testing {

inline KeptStretch playing(std::int64_t start, std::int64_t end, double rate = 1, bool reversed = false) {
    KeptStretch stretch;
    stretch.range = {SourceTime{start}, SourceTime{end}};
    stretch.rate = rate;
    stretch.reversed = reversed;
    return stretch;
}

inline KeptStretch frozen(std::int64_t at, std::int64_t hold) {
    return KeptStretch::freeze(SourceTime{at}, MediaDuration{hold});
}

inline SectionID sectionID(std::uint8_t n) {
    UUID::Bytes bytes{};
    bytes[15] = n;
    return SectionID{UUID(bytes)};
}

inline MediaID mediaID(std::uint8_t n) {
    UUID::Bytes bytes{};
    bytes[14] = 1;
    bytes[15] = n;
    return MediaID{UUID(bytes)};
}

inline Section keptSection(std::uint8_t n, std::vector<KeptStretch> stretches) {
    Section section;
    section.id = sectionID(n);
    section.media = mediaID(1);
    section.length = Section::Length::makeKept(std::move(stretches));
    return section;
}

inline Section stillSection(std::uint8_t n, std::int64_t length) {
    Section section;
    section.id = sectionID(n);
    section.media = mediaID(2);
    section.length = Section::Length::makeStill(MediaDuration{length});
    return section;
}

/// A transition whose outgoing side holds one action over its opening part.
inline Transition transition(std::int64_t duration, std::int64_t actionLength = 0) {
    Transition out;
    out.duration = MediaDuration{duration};
    Action fade;
    fade.property = PropertyKey::opacity();
    fade.mode.cases = ActionMode::to{std::nullopt, ActionValue::makeNumber(0)};
    fade.curve.cases = ActionCurve::linear{};
    fade.range.cases = ActionRange::opening{MediaDuration{}, MediaDuration{actionLength}};
    out.outgoing.push_back(fade);
    return out;
}

/// A draft of one recording (media 1) and one canvas (media 2) with the given sections.
inline Draft draftOf(std::vector<Section> sections) {
    Draft draft;
    Media recording, canvas;
    recording.id = mediaID(1);
    recording.source = MediaSource::makeRecording(Recording{});
    canvas.id = mediaID(2);
    canvas.source = MediaSource::makeCanvas(Canvas{});
    draft.media = CowList<Media>({recording, canvas});
    draft.sections = CowList<Section>(std::move(sections));
    return draft;
}

} // namespace ovik::testing
