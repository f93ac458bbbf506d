#include "OvikModel/time/Freeze.h"

#include <algorithm>
#include <cmath>

namespace ovik {

MediaDuration Freeze::clamped(MediaDuration length) { return clamped(length.seconds()); }

MediaDuration Freeze::clamped(double seconds) {
    if (!std::isfinite(seconds)) seconds = defaultLength.seconds();
    if (seconds <= shortestSeconds) return MediaDuration{100'000};
    return MediaDuration::fromSeconds(std::min(seconds, longestSeconds));
}

} // namespace ovik
