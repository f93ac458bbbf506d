#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <optional>
#include <regex>
#include <string>
#include <tuple>

#include "OvikL10n/L10n.h"
#include "OvikModel/time/Clock.h"
#include "OvikModel/time/MusicClock.h"
#include "OvikModel/time/StageTiming.h"
#include "OvikModel/values/DecodingFailure.h"

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
    // what, clock, at, length, own
    const std::tuple<const char*, Clock, double, std::optional<double>, double> cases[] = {
        {"plain within", Clock::plain(), 1.5, 4, 1.5},
        {"plain on its end", Clock::plain(), 4, 4, 4},
        {"plain past its end", Clock::plain(), 4.5, 4, 0},
        {"before the start", Clock::plain(), -1, 4, 0},
        {"hold past the end", made(1, once, 0, false, true), 10, 4, 4},
        {"twice, second pass", made(1, times(2)), 5, 4, 1},
        {"twice bouncing, second pass backward", made(1, times(2), 0, true), 5, 4, 3},
        {"2 bouncing passes rest at start", made(1, times(2), 1, true, true), 20, 5, 1},
        {"3 bouncing passes rest at the end", made(1, times(3), 1, true, true), 20, 5, 5},
        {"2 bouncing passes, on the end", made(1, times(2), 1, true), 8, 5, 1},
        {"2 bouncing passes, past the end", made(1, times(2), 1, true), 8.5, 5, 0},
        {"freeze stands without hold", frozenAt(2), 10, 4, 2},
        {"offset", made(1, once, 1), 2.5, 4, 3.5},
        {"offset, before outer start", made(1, once, 1), -1, 4, 1},
        {"offset, pass over", made(1, once, 1), 3.5, 4, 0},
        {"offset at the length starts at 0", made(1, once, 4), 1, 4, 1},
        {"offset past the length starts at 0", made(1, once, 5), 1, 4, 1},
        {"rate", made(2, once), 1, 4, 2},
        {"forever", made(1, forever), 9, 4, 1},
        {"forever bouncing", made(1, forever, 0, true), 5, 4, 3},
        {"no length: no end, loop ignored", made(2, times(3), 1), 10, none, 21},
        {"one key, before it", curved({{3, 1.5}}), 0, 4, 1.5},
        {"one key, on it", curved({{3, 1.5}}), 3, 4, 1.5},
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
    const auto looped = made(1, forever).runs(1.5, 1.2, 0.5);
    ASSERT_EQ(looped.size(), 2u);
    EXPECT_EQ(looped[0], (ClockRun{0, 1, 0, 1}));
    EXPECT_EQ(looped[1], (ClockRun{1, 1.5, 1, 1.2}));
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
        {"plain", Clock::plain(), none},
        {"limits of rate and count", made(16, ClockLoop::makeCount(1000)), none},
        {"slowest rate", made(0.1, forever), none},
        {"everything wrong", badEverything, rate},
        {"rate not a number", made(std::nan(""), once), rate},
        {"too fast", made(16.01, once), rate},
        {"no passes", made(1, ClockLoop::makeCount(0), -1), loop},
        {"too many passes", made(1, ClockLoop::makeCount(1001)), loop},
        {"negative offset", made(1, once, -0.5), "从哪开始不能是负的。"},
        {"negative freeze", negativeFreeze, "定格的时刻不能是负的。"},
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
        {"{}", "{}"},
        {R"({"rate":1,"loop":1,"offset":0,"bounce":false,"hold":false,"freeze":null})", "{}"},
        {R"({"loop":"forever"})", R"({"loop":"forever"})"},
        {R"({"loop":3})", R"({"loop":3})"},
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

// Sets OVIK_TIMING_STDOUT for the life of the object (or unsets it), then puts it back.
class TimingSwitch {
public:
    explicit TimingSwitch(const char* value) {
        if (const char* before = std::getenv(name)) before_ = before;
        value ? setenv(name, value, 1) : unsetenv(name);
    }
    ~TimingSwitch() { before_ ? setenv(name, before_->c_str(), 1) : unsetenv(name); }

private:
    static constexpr const char* name = "OVIK_TIMING_STDOUT";
    std::optional<std::string> before_;
};

std::string printed(const StageTiming& timing) {
    std::FILE* file = std::tmpfile();
    timing.end(file);
    std::rewind(file);
    std::string text;
    for (int c; (c = std::fgetc(file)) != EOF;) text.push_back(char(c));
    std::fclose(file);
    return text;
}

TEST(StageTiming, PrintsOnlyWhenAskedByTheEnvironment) {
    const StageTiming timing("draft load");
    {
        TimingSwitch on("1");
        EXPECT_TRUE(std::regex_match(printed(timing), std::regex("TIMING draft load [0-9]+\\.[0-9]{3} ms\n")));
    }
    for (const char* value : {static_cast<const char*>(nullptr), "0", "true", "11", ""}) {
        TimingSwitch off(value);
        EXPECT_EQ(printed(timing), "") << (value ? value : "unset");
    }
}

} // namespace
} // namespace ovik
