#pragma once
// Reads a draft on the film's clock while evaluation stands on a section's played time, so
// that an object spanning a speed change keeps the film's pace. Made per frame by whoever
// evaluates such an object; the two timelines are made at first need.
//
// Evaluating nodes through this clock (with driver inputs) comes with the driver evaluator.
#include <memory>
#include <optional>

#include "OvikModel/Draft.h"
#include "OvikModel/time/DraftTimeline.h"

namespace ovik {

class SpanClock {
public:
    /// `output` is the film moment at hand and `played` the same moment on played time;
    /// `framed` says the moment is a real frame.
    SpanClock(Draft draft, OutputTime output, OutputTime played, bool framed);

    const Draft& draft() const { return draft_; }
    OutputTime output() const { return output_; }
    OutputTime played() const { return played_; }
    bool framed() const { return framed_; }

    /// The film moment of the played moment `time`. The frame at hand answers itself exactly,
    /// so that rounding cannot move it.
    OutputTime film(OutputTime time) const;

    /// A copy with its timelines unmade, for keeping past the draft it was made from.
    SpanClock steady() const;

private:
    struct Timelines {
        std::shared_ptr<const DraftTimeline> written;
        std::shared_ptr<const DraftTimeline> played;
    };
    const Timelines& timelines() const;

    Draft draft_;
    OutputTime output_;
    OutputTime played_;
    bool framed_;
    mutable std::optional<Timelines> timelines_;
};

} // namespace ovik
