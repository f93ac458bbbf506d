#pragma once
// One moment of a draft told on its three clocks: the film's output time, the played time (the
// film without its sections' speed curves) and a section's source time. Each clock is read
// straight from the one the moment was given on, never by way of a third, so that no moment is
// rounded twice on its way: a source moment's played time comes from the played timeline alone.
#include <optional>

#include "OvikModel/Draft.h"
#include "OvikModel/time/AnchoredTime.h"

namespace ovik {

struct ClockReading {
    /// None where the film never shows the moment.
    std::optional<OutputTime> output;
    /// None where the moment was cut.
    std::optional<OutputTime> played;
    std::optional<AnchoredTime> source;

    /// The film moment `time`: its played moment, and the section shown then with its source.
    static ClockReading atOutput(const Draft& draft, OutputTime time);
    /// The played moment `time`: the section and source that the played timeline shows then, and
    /// the first film moment that shows it.
    static ClockReading atPlayed(const Draft& draft, OutputTime time);
    /// The source moment `time`: where the film shows it first, and where its section's played
    /// map (no speed curve) puts it, counting a stretch's end as its own.
    static ClockReading atSource(const Draft& draft, const AnchoredTime& time);

    bool operator==(const ClockReading&) const = default;
};

} // namespace ovik
