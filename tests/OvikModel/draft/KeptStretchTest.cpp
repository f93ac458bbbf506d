#include <gtest/gtest.h>

#include <tuple>

#include "OvikModel/time/TimeSamples.h"

namespace ovik {
namespace {

using testing::frozen;
using testing::playing;

TEST(KeptStretch, OutputLengthNeverCollapses) {
    // stretch, output
    const std::tuple<KeptStretch, std::int64_t> cases[] = {
        {playing(0, 1, 8), 1},          {playing(0, 10, 3), 3},       {playing(0, 10, 4), 3},  // 2.5 rounds up
        {playing(0, 1000, 0.5), 2000},  {frozen(7, 250), 250},        {playing(5, 5, 2), 0},
    };
    for (const auto& [stretch, output] : cases)
        EXPECT_EQ(stretch.outputLength().microseconds, output) << stretch.range.description();
}

TEST(KeptStretch, ReversedStretchRunsFromItsEnd) {
    const KeptStretch reversed = playing(100, 1100, 2, true);
    EXPECT_EQ(reversed.sourceOffset(MediaDuration{}).microseconds, 1000);
    EXPECT_EQ(reversed.outputOffset(MediaDuration{1000}), reversed.outputLength());
    EXPECT_EQ(reversed.sourceOffset(reversed.outputLength()).microseconds, 0);
    const KeptStretch atRateOne = playing(0, 50, 1, true);
    EXPECT_EQ(atRateOne.sourceOffset(MediaDuration{10}).microseconds, 40);
}

TEST(KeptStretch, OffsetsAreClampedToTheStretch) {
    const KeptStretch fast = playing(0, 100, 4);
    EXPECT_EQ(fast.sourceOffset(MediaDuration{1000}).microseconds, 100);
    EXPECT_EQ(fast.sourceOffset(MediaDuration{-5}).microseconds, 0);
    EXPECT_EQ(fast.outputOffset(MediaDuration{1000}), fast.outputLength());
    EXPECT_EQ(frozen(30, 9).sourceOffset(MediaDuration{5}).microseconds, 0);
}

TEST(KeptStretch, AudibleUpToTheLimitWithRoundingSlack) {
    EXPECT_TRUE(playing(0, 10, 4.000000001).isAudible());
    EXPECT_FALSE(playing(0, 10, 4.01).isAudible());
    EXPECT_FALSE(frozen(0, 10).isAudible());
}

TEST(KeptStretch, JoinedMergesOnlySeamsThatResume) {
    KeptStretch right = playing(10, 20);
    right.resumes = true;
    KeptStretch faster = right;
    faster.rate = 2;
    KeptStretch apart = playing(15, 20);
    apart.resumes = true;
    // list, indices, count
    const std::tuple<std::vector<KeptStretch>, std::vector<std::size_t>, std::size_t> cases[] = {
        {{playing(0, 10), right}, {1}, 1},  {{playing(0, 10), right}, {}, 2},
        {{playing(0, 10), faster}, {1}, 2}, {{playing(0, 10), apart}, {1}, 2},
        {{playing(0, 10), playing(10, 20)}, {1}, 2},
    };
    for (const auto& [list, indices, count] : cases) EXPECT_EQ(joined(list, indices).size(), count);
    EXPECT_EQ(joined({playing(0, 10), right}, {1})[0].range.end, SourceTime{20});
}

TEST(KeptStretch, AFreezeGoesBeforeTheFirstStretchAfterItsFrame) {
    // Where a freeze goes in, and the starts of the stretches after it.
    const std::tuple<std::int64_t, std::vector<SourceTime>> cases[] = {
        {0, {SourceTime{0}, SourceTime{0}, SourceTime{10}}}, {10, {SourceTime{0}, SourceTime{10}, SourceTime{10}}},
        {5, {SourceTime{0}, SourceTime{5}, SourceTime{5}, SourceTime{10}}},
        {30, {SourceTime{0}, SourceTime{10}, SourceTime{30}}},
    };
    for (const auto& [at, expected] : cases) {
        std::vector<KeptStretch> stretches{playing(0, 10), playing(10, 20)};
        insertFreeze(stretches, KeptStretch::freeze(SourceTime{at}, MediaDuration{1}));
        std::vector<SourceTime> starts;
        for (const KeptStretch& s : stretches) starts.push_back(s.range.start);
        EXPECT_EQ(starts, expected) << at;
    }
    // A second freeze at the same frame lands after the first.
    std::vector<KeptStretch> stretches{playing(0, 10)};
    insertFreeze(stretches, KeptStretch::freeze(SourceTime{0}, MediaDuration{1}));
    insertFreeze(stretches, KeptStretch::freeze(SourceTime{0}, MediaDuration{2}));
    EXPECT_EQ(stretches[1].hold, MediaDuration{2});
}


} // namespace
} // namespace ovik
