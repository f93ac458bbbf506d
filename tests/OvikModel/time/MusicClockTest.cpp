#include <gtest/gtest.h>

#include <cmath>

#include "OvikModel/time/MusicClock.h"

namespace ovik {
namespace {

using Beat = MusicClock::Beat;

// 120 bpm gliding down to 60 over two bars, then 60, then 90 from beat 16.
const MusicClock gliding(100, {{16, 90, false}, {0, 120, true}, {8, 60, false}, {4, 0, false}}, MusicBarGrid());

TEST(MusicClock, AGlideIsIntegratedExactly) {
    ASSERT_EQ(gliding.points().size(), 3u) << "a tempo of 0 bpm is dropped";
    EXPECT_DOUBLE_EQ(gliding.points()[0].slope, -7.5);
    EXPECT_NEAR(gliding.secondsAtBeat(8), 8 * std::log(2.0), 1e-12);
    EXPECT_NEAR(gliding.secondsAtBeat(16), 8 * std::log(2.0) + 8, 1e-12);
    EXPECT_DOUBLE_EQ(gliding.bpmAtBeat(4), 90);
    EXPECT_DOUBLE_EQ(gliding.bpmAtBeat(10), 60);
    EXPECT_DOUBLE_EQ(gliding.bpmAtBeat(20), 90);
}

TEST(MusicClock, BeatsAndSecondsAreInverses) {
    const MusicClock steady(120, {}, MusicBarGrid());
    for (const MusicClock* clock : {&gliding, &steady})
        for (double beat : {-2.0, 0.0, 3.0, 7.99, 8.0, 12.5, 16.0, 30.0})
            EXPECT_NEAR(clock->beatAtSecond(clock->secondsAtBeat(beat)), beat, 1e-9) << beat;
}

TEST(MusicClock, OneGlidingTempoHasNowhereToGlide) {
    const MusicClock clock(100, {{0, 120, true}}, MusicBarGrid());
    EXPECT_EQ(clock.points(), (std::vector<MusicClock::Point>{{0, 0, 120, 0}}));
    EXPECT_DOUBLE_EQ(clock.secondsAtBeat(4), 2);
}

TEST(MusicClock, WithoutTemposTheBaseTempoHolds) {
    const MusicClock clock(120, {{0, -10, false}}, MusicBarGrid());
    EXPECT_TRUE(clock.points().empty());
    EXPECT_DOUBLE_EQ(clock.secondsAtBar(3), 6);
    EXPECT_DOUBLE_EQ(clock.bpmAtBeat(9), 120);
    EXPECT_DOUBLE_EQ(clock.beatAtSecond(1.25), 2.5);
}

TEST(MusicClock, NearestBarKeepsTheEarlierOnATie) {
    // Bars of 2 s at 120 bpm.
    const MusicClock clock(120, {}, MusicBarGrid());
    const std::pair<double, int> cases[] = {{0.99, 0}, {1.0, 0}, {1.01, 1}, {2.5, 1}, {3.0, 1}, {3.2, 2}};
    for (const auto& [seconds, bar] : cases) EXPECT_EQ(clock.nearestBar(seconds), bar) << seconds;
}

TEST(MusicClock, BeatsFromMidBarStartAtTheNextBeat) {
    const MusicClock clock(120, {}, MusicBarGrid());
    EXPECT_EQ(clock.beats(0.75, 2.25),
              (std::vector<Beat>{{0.25, false}, {0.75, false}, {1.25, true}, {1.75, false}, {2.25, false}}));
    EXPECT_EQ(clock.beats(2, 0.6), (std::vector<Beat>{{0, true}, {0.5, false}}));
    // A beat a hair before the offset counts as on it.
    EXPECT_EQ(clock.beats(0.5 + 5e-10, 0.1), (std::vector<Beat>{{0, false}}));
}

TEST(MusicClock, SixEightBeatsAreHalfAQuarterApart) {
    const MusicClock clock(120, {}, MusicBarGrid(MusicMeterMap({MusicMeterMap::Change{0, {6, 8}}})));
    const std::vector<Beat> beats = clock.beats(0, 3);
    ASSERT_EQ(beats.size(), 13u);
    for (std::size_t i = 0; i < beats.size(); ++i) {
        EXPECT_NEAR(beats[i].time, 0.25 * double(i), 1e-12) << i;
        EXPECT_EQ(beats[i].isBar, i % 6 == 0) << i;
    }
    EXPECT_DOUBLE_EQ(clock.secondsAtBar(2), 3);
}

} // namespace
} // namespace ovik
