#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "OvikPlatform/media/MediaTime.h"

namespace ovik {
namespace {

TEST(MediaTime, ComparesExactlyAcrossTimescales) {
    constexpr std::int64_t big = std::numeric_limits<std::int64_t>::max() / 2;
    const struct {
        MediaTime a, b;
        std::strong_ordering expected;
    } cases[] = {
        {{1, 2}, {2, 4}, std::strong_ordering::equal},
        {{1, 3}, {333'333, 1'000'000}, std::strong_ordering::greater},
        {{9216, 10240}, {9, 10}, std::strong_ordering::equal},
        {{-1, 10}, {0, 1}, std::strong_ordering::less},
        // The cross products pass 2^63; a 64-bit comparison would wrap.
        {{big, 1'000'000}, {big, 999'999}, std::strong_ordering::less},
    };
    for (const auto& c : cases) EXPECT_EQ(c.a <=> c.b, c.expected) << c.a.value << "/" << c.a.timescale;
}

TEST(MediaTime, FromSecondsRoundsToMicrosecondsAndTakesNoNonsense) {
    const struct {
        double seconds;
        std::int64_t microseconds;
    } cases[] = {{1.5, 1'500'000}, {0.0000005, 1}, {-0.0000005, -1}, {std::nan(""), 0},
                 {std::numeric_limits<double>::infinity(), 0}};
    for (const auto& c : cases)
        EXPECT_EQ(MediaTime::fromSeconds(c.seconds), MediaTime::microseconds(c.microseconds)) << c.seconds;
    EXPECT_GT(MediaTime::fromSeconds(1e300), MediaTime::fromSeconds(1e12));
}

} // namespace
} // namespace ovik
