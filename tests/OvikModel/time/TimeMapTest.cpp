#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "OvikModel/time/TimeMap.h"
#include "TimeSamples.h"

namespace ovik {
namespace {

using testing::frozen;
using testing::playing;

TimeMap mapOf(std::vector<KeptStretch> stretches, std::optional<SectionSpeed> speed = std::nullopt,
              bool framed = true) {
    auto map = TimeMap::make(stretches, speed, framed);
    EXPECT_TRUE(map);
    return map ? *map : *TimeMap::make(std::vector<KeptStretch>{});
}

OutputTime out(std::int64_t t) { return OutputTime{t}; }
SourceTime src(std::int64_t t) { return SourceTime{t}; }

TEST(TimeMap, RefusesBrokenStretches) {
    KeptStretch wideFreeze = frozen(10, 5);
    wideFreeze.range.end = SourceTime{20};
    const std::vector<std::vector<KeptStretch>> broken = {
        {playing(5, 5)}, {playing(0, 10, 0)}, {playing(0, 10, -1)},
        {playing(0, 10, std::numeric_limits<double>::quiet_NaN())},
        {playing(0, 10, std::numeric_limits<double>::infinity())}, {frozen(3, 0)}, {wideFreeze},
        {playing(0, 10), playing(5, 15)}, {playing(20, 30), playing(0, 10)},
    };
    for (const auto& stretches : broken) EXPECT_FALSE(TimeMap::make(stretches)) << stretches[0].range.description();
    // A freeze may stand at a join, and no stretches make an empty map.
    EXPECT_TRUE(TimeMap::make({playing(0, 10), frozen(10, 5), playing(10, 20)}));
    EXPECT_EQ(TimeMap::make(std::vector<KeptStretch>{})->outputDuration().microseconds, 0);
}

TEST(TimeMap, SourceMomentsAtTheEndsOfStretches) {
    const TimeMap gap = mapOf({playing(100, 200), playing(300, 400)});
    EXPECT_EQ(gap.output(src(400)), out(200));   // end of the last stretch: the film's end
    EXPECT_EQ(gap.output(src(200)), std::nullopt); // end of a middle stretch, cut after it
    EXPECT_EQ(gap.output(src(250)), std::nullopt);
    EXPECT_EQ(gap.outputOrCut(src(250)), out(100));
    EXPECT_EQ(gap.playedOutput(src(200)), out(100));
    const TimeMap joined = mapOf({playing(0, 100), playing(100, 200)});
    EXPECT_EQ(joined.output(src(100)), out(100));
    EXPECT_EQ(gap.source(out(-5)), src(100));
    EXPECT_EQ(gap.source(out(500)), src(400));
}

TEST(TimeMap, AFreezeAndAStretchAtOneFrame) {
    const TimeMap map = mapOf({playing(0, 100), frozen(100, 50), playing(100, 200)});
    EXPECT_EQ(map.output(src(100)), out(100)); // the freeze comes first in order
    EXPECT_EQ(map.outputOrCut(src(100)), out(150));
    for (std::int64_t t = 100; t < 150; t += 7) EXPECT_EQ(map.source(out(t)), src(100)) << t;
    EXPECT_EQ(map.outputRanges({src(100), src(101)}), (std::vector<OutputRange>{{out(100), out(151)}}));
}

TEST(TimeMap, OutAndBackIsTheIdentityInsideKeptRanges) {
    std::mt19937_64 random(7);
    for (const double rate : {0.5, 1.0, 1.5, 3.0, 8.0}) {
        const TimeMap map = mapOf({playing(1000, 50'000, rate), playing(60'000, 90'000, rate)});
        for (int i = 0; i < 400; ++i) {
            const auto t = out(std::int64_t(random() % std::uint64_t(map.outputDuration().microseconds)));
            const SourceTime s = map.source(t);
            // Slow stretches show every source moment; fast ones every output moment.
            if (rate <= 1) {
                EXPECT_EQ(map.source(*map.output(s)), s) << rate;
            }
            if (rate >= 1) {
                EXPECT_EQ(map.output(s), t) << rate;
            }
        }
        // Output time never runs backwards over a forward map.
        SourceTime previous = map.source(out(0));
        for (std::int64_t t = 0; t < map.outputDuration().microseconds; t += 97) {
            EXPECT_GE(map.source(out(t)), previous);
            previous = map.source(out(t));
        }
    }
}

TEST(TimeMap, RangesBothWays) {
    const TimeMap map = mapOf({playing(0, 1000), frozen(1000, 500), playing(1000, 3000, 2)});
    EXPECT_EQ(map.outputRanges({src(500), src(2000)}), (std::vector<OutputRange>{{out(500), out(2000)}}));
    EXPECT_EQ(map.sourceRanges({out(500), out(2000)}),
              (std::vector<SourceRange>{{src(500), src(1000)}, {src(1000), src(2000)}}));
    const auto under = map.stretches(OutputRange{out(900), out(1600)});
    ASSERT_EQ(under.size(), 3u);
    EXPECT_EQ(under[1], frozen(1000, 500));
    EXPECT_EQ(under[2].range, (SourceRange{src(1000), src(1200)}));
    EXPECT_EQ(under[2].rate, 2);
}

TEST(TimeMap, SteadySpeedCurveHalvesTheSection) {
    const SectionSpeed speed = SectionSpeed::make({{MediaDuration{}, 2, std::nullopt}}, {}, false);
    const TimeMap map = mapOf({playing(0, 1'000'000)}, speed);
    EXPECT_EQ(map.outputDuration().microseconds, 500'000);
    EXPECT_EQ(map.playedDuration().microseconds, 1'000'000);
    EXPECT_EQ(map.played(out(100'000)), out(200'000));
    EXPECT_DOUBLE_EQ(map.playedRate(out(100'000)), 2);
    EXPECT_EQ(map.firstOutput(out(200'000)), out(100'000));
    EXPECT_EQ(map.source(out(250'000)), src(500'000));
    EXPECT_EQ(map.keptRanges(), (std::vector<SourceRange>{{src(0), src(1'000'000)}}));
    EXPECT_TRUE(map.isRetimed());
    // Both ways a time between microseconds rounds half up: 3 µs at double speed is 1.5 µs.
    EXPECT_EQ(map.firstOutput(out(3)), out(2));
    const TimeMap slow = mapOf({playing(0, 1'000'000)}, SectionSpeed::make({{MediaDuration{}, 0.5, std::nullopt}}, {}, false));
    EXPECT_EQ(slow.played(out(3)), out(2));
}

TEST(TimeMap, ReversedSectionPlaysDownwards) {
    const TimeMap map = mapOf({playing(0, 1'000'000)}, SectionSpeed::make({}, {}, true), false);
    EXPECT_EQ(map.outputDuration().microseconds, 1'000'000);
    EXPECT_EQ(map.source(out(1)), src(999'999));
    EXPECT_EQ(map.played(out(250'000)), out(750'000));
    EXPECT_DOUBLE_EQ(map.playedRate(out(250'000)), -1);
    EXPECT_EQ(map.firstOutput(out(750'000)), out(250'000));
}

TEST(TimeMap, HoldStopsThePlayedTime) {
    const SectionSpeed speed = SectionSpeed::make({}, {{MediaDuration{500'000}, MediaDuration{1'000'000}}}, false);
    const TimeMap map = mapOf({playing(0, 1'000'000)}, speed, false);
    EXPECT_EQ(map.outputDuration().microseconds, 2'000'000);
    ASSERT_EQ(map.pieces().size(), 3u);
    EXPECT_EQ(map.pieces()[1].stretch, frozen(500'000, 1'000'000));
    EXPECT_EQ(map.played(out(1'200'000)), out(500'000));
    EXPECT_DOUBLE_EQ(map.playedRate(out(1'200'000)), 0);
    EXPECT_EQ(map.firstOutput(out(500'000)), out(500'000));
    EXPECT_EQ(map.firstOutput(out(750'000)), out(1'750'000));
    EXPECT_EQ(map.firstOutput(out(-3)), out(0));
}

TEST(TimeMap, RampedMapKeepsPlayedAndOutputInStep) {
    const SectionSpeed ramp = SectionSpeed::ramp(1, 4, MediaDuration{2'000'000}, std::nullopt);
    const TimeMap map = mapOf({playing(0, 1'000'000), playing(1'500'000, 3'000'000)}, ramp);
    EXPECT_EQ(map.playedDuration().microseconds, 2'500'000);
    EXPECT_LT(map.outputDuration(), map.playedDuration());
    // Played time rises with output time, and the first output of a played moment shows it.
    OutputTime previous;
    for (std::int64_t t = 0; t <= map.outputDuration().microseconds; t += 1009) {
        const OutputTime played = map.played(out(t));
        EXPECT_GE(played, previous);
        previous = played;
        EXPECT_LE(std::llabs((map.firstOutput(played) - out(t)).microseconds), 1) << t;
    }
    EXPECT_EQ(map.played(map.firstOutput(out(2'500'000))), out(2'500'000));
}

} // namespace
} // namespace ovik
