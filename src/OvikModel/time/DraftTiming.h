#pragma once
// What a draft's sections make of time: its timeline, the same film without speed curves,
// and the rates that its stretches play at.
#include <memory>
#include <optional>

#include "OvikModel/Draft.h"
#include "OvikModel/time/DraftTimeline.h"
#include "OvikModel/time/PlayedMoment.h"

namespace ovik {

/// The timeline of the draft's sections, made once per draft value; null when a section's map
/// cannot be built.
std::shared_ptr<const DraftTimeline> timeline(const Draft& draft);

/// The draft with every section's speed curve taken away (the draft itself when none has one).
Draft played(const Draft& draft);

/// The timeline of `played(draft)`, made once per draft value.
std::shared_ptr<const DraftTimeline> playedTimeline(const Draft& draft);

/// The moment `time` of the film as the played timeline tells it; none when no section has
/// a speed curve or either timeline is missing.
std::optional<PlayedMoment> playedMoment(const Draft& draft, OutputTime time);

/// The first moment of the `written` timeline that shows the moment `time` of its `played`
/// timeline: the played entry there and the written map of the same section. None when the two
/// don't pair up or have no entries.
std::optional<OutputTime> firstOutput(const DraftTimeline& written, const DraftTimeline& played, OutputTime time);

/// The index of `section` (the first section when none is named) when its media is a recording.
std::optional<std::size_t> recordingSectionIndex(const Draft& draft, std::optional<SectionID> section = std::nullopt);

/// The rate of the playing stretch of `section` whose range is exactly `range`; 1 otherwise.
double rate(const Draft& draft, const SourceRange& range, SectionID section);

/// The one rate that every recording stretch under `range` plays at; none when they differ.
std::optional<double> rate(const Draft& draft, const OutputRange& range);

} // namespace ovik
