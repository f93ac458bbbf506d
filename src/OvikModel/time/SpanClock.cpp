#include "OvikModel/time/SpanClock.h"

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
    if (!lines.written) return time;
    return firstOutput(*lines.written, *lines.played, time).value_or(time);
}

SpanClock SpanClock::steady() const { return SpanClock(draft_, output_, played_, framed_); }

} // namespace ovik
