#include "OvikPlatform/media/MediaTime.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ovik {

MediaTime MediaTime::fromSeconds(double seconds) {
    if (!std::isfinite(seconds)) return {};
    // Saturates rather than overflowing for times no movie reaches.
    constexpr double limit = double(std::numeric_limits<std::int64_t>::max() / 2);
    return microseconds(std::int64_t(std::clamp(std::round(seconds * 1e6), -limit, limit)));
}

std::strong_ordering operator<=>(const MediaTime& a, const MediaTime& b) {
    // Cross-multiplied in 128 bits: two 64-bit values times 64-bit scales can't overflow.
    return __int128(a.value) * b.timescale <=> __int128(b.value) * a.timescale;
}

} // namespace ovik
