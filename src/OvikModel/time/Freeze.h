#pragma once
// The length of a freeze: its default and its limits.
#include "OvikModel/values/Times.h"

namespace ovik {

struct Freeze {
    static constexpr MediaDuration defaultLength{2'000'000};
    static constexpr double shortestSeconds = 0.1;
    static constexpr double longestSeconds = 30.0;

    /// Within the limits, in whole microseconds; a length that is not finite is the default.
    static MediaDuration clamped(MediaDuration length);
    static MediaDuration clamped(double seconds);
};

} // namespace ovik
