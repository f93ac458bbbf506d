#include "OvikModel/time/ClockReading.h"

#include "OvikModel/time/DraftTiming.h"

namespace ovik {

ClockReading ClockReading::atOutput(const Draft& draft, OutputTime time) {
    const auto line = timeline(draft);
    if (!line) return {};
    const auto moment = playedMoment(draft, time);
    return {time, moment ? moment->output : time, line->anchored(time)};
}

ClockReading ClockReading::atPlayed(const Draft& draft, OutputTime time) {
    const auto line = timeline(draft);
    const auto plain = playedTimeline(draft);
    if (!line || !plain) return {};
    return {firstOutput(*line, *plain, time), time, plain->anchored(time)};
}

ClockReading ClockReading::atSource(const Draft& draft, const AnchoredTime& time) {
    const auto line = timeline(draft);
    const auto plain = playedTimeline(draft);
    if (!line || !plain) return {};
    const DraftTimeline::Entry* entry = plain->entry(time.section);
    const auto local = entry ? entry->map.playedOutput(time.time) : std::nullopt;
    const auto played = local ? std::optional(entry->output.start + (*local - OutputTime{})) : std::nullopt;
    return {line->output(time), played, time};
}

} // namespace ovik
