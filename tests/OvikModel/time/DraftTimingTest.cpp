#include <gtest/gtest.h>

#include "OvikModel/time/DraftTiming.h"
#include "OvikModel/time/SpanClock.h"
#include "TimeSamples.h"

namespace ovik {
namespace {

using namespace ovik::testing;

OutputTime out(std::int64_t t) { return OutputTime{t}; }

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
