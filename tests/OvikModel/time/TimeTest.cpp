#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <limits>
#include <random>
#include <regex>
#include <string>
#include <tuple>

#include "OvikL10n/L10n.h"
#include "OvikModel/time/Clock.h"
#include "OvikModel/time/DraftRetiming.h"
#include "OvikModel/time/DraftTimeline.h"
#include "OvikModel/time/DraftTiming.h"
#include "OvikModel/time/Freeze.h"
#include "OvikModel/time/MusicClock.h"
#include "OvikModel/time/SpanClock.h"
#include "OvikModel/time/Speed.h"
#include "OvikModel/time/SpeedEdit.h"
#include "OvikModel/time/StageTiming.h"
#include "OvikModel/time/TimeMap.h"
#include "OvikModel/values/DecodingFailure.h"
#include "TimeSamples.h"

namespace ovik {
namespace {

using Kind = DecodingError::Kind;
using testing::expectRefused;

constexpr auto none = std::nullopt;

Clock made(double rate, ClockLoop loop, double offset = 0, bool bounce = false, bool hold = false) {
    Clock clock;
    clock.rate = rate;
    clock.loop = loop;
    clock.offset = MediaDuration::fromSeconds(offset);
    clock.bounce = bounce;
    clock.hold = hold;
    return clock;
}

Clock frozenAt(double seconds) {
    Clock clock;
    clock.freeze = MediaDuration::fromSeconds(seconds);
    return clock;
}

Clock curved(std::vector<ClockKey> keys, bool hold = false) {
    Clock clock;
    clock.curve = std::move(keys);
    clock.hold = hold;
    return clock;
}

const ClockLoop once = ClockLoop::makeCount(1);
const ClockLoop forever = ClockLoop::makeForever();
ClockLoop times(std::int64_t count) { return ClockLoop::makeCount(count); }

TEST(Clock, OwnTimeFollowsRateLoopOffsetAndEnd) {
    // What, the clock, the outer moment, the length of the thing, and its own moment then.
    const std::tuple<const char*, Clock, double, std::optional<double>, double> cases[] = {
        {"plain on its end", Clock::plain(), 4, 4, 4},
        {"plain past its end", Clock::plain(), 4.5, 4, 0}, {"before the start", Clock::plain(), -1, 4, 0},
        {"hold past the end", made(1, once, 0, false, true), 10, 4, 4},
        {"twice, second pass", made(1, times(2)), 5, 4, 1},
        {"twice bouncing, second pass backward", made(1, times(2), 0, true), 5, 4, 3},
        {"2 bouncing passes rest at start", made(1, times(2), 1, true, true), 20, 5, 1},
        {"3 bouncing passes rest at the end", made(1, times(3), 1, true, true), 20, 5, 5},
        {"2 bouncing passes, on the end", made(1, times(2), 1, true), 8, 5, 1},
        {"2 bouncing passes, past the end", made(1, times(2), 1, true), 8.5, 5, 0},
        {"freeze stands without hold", frozenAt(2), 10, 4, 2}, {"offset", made(1, once, 1), 2.5, 4, 3.5},
        {"offset, before outer start", made(1, once, 1), -1, 4, 1}, {"offset, pass over", made(1, once, 1), 3.5, 4, 0},
        {"offset at the length starts at 0", made(1, once, 4), 1, 4, 1},
        {"offset past the length starts at 0", made(1, once, 5), 1, 4, 1}, {"rate", made(2, once), 1, 4, 2},
        {"forever", made(1, forever), 9, 4, 1}, {"no length: no end, loop ignored", made(2, times(3), 1), 10, none, 21},
        {"one key, before it", curved({{3, 1.5}}), 0, 4, 1.5}, {"one key, on it", curved({{3, 1.5}}), 3, 4, 1.5},
        {"one key, past it", curved({{3, 1.5}}), 4, 4, 0},
        {"one key, past it, held", curved({{3, 1.5}}, true), 4, 4, 1.5},
        {"curve between keys", curved({{0, 0}, {2, 4}, {4, 4}}), 1, none, 2},
        {"curve limited to the length", curved({{0, 0}, {2, 4}, {4, 4}}), 1.5, 2.5, 2.5},
        {"curve limited to 0", curved({{0, -3}, {2, 1}}), 0, none, 0},
    };
    for (const auto& [what, clock, at, length, own] : cases) EXPECT_NEAR(clock.own(at, length), own, 1e-12) << what;
}

TEST(Clock, NaturalLengthIsWhatItPlaysOnItsOwn) {
    Clock held = Clock::plain();
    held.hold = true;
    const std::tuple<const char*, Clock, std::optional<double>, double> cases[] = {
        {"plain", Clock::plain(), 4, 4}, {"three passes at double rate from 1", made(2, times(3), 1), 4, 4.5},
        {"offset past the length", made(1, times(2), 6), 4, 8}, {"count 0 plays once", made(1, times(0)), 4, 4},
        {"no length", Clock::plain(), none, 0}, {"forever", made(1, forever), 4, 0}, {"hold", held, 4, 0},
        {"freeze", frozenAt(1), 4, 0}, {"curve", curved({{0, 0}, {2.5, 1}}), 10, 2.5},
    };
    for (const auto& [what, clock, length, natural] : cases) EXPECT_DOUBLE_EQ(clock.natural(length), natural) << what;
}

TEST(Clock, RunsFollowStraightStretchesAndJumps) {
    // Plays to its end at 2 s, then rests at 0: the fall makes a run of one step.
    EXPECT_EQ(Clock::plain().runs(4, 2, 0.5), (std::vector<ClockRun>{{0, 2, 0, 2}, {2, 2.5, 2, 2}, {2.5, 4, 0, 0}}));
    // A loop that wraps between samples: the step of the wrap plays on to the end.
    EXPECT_EQ(made(1, forever).runs(1.5, 1.2, 0.5), (std::vector<ClockRun>{{0, 1, 0, 1}, {1, 1.5, 1, 1.2}}));
    // Without a length there is no end: one run.
    EXPECT_EQ(made(2, once).runs(10, none, 0.5), (std::vector<ClockRun>{{0, 10, 0, 20}}));
}

TEST(Clock, RunsStopAtExactlyThreeThousand) {
    // Wrapping every step of 1 s in a loop of 1.5 s: every step is a run of its own.
    const Clock clock = made(1, forever);
    for (const auto& [steps, runs] : {std::pair{2999, 2999u}, {3000, 3000u}, {3001, 3000u}})
        EXPECT_EQ(clock.runs(steps, 1.5, 1).size(), runs) << steps;
}

TEST(Clock, RunsNeedAPositiveSpanAndStep) {
    const double infinity = std::numeric_limits<double>::infinity();
    const std::pair<double, double> refused[] = {{0, 1}, {-1, 1}, {infinity, 1},    {std::nan(""), 1},
                                                 {4, 0}, {4, -1}, {4, std::nan("")}};
    for (const auto& [over, step] : refused)
        EXPECT_TRUE(Clock::plain().runs(over, 4, step).empty()) << over << " " << step;
}

TEST(Clock, ProblemTellsTheFirstFailure) {
    L10n::LanguageOverride chinese("zh-Hans");
    const char* rate = "时钟的速度要在 0.1 到 16 倍之间。";
    const char* loop = "循环的次数要在 1 到 1000 之间；要一直循环，用“一直”。";
    const char* times = "时间曲线的时刻都要是不负的秒数。";
    Clock badEverything = made(0.05, ClockLoop::makeCount(0), -1);
    badEverything.freeze = MediaDuration{-1};
    Clock negativeFreeze = frozenAt(0);
    negativeFreeze.freeze = MediaDuration{-1};
    const std::tuple<const char*, Clock, std::optional<std::string>> cases[] = {
        {"plain", Clock::plain(), none}, {"limits of rate and count", made(16, ClockLoop::makeCount(1000)), none},
        {"slowest rate", made(0.1, forever), none}, {"everything wrong", badEverything, rate},
        {"rate not a number", made(std::nan(""), once), rate}, {"too fast", made(16.01, once), rate},
        {"no passes", made(1, ClockLoop::makeCount(0), -1), loop},
        {"too many passes", made(1, ClockLoop::makeCount(1001)), loop},
        {"negative offset", made(1, once, -0.5), "从哪开始不能是负的。"}, {"negative freeze", negativeFreeze, "定格的时刻不能是负的。"},
        {"empty curve", curved({}), "时间曲线至少要有一个关键帧。"},
        {"negative own before disorder", curved({{2, -1}, {1, 0}}), times},
        {"time not a number", curved({{std::nan(""), 0}}), times},
        {"repeated time", curved({{0, 0}, {1, 1}, {1, 2}}), "时间曲线的关键帧要按时间从早到晚排，不能重复。"},
    };
    for (const auto& [what, clock, problem] : cases) EXPECT_EQ(clock.problem(), problem) << what;
}

TEST(Clock, SummaryWordsTheSettingsInOrder) {
    L10n::LanguageOverride chinese("zh-Hans");
    EXPECT_EQ(Clock::plain().summary(), "1×");
    Clock everything = made(1.5, times(3), 1.25, true, true);
    everything.freeze = MediaDuration::fromSeconds(2);
    everything.curve = std::vector<ClockKey>{{0, 0}};
    EXPECT_EQ(everything.summary(), "1.5×、循环 3 次、从 1.25 秒开始、来回、停在结尾、2.00 秒定格、时间曲线");
    EXPECT_EQ(made(0.5, forever).summary(), "0.5×、一直循环");
}

TEST(Clock, JSONLeavesDefaultsOutAndReadsLoops) {
    const char* everything = R"({"bounce":true,"curve":[{"at":0,"own":1.5}],"freeze":2000000,)"
                             R"("hold":true,"loop":2,"offset":500000,"rate":0.5})";
    const std::pair<const char*, const char*> cases[] = {
        {"{}", "{}"}, {R"({"rate":1,"loop":1,"offset":0,"bounce":false,"hold":false,"freeze":null})", "{}"},
        {R"({"loop":"forever"})", R"({"loop":"forever"})"}, {R"({"loop":3})", R"({"loop":3})"},
        {everything, everything},
    };
    for (const auto& [read, written] : cases)
        EXPECT_EQ(encodeJSON(decodeJSON<Clock>(std::string_view(read))).compact(), written);
}

TEST(Clock, JSONRefusesLoopsThatAreNeitherCountNorForever) {
    L10n::LanguageOverride chinese("zh-Hans");
    const testing::DecodingFailure failures[] = {
        {R"({"loop":"twice"})", Kind::dataCorrupted, "loop", "循环要是次数或 \"forever\"。"},
        {R"({"loop":"Forever"})", Kind::dataCorrupted, "loop", "循环要是次数或 \"forever\"。"},
        {R"({"loop":1.5})", Kind::dataCorrupted, "loop"},
        {R"({"curve":[{"at":1}]})", Kind::keyNotFound, "curve[0].own"},
    };
    for (const auto& failure : failures) expectRefused<Clock>(failure);
}

using Beat = MusicClock::Beat;

// 120 bpm gliding down to 60 over two bars, then 60, then 90 from beat 16.
const MusicClock gliding(100, {{16, 90, false}, {0, 120, true}, {8, 60, false}, {4, 0, false}}, MusicBarGrid());

TEST(MusicClock, AGlideIsIntegratedExactly) {
    ASSERT_EQ(gliding.points().size(), 3u) << "a tempo of 0 bpm is dropped";
    EXPECT_DOUBLE_EQ(gliding.points()[0].slope, -7.5);
    EXPECT_NEAR(gliding.secondsAtBeat(8), 8 * std::log(2.0), 1e-12);
    EXPECT_NEAR(gliding.secondsAtBeat(16), 8 * std::log(2.0) + 8, 1e-12);
    EXPECT_DOUBLE_EQ(gliding.bpmAtBeat(4), 90);
    EXPECT_DOUBLE_EQ(gliding.bpmAtBeat(20), 90);
}

TEST(MusicClock, BeatsAndSecondsAreInverses) {
    const MusicClock steady(120, {}, MusicBarGrid());
    for (const MusicClock* clock : {&gliding, &steady})
        for (double beat : {-2.0, 0.0, 3.0, 7.99, 8.0, 12.5, 16.0, 30.0})
            EXPECT_NEAR(clock->beatAtSecond(clock->secondsAtBeat(beat)), beat, 1e-9) << beat;
}

TEST(MusicClock, OneGlidingTempoHasNowhereToGlideAndNoneHoldsTheBase) {
    const MusicClock clock(100, {{0, 120, true}}, MusicBarGrid());
    EXPECT_EQ(clock.points(), (std::vector<MusicClock::Point>{{0, 0, 120, 0}}));
    EXPECT_DOUBLE_EQ(clock.secondsAtBeat(4), 2);
    // Without a tempo above 0 the base tempo holds.
    const MusicClock steady(120, {{0, -10, false}}, MusicBarGrid());
    EXPECT_TRUE(steady.points().empty());
    EXPECT_DOUBLE_EQ(steady.secondsAtBar(3), 6);
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
    EXPECT_EQ(clock.beats(0, 0.5), (std::vector<Beat>{{0, true}, {0.25, false}, {0.5, false}}));
    EXPECT_DOUBLE_EQ(clock.secondsAtBar(2), 3);
}

// What the stopwatch prints with OVIK_TIMING_STDOUT set to `value` (or unset).
std::string printed(const StageTiming& timing, const char* value) {
    value ? setenv("OVIK_TIMING_STDOUT", value, 1) : unsetenv("OVIK_TIMING_STDOUT");
    std::FILE* file = std::tmpfile();
    timing.end(file);
    std::rewind(file);
    std::string text;
    for (int c; (c = std::fgetc(file)) != EOF;) text.push_back(char(c));
    std::fclose(file);
    unsetenv("OVIK_TIMING_STDOUT");
    return text;
}

TEST(StageTiming, PrintsOnlyWhenAskedByTheEnvironment) {
    const StageTiming timing("draft load");
    EXPECT_TRUE(std::regex_match(printed(timing, "1"), std::regex("TIMING draft load [0-9]+\\.[0-9]{3} ms\n")));
    for (const char* value : {static_cast<const char*>(nullptr), "0", "true", "11", ""})
        EXPECT_EQ(printed(timing, value), "") << (value ? value : "unset");
}

using namespace ovik::testing;

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
    EXPECT_EQ(mapOf({playing(0, 100), playing(100, 200)}).output(src(100)), out(100));
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
    EXPECT_EQ(under[2], playing(1000, 1200, 2));
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
    EXPECT_TRUE(map.isRetimed());
    // Both ways a time between microseconds rounds half up: 3 µs at double speed is 1.5 µs.
    EXPECT_EQ(map.firstOutput(out(3)), out(2));
    const TimeMap slow = mapOf({playing(0, 1'000'000)}, SectionSpeed::make({{MediaDuration{}, 0.5, std::nullopt}}, {}, false));
    EXPECT_EQ(slow.played(out(3)), out(2));
}

TEST(TimeMap, ReversedSectionPlaysDownwards) {
    const TimeMap map = mapOf({playing(0, 1'000'000)}, SectionSpeed::make({}, {}, true), false);
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

// A: 4 s of recording; B: a 2 s still coming in over a 3 s transition (limited to 1 s, half
// of B); C: a 1 s still after a plain cut that stores a length.
std::vector<Section> threeSections() {
    Section a = keptSection(1, {playing(0, 4'000'000)});
    a.transitionIn = transition(500'000, 500'000); // the first section's is never played
    Section b = stillSection(2, 2'000'000);
    b.transitionIn = transition(3'000'000, 3'000'000);
    Section c = stillSection(3, 1'000'000);
    c.transitionIn = Transition{MediaDuration{500'000}, {}, {}, false, std::nullopt};
    return {a, b, c};
}

TEST(DraftTimeline, TransitionsAreLimitedAndLengthsAddUp) {
    const auto line = DraftTimeline::make(threeSections());
    ASSERT_TRUE(line);
    const auto& entries = line->entries();
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_FALSE(entries[0].transitionIn);
    ASSERT_TRUE(entries[1].transitionIn);
    EXPECT_EQ(entries[1].transitionIn->duration.microseconds, 1'000'000);
    // The transition's action is stretched with it.
    EXPECT_EQ(entries[1].transitionIn->outgoing[0].range.as<ActionRange::opening>().length.microseconds, 1'000'000);
    EXPECT_EQ(entries[1].output, (OutputRange{out(3'000'000), out(5'000'000)}));
    EXPECT_FALSE(entries[2].transitionIn);
    EXPECT_EQ(line->duration().microseconds, 4'000'000 + 2'000'000 + 1'000'000 - 1'000'000);
    // Half of an odd length is cut down to the microsecond.
    Section odd = stillSection(2, 2'000'000);
    odd.transitionIn = transition(3'000'000);
    const auto cut = DraftTimeline::make({keptSection(1, {playing(0, 1'000'001)}), odd});
    EXPECT_EQ(cut->entries()[1].transitionIn->duration.microseconds, 500'000);
}

TEST(DraftTimeline, VisibleSectionsAndTheirPhases) {
    const auto line = *DraftTimeline::make(threeSections());
    const auto overlap = line.visible(out(3'500'000));
    ASSERT_EQ(overlap.size(), 2u);
    EXPECT_EQ(overlap[0].section, sectionID(1));
    EXPECT_FALSE(overlap[0].transition->isIncoming);
    EXPECT_DOUBLE_EQ(overlap[0].transition->progress, 0.5);
    EXPECT_TRUE(overlap[1].transition->isIncoming);
    EXPECT_EQ(overlap[1].time, SourceTime{500'000});
    // A plain boundary shows the later section alone; the film's end still shows the last.
    ASSERT_EQ(line.visible(out(5'000'000)).size(), 1u);
    EXPECT_EQ(line.visible(out(5'000'000))[0].section, sectionID(3));
    EXPECT_EQ(line.visible(out(99'000'000))[0].time, SourceTime{1'000'000});
}

TEST(DraftTimeline, AnchoredMomentsRoundTrip) {
    const auto line = *DraftTimeline::make(threeSections());
    EXPECT_EQ(line.anchored(out(3'500'000))->section, sectionID(2)); // the later section wins
    for (std::int64_t t = 0; t < 6'000'000; t += 250'001) {
        const AnchoredTime anchored = *line.anchored(out(t));
        EXPECT_EQ(line.output(anchored), out(t)) << t;
        EXPECT_EQ(line.source(out(t), anchored.section), anchored.time);
    }
    EXPECT_EQ(line.output(AnchoredTime{sectionID(3), SourceTime{2'000'000}}), std::nullopt);
    EXPECT_EQ(line.outputRanges({SourceTime{0}, SourceTime{500'000}}, sectionID(2)),
              (std::vector<OutputRange>{{out(3'000'000), out(3'500'000)}}));
    const auto parts = line.sourceRanges({out(3'900'000), out(4'100'000)});
    ASSERT_EQ(parts.size(), 2u);
    EXPECT_EQ(parts[1].range, (SourceRange{SourceTime{900'000}, SourceTime{1'100'000}}));
}

TEST(DraftTimeline, WholeDraftEntryAndBrokenSections) {
    const auto line = *DraftTimeline::make(threeSections());
    const auto* whole = line.entry(SectionID::wholeDraft());
    ASSERT_TRUE(whole);
    EXPECT_EQ(whole->map.source(out(5'500'000)), SourceTime{5'500'000});
    EXPECT_EQ(line.entry(sectionID(9)), nullptr);
    EXPECT_FALSE(DraftTimeline::make({keptSection(1, {playing(0, 10)}), keptSection(2, {playing(9, 3)})}));
    const auto empty = DraftTimeline::make({});
    EXPECT_TRUE(empty->visible(out(0)).empty());
    EXPECT_FALSE(empty->anchored(out(0)));
}

// A recording section at double speed through its curve, then a 1 s still.
Draft spedDraft() {
    Section fast = keptSection(1, {playing(0, 4'000'000)});
    fast.speed = SectionSpeed::make({{MediaDuration{}, 2, std::nullopt}}, {}, false);
    return draftOf({fast, stillSection(2, 1'000'000)});
}

TEST(DraftTiming, TimelineIsMadeOncePerDraftValue) {
    const Draft draft = spedDraft();
    const auto first = timeline(draft);
    ASSERT_TRUE(first);
    EXPECT_EQ(timeline(draft).get(), first.get());
    EXPECT_EQ(first->duration().microseconds, 3'000'000);
    Draft broken = draft;
    broken.sections = CowList<Section>({keptSection(1, {playing(5, 5)})});
    broken.memo = DraftMemo();
    EXPECT_EQ(timeline(broken), nullptr);
}

TEST(DraftTiming, PlayedMomentUndoesTheSpeedCurve) {
    const Draft draft = spedDraft();
    EXPECT_EQ(timeline(played(draft))->duration().microseconds, 5'000'000);
    const auto moment = playedMoment(draft, out(1'000'000));
    ASSERT_TRUE(moment);
    EXPECT_EQ(std::pair(moment->output, moment->rate), std::pair(out(2'000'000), 2.0));
    EXPECT_EQ(moment->sources.at(sectionID(1)), SourceTime{2'000'000});
    // The still after it is shifted by what the curve saved.
    EXPECT_EQ(playedMoment(draft, out(2'500'000))->output, out(4'500'000));
    EXPECT_FALSE(playedMoment(draftOf({stillSection(2, 1'000'000)}), out(0)));
}

TEST(DraftTiming, FilmClockIsTheInverseOfThePlayedMoment) {
    const Draft draft = spedDraft();
    const SpanClock clock(draft, out(123), out(456), true);
    EXPECT_EQ(clock.film(out(456)), out(123)); // the frame at hand answers itself
    for (std::int64_t t = 0; t <= 3'000'000; t += 100'003)
        EXPECT_EQ(clock.film(playedMoment(draft, out(t))->output), out(t)) << t;
    EXPECT_EQ(clock.steady().film(out(4'500'000)), out(2'500'000));
    // A draft without timelines leaves moments as they are.
    const SpanClock plain(draftOf({}), out(0), out(0), false);
    EXPECT_EQ(plain.film(out(77)), out(77));
}

TEST(DraftTiming, RatesOfRecordingStretches) {
    KeptStretch slow = playing(1'000'000, 2'000'000, 0.5);
    const Draft draft = draftOf({keptSection(1, {playing(0, 1'000'000, 2), slow}), stillSection(2, 1'000'000)});
    EXPECT_FALSE(recordingSectionIndex(draft, sectionID(2)));
    EXPECT_DOUBLE_EQ(rate(draft, SourceRange{SourceTime{1'000'000}, SourceTime{2'000'000}}, sectionID(1)), 0.5);
    EXPECT_DOUBLE_EQ(rate(draft, SourceRange{SourceTime{0}, SourceTime{5}}, sectionID(1)), 1);
    // The fast stretch lasts 0.5 s of output, the slow one 2 s.
    EXPECT_EQ(rate(draft, OutputRange{out(100'000), out(400'000)}), 2);
    EXPECT_EQ(rate(draft, OutputRange{out(0), out(1'000'000)}), std::nullopt);
    // A sliver of the next stretch at the edge of the range is rounding, not a second rate.
    EXPECT_EQ(rate(draft, OutputRange{out(0), out(510'000)}), 2);
    EXPECT_EQ(rate(draft, OutputRange{out(2'600'000), out(2'700'000)}), std::nullopt);
}

// Three seconds of recording, then a 1 s still.
Draft recordingDraft(std::vector<KeptStretch> stretches = {playing(0, 3'000'000)}) {
    return draftOf({keptSection(1, std::move(stretches)), stillSection(2, 1'000'000)});
}

const std::vector<KeptStretch>& stretchesOf(const Draft& draft) {
    return draft.sections[0].length.as<Section::Length::kept>().value;
}

SourceRange src(std::int64_t a, std::int64_t b) { return {SourceTime{a}, SourceTime{b}}; }
OutputRange out(std::int64_t a, std::int64_t b) { return {OutputTime{a}, OutputTime{b}}; }

// Runs an edit that must be refused for `reason`, and checks the draft did not change.
void expectRefused(Draft draft, const std::function<void(Draft&)>& edit, TimeEditError::Reason reason) {
    const std::string before = encodeJSON(draft).compact();
    try {
        edit(draft);
        ADD_FAILURE() << "not refused";
    } catch (const TimeEditError& error) {
        EXPECT_EQ(error.reason(), reason);
        EXPECT_FALSE(std::string(error.what()).empty());
    }
    EXPECT_EQ(encodeJSON(draft).compact(), before);
}

SectionSpeed speedOf(std::vector<SectionSpeed::Key> keys, std::vector<SectionSpeed::Hold> holds = {}, bool reversed = false) {
    return SectionSpeed{std::move(keys), std::move(holds), reversed};
}

TEST(DraftRetiming, SectionSpeedIsCheckedThenStoredClamped) {
    using K = SectionSpeed::Key;
    using H = SectionSpeed::Hold;
    const MediaDuration s{1'000'000};
    // Section, speed, and why it is refused.
    const std::tuple<SectionID, SectionSpeed, TimeEditError::Reason> refused[] = {
        {sectionID(9), speedOf({K{{}, 2, {}}}), TimelineEditError::nothingThere},
        {sectionID(1), speedOf({}, {}, true), SectionSpeedError::cannotReverse},
        {sectionID(1), speedOf({K{{}, 0.01, {}}}), SectionSpeedError::outOfRange},
        {sectionID(1), speedOf({K{MediaDuration{3'000'001}, 2, {}}}), SectionSpeedError::outOfRange},
        {sectionID(1), speedOf({}, {H{s, MediaDuration{10'000}}}), SectionSpeedError::outOfRange},
        {sectionID(1), speedOf({}, {H{MediaDuration{-1}, s}}), SectionSpeedError::outOfRange},
    };
    for (const auto& [section, speed, reason] : refused)
        expectRefused(recordingDraft(), [&](Draft& d) { setSectionSpeed(d, speed, section); }, reason);

    Draft draft = recordingDraft();
    setSectionSpeed(draft, speedOf({K{s, 1.23456, {}}, K{{}, 2, {}}}), sectionID(1));
    ASSERT_TRUE(sectionSpeed(draft, sectionID(1)));
    EXPECT_EQ(sectionSpeed(draft, sectionID(1))->keys[1].rate, 1.235);
    EXPECT_LT(timeline(draft)->duration().microseconds, 4'000'000);
    // A still may play backwards; a speed that changes nothing clears the curve.
    setSectionSpeed(draft, speedOf({}, {}, true), sectionID(2));
    setSectionSpeed(draft, speedOf({K{{}, 1, {}}}), sectionID(1));
    EXPECT_FALSE(sectionSpeed(draft, sectionID(1)));
    EXPECT_TRUE(sectionSpeed(draft, sectionID(2)));
}

TEST(DraftRetiming, RateOverARangeSplitsTheStretch) {
    Draft draft = recordingDraft();
    const Draft before = draft;
    const auto line = timeline(draft);
    EXPECT_EQ(setRate(draft, 2, out(1'000'000, 2'000'000)), out(1'000'000, 1'500'000));
    const auto& stretches = stretchesOf(draft);
    ASSERT_EQ(stretches.size(), 3u);
    EXPECT_EQ(stretches[1], playing(1'000'000, 2'000'000, 2));
    EXPECT_FALSE(stretches[2].resumes);
    EXPECT_EQ(timeline(draft)->duration().microseconds, 3'500'000);
    // The copy taken before keeps its own timeline.
    EXPECT_EQ(timeline(before).get(), line.get());
    // An end within a frame of the stretch's edge (16,666 µs) takes the edge.
    for (const auto& [start, count] : {std::pair{16'666, 1u}, {16'667, 2u}}) {
        Draft snapped = recordingDraft();
        setRate(snapped, 0.25, out(start, 3'000'000));
        EXPECT_EQ(stretchesOf(snapped).size(), count) << start;
        EXPECT_EQ(stretchesOf(snapped).back().rate, 0.5) << start;
    }
    // Of several ranges under the output range, one of a frame or less is the sliver of a join.
    Draft two = recordingDraft({playing(0, 1'000'000), playing(2'000'000, 3'000'000)});
    setRate(two, 2, out(500'000, 1'016'666));
    EXPECT_EQ(stretchesOf(two).size(), 3u);
    expectRefused(recordingDraft(), [](Draft& d) { setRate(d, 2, out(3'200'000, 3'500'000)); },
                  TimelineEditError::nothingThere);
}

TEST(DraftRetiming, RateOfAClip) {
    Draft draft = recordingDraft({playing(0, 1'000'000), playing(2'000'000, 3'000'000)});
    setRate(draft, 3.456, src(2'000'000, 3'000'000));
    EXPECT_EQ(stretchesOf(draft)[1].rate, 3.46);
    expectRefused(recordingDraft(), [](Draft& d) { setRate(d, 2, src(0, 1'000'000)); }, TimelineEditError::nothingThere);
}

TEST(DraftRetiming, FreezeSplitsAndRemovingRejoins) {
    Draft draft = recordingDraft();
    const AnchoredTime frame = freeze(draft, OutputTime{1'500'000}, MediaDuration{100'000'000});
    EXPECT_EQ(frame, (AnchoredTime{sectionID(1), SourceTime{1'500'000}}));
    ASSERT_EQ(stretchesOf(draft).size(), 3u);
    EXPECT_TRUE(stretchesOf(draft)[2].resumes);
    EXPECT_EQ(allFreezes(draft), (std::vector<FreezeAt>{{frame, MediaDuration{30'000'000}}}));
    expectRefused(draft, [](Draft& d) { freeze(d, OutputTime{10'000'000}, MediaDuration{1'000'000}); },
                  RetimeError::alreadyFrozen);
    setFreezeLength(draft, MediaDuration{50'000}, frame);
    EXPECT_EQ(freeze(draft, frame)->length.microseconds, 100'000);
    removeFreeze(draft, frame);
    EXPECT_EQ(stretchesOf(draft), stretchesOf(recordingDraft()));
    expectRefused(draft, [&](Draft& d) { removeFreeze(d, frame); }, TimelineEditError::nothingThere);
    // Within a frame of a stretch's start the freeze takes the start; a still can't freeze.
    for (const auto& [at, frame] : {std::pair{16'666, 0}, {16'667, 16'667}}) {
        Draft early = recordingDraft();
        EXPECT_EQ(freeze(early, OutputTime{at}, Freeze::defaultLength).time, SourceTime{frame}) << at;
    }
    expectRefused(recordingDraft(), [](Draft& d) { freeze(d, OutputTime{3'500'000}, MediaDuration{1}); },
                  RetimeError::notARecording);
}

TEST(DraftRetiming, CutsKeepNoSlivers) {
    // The range cut, and the ranges kept.
    const std::tuple<SourceRange, std::vector<SourceRange>> cases[] = {
        {src(1'000'000, 2'000'000), {src(0, 1'000'000), src(2'000'000, 3'000'000)}},
        {src(1'000'000, 2'983'334), {src(0, 1'000'000)}},
        {src(1'000'000, 2'983'333), {src(0, 1'000'000), src(2'983'333, 3'000'000)}},
        {src(2'990'000, 1'000'000), {src(0, 1'000'000)}},
        {src(100'000, 3'000'000), {src(0, 100'000)}}, // what is left may be as short as 0.1 s
        {src(5'000, 500'000), {src(500'000, 3'000'000)}},
    };
    for (const auto& [removed, kept] : cases) {
        Draft draft = recordingDraft();
        cut(draft, removed);
        EXPECT_EQ(playedRanges(stretchesOf(draft)), kept) << removed.description();
    }
    expectRefused(recordingDraft(), [](Draft& d) { cut(d, src(10'000, 2'950'000)); },
                  TimelineEditError::wouldRemoveEverything);
    expectRefused(recordingDraft(), [](Draft& d) { cut(d, src(4'000'000, 5'000'000)); }, TimelineEditError::nothingThere);
}

TEST(DraftRetiming, CutKeepsFreezesOutsideIt) {
    Draft draft = recordingDraft({playing(0, 1'000'000), frozen(1'000'000, 500'000), playing(1'000'000, 1'500'000),
                                  frozen(1'500'000, 500'000), playing(1'500'000, 3'000'000)});
    cut(draft, src(1'200'000, 1'800'000));
    EXPECT_EQ(freezes(stretchesOf(draft)), (std::vector<KeptStretch>{frozen(1'000'000, 500'000)}));
}

TEST(DraftRetiming, CutOfOutputShortensFreezesUnderIt) {
    // Output: [0, 1 s) plays, [1 s, 3 s) is the freeze, [3 s, 5 s) plays on.
    Draft draft = recordingDraft({playing(0, 1'000'000), frozen(1'000'000, 2'000'000), playing(1'000'000, 3'000'000)});
    cut(draft, out(2'500'000, 3'500'000));
    EXPECT_EQ(freezes(stretchesOf(draft)), (std::vector<KeptStretch>{frozen(1'000'000, 1'500'000)}));
    EXPECT_EQ(playedRanges(stretchesOf(draft)), (std::vector<SourceRange>{src(0, 1'000'000), src(1'500'000, 3'000'000)}));
    Draft stillOnly = draftOf({stillSection(2, 1'000'000)});
    stillOnly.media = CowList<Media>({draft.media[1]});
    expectRefused(stillOnly, [](Draft& d) { cut(d, out(0, 500'000)); }, TimelineEditError::nothingThere);
}

TEST(DraftRetiming, SpeedEditsApplyAndNameThemselves) {
    Draft draft = recordingDraft();
    const SpeedEdit freezing{{}, SpeedEdit::freeze{OutputTime{1'000'000}, MediaDuration{2'000'000}}};
    freezing.apply(draft);
    const SpeedEdit
 lengthen{{}, SpeedEdit::setFreezeLength{allFreezes(draft)[0].at, MediaDuration{3'000'000}}};
    lengthen.apply(draft);
    EXPECT_EQ(allFreezes(draft)[0].length.microseconds, 3'000'000);
    EXPECT_NE(lengthen.undoName(), freezing.undoName());
}

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(Speed, ClampedKeepsTheRangeAndRoundsToHundredths) {
    const std::pair<double, double> speeds[] = {{nan, 1},    {0.2, 0.5},    {0.5, 0.5}, {1.234, 1.23},
                                                {1.125, 1.13}, {1.375, 1.38}, {20, 8},    {-3, 0.5}};
    for (const auto& [in, out] : speeds) EXPECT_EQ(Speed::clamped(in), out) << in;
    const std::pair<double, const char*> texts[] = {{1, "1×"}, {1.5, "1.5×"}, {0.75, "0.75×"}, {2.10, "2.1×"}};
    for (const auto& [rate, text] : texts) EXPECT_EQ(Speed::text(rate), text);
}

TEST(Freeze, ClampedKeepsATenthToThirtySeconds) {
    const std::pair<double, std::int64_t> freezes[] = {
        {nan, 2'000'000}, {0.05, 100'000}, {0.1, 100'000}, {1.5, 1'500'000}, {90, 30'000'000}};
    for (const auto& [seconds, length] : freezes) EXPECT_EQ(Freeze::clamped(seconds).microseconds, length) << seconds;
}

} // namespace
} // namespace ovik
