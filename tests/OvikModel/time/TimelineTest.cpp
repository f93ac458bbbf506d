#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "OvikModel/time/DraftTimeline.h"
#include "OvikModel/time/DraftTiming.h"
#include "OvikModel/time/SpanClock.h"
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

using namespace ovik::testing;


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
    EXPECT_EQ(entries[0].output, (OutputRange{out(0), out(4'000'000)}));
    ASSERT_TRUE(entries[1].transitionIn);
    EXPECT_EQ(entries[1].transitionIn->duration.microseconds, 1'000'000);
    // The transition's action is stretched with it.
    EXPECT_EQ(entries[1].transitionIn->outgoing[0].range.as<ActionRange::opening>().length.microseconds, 1'000'000);
    EXPECT_EQ(entries[1].output, (OutputRange{out(3'000'000), out(5'000'000)}));
    EXPECT_FALSE(entries[2].transitionIn);
    EXPECT_EQ(entries[2].output.start, out(5'000'000));
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
    EXPECT_EQ(overlap[1].section, sectionID(2));
    EXPECT_TRUE(overlap[1].transition->isIncoming);
    EXPECT_EQ(overlap[1].time, SourceTime{500'000});
    // A plain boundary shows the later section alone; the film's end still shows the last.
    ASSERT_EQ(line.visible(out(5'000'000)).size(), 1u);
    EXPECT_EQ(line.visible(out(5'000'000))[0].section, sectionID(3));
    ASSERT_EQ(line.visible(out(6'000'000)).size(), 1u);
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
    EXPECT_EQ(whole->media, mediaID(1));
    EXPECT_EQ(whole->map.source(out(5'500'000)), SourceTime{5'500'000});
    EXPECT_EQ(line.entry(sectionID(9)), nullptr);
    EXPECT_FALSE(DraftTimeline::make({keptSection(1, {playing(0, 10)}), keptSection(2, {playing(9, 3)})}));
    const auto empty = DraftTimeline::make({});
    EXPECT_TRUE(empty->visible(out(0)).empty());
    EXPECT_EQ(empty->entry(SectionID::wholeDraft()), nullptr);
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
    EXPECT_EQ(moment->output, out(2'000'000));
    EXPECT_DOUBLE_EQ(moment->rate, 2);
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
    EXPECT_EQ(recordingSectionIndex(draft), 0u);
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

} // namespace
} // namespace ovik
