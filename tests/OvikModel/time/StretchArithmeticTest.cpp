#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "OvikModel/time/Freeze.h"
#include "OvikModel/time/Speed.h"
#include "TimeSamples.h"

namespace ovik {
namespace {

using testing::frozen;
using testing::playing;

TEST(StretchArithmetic, OutputLengthNeverCollapses) {
    struct Case {
        KeptStretch stretch;
        std::int64_t output;
    };
    const Case cases[] = {
        {playing(0, 1, 8), 1},          {playing(0, 10, 3), 3},       {playing(0, 10, 4), 3},  // 2.5 rounds up
        {playing(0, 1000, 0.5), 2000},  {frozen(7, 250), 250},        {playing(5, 5, 2), 0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.stretch.outputLength().microseconds, c.output) << c.stretch.range.description();
}

TEST(StretchArithmetic, ReversedStretchRunsFromItsEnd) {
    const KeptStretch reversed = playing(100, 1100, 2, true);
    EXPECT_EQ(reversed.sourceOffset(MediaDuration{}).microseconds, 1000);
    EXPECT_EQ(reversed.outputOffset(MediaDuration{1000}), reversed.outputLength());
    EXPECT_EQ(reversed.sourceOffset(reversed.outputLength()).microseconds, 0);
    const KeptStretch atRateOne = playing(0, 50, 1, true);
    EXPECT_EQ(atRateOne.sourceOffset(MediaDuration{10}).microseconds, 40);
}

TEST(StretchArithmetic, OffsetsAreClampedToTheStretch) {
    const KeptStretch fast = playing(0, 100, 4);
    EXPECT_EQ(fast.sourceOffset(MediaDuration{1000}).microseconds, 100);
    EXPECT_EQ(fast.sourceOffset(MediaDuration{-5}).microseconds, 0);
    EXPECT_EQ(fast.outputOffset(MediaDuration{1000}), fast.outputLength());
    EXPECT_EQ(frozen(30, 9).sourceOffset(MediaDuration{5}).microseconds, 0);
}

TEST(StretchArithmetic, AudibleUpToTheLimitWithRoundingSlack) {
    EXPECT_TRUE(playing(0, 10, 4.0000000005).isAudible());
    EXPECT_FALSE(playing(0, 10, 4.01).isAudible());
    EXPECT_FALSE(frozen(0, 10).isAudible());
}

TEST(StretchArithmetic, SpeedAndFreezeLimits) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::pair<double, double> speeds[] = {{nan, 1}, {0.2, 0.5}, {0.5, 0.5}, {1.234, 1.23}, {20, 8}, {-3, 0.5}};
    for (const auto& [in, out] : speeds) EXPECT_EQ(Speed::clamped(in), out) << in;
    const std::pair<double, const char*> texts[] = {{1, "1×"}, {1.5, "1.5×"}, {0.75, "0.75×"}, {2.10, "2.1×"}};
    for (const auto& [rate, text] : texts) EXPECT_EQ(Speed::text(rate), text);
    const std::pair<double, std::int64_t> freezes[] = {
        {nan, 2'000'000}, {0.05, 100'000}, {0.1, 100'000}, {1.5, 1'500'000}, {90, 30'000'000}};
    for (const auto& [seconds, length] : freezes) EXPECT_EQ(Freeze::clamped(seconds).microseconds, length) << seconds;
    const std::pair<double, double> sectionRates[] = {{0.01, 0.05}, {1.23456, 1.235}, {9, 8}, {nan, 1}};
    for (const auto& [in, out] : sectionRates) EXPECT_EQ(SectionSpeed::clamped(in), out) << in;
}

TEST(StretchArithmetic, JoinedMergesOnlySeamsThatResume) {
    KeptStretch right = playing(10, 20);
    right.resumes = true;
    KeptStretch faster = right;
    faster.rate = 2;
    KeptStretch apart = playing(15, 20);
    apart.resumes = true;
    struct Case {
        std::vector<KeptStretch> list;
        std::vector<std::size_t> indices;
        std::size_t count;
    };
    const Case cases[] = {
        {{playing(0, 10), right}, {1}, 1},  {{playing(0, 10), right}, {}, 2},
        {{playing(0, 10), faster}, {1}, 2}, {{playing(0, 10), apart}, {1}, 2},
        {{playing(0, 10), playing(10, 20)}, {1}, 2},
    };
    for (const Case& c : cases) EXPECT_EQ(joined(c.list, c.indices).size(), c.count);
    EXPECT_EQ(joined({playing(0, 10), right}, {1})[0].range.end, SourceTime{20});
}

} // namespace
} // namespace ovik
