#include <gtest/gtest.h>

#include "OvikModel/time/DraftTimeline.h"
#include "OvikModel/time/DraftTiming.h"
#include "OvikModel/time/SpanClock.h"
#include "TimeSamples.h"

namespace ovik {
namespace {

using namespace ovik::testing;

OutputTime out(std::int64_t t) { return OutputTime{t}; }

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
