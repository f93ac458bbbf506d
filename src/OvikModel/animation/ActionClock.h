#pragma once
// The moment at which actions are evaluated: the film's moment (absent for a still that is not
// rendered in time), the source moment, the span the thing is shown, and the conversions that
// `between` ranges and shifted clocks need.
#include <functional>
#include <optional>

#include "OvikModel/values/TimeRange.h"

namespace ovik {

struct ActionClock {
    std::optional<OutputTime> now;
    SourceTime time;
    std::optional<OutputRange> life;
    /// A source range on the film; empty or answering none where it is not shown.
    std::function<std::optional<OutputRange>(const SourceRange&)> span;
    /// The source moment shown at a film moment; empty where there is no such conversion.
    std::function<SourceTime(OutputTime)> source;

    /// A still moment: no film moment, no life, nothing on the film.
    static ActionClock still(SourceTime time) { return ActionClock{std::nullopt, time, std::nullopt, {}, {}}; }

    std::optional<OutputRange> spanOf(const SourceRange& range) const {
        return span ? span(range) : std::nullopt;
    }
    /// The clock moved to the film moment `moment`, its source moment following when it can.
    ActionClock at(OutputTime moment) const {
        ActionClock out = *this;
        if (!now || *now == moment) return out;
        out.now = moment;
        if (source) out.time = source(moment);
        return out;
    }
};

} // namespace ovik
