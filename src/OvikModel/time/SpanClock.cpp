#include "OvikModel/time/SpanClock.h"

#include <algorithm>

#include "OvikModel/time/DraftTiming.h"

namespace ovik {

SpanClock::SpanClock(Draft draft, OutputTime output, OutputTime played, bool framed)
    : draft_(std::move(draft)), output_(output), played_(played), framed_(framed) {}

const SpanClock::Timelines& SpanClock::timelines() const {
    if (!timelines_) {
        Timelines made{timeline(draft_), nullptr};
        if (made.written) made.played = playedTimeline(draft_);
        if (!made.played) made.written = nullptr;
        timelines_ = std::move(made);
    }
    return *timelines_;
}

OutputTime SpanClock::film(OutputTime time) const {
    if (framed_ && time == played_) return output_;
    const Timelines& lines = timelines();
    if (!lines.written || lines.played->entries().size() != lines.written->entries().size()) return time;
    const auto found = lines.played->entryIndex(time);
    if (!found) return time;
    const std::size_t index = *found;
    const OutputRange played = lines.played->entries()[index].output;
    const DraftTimeline::Entry& written = lines.written->entries()[index];
    const OutputTime local = OutputTime{} + (std::clamp(time, played.start, played.end) - played.start);
    return written.output.start + (written.map.firstOutput(local) - OutputTime{});
}

SpanClock SpanClock::steady() const { return SpanClock(draft_, output_, played_, framed_); }

} // namespace ovik
