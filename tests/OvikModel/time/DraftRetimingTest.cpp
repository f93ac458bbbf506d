#include <gtest/gtest.h>

#include <tuple>

#include <cmath>
#include <functional>
#include <limits>

#include "OvikModel/time/DraftRetiming.h"
#include "OvikModel/time/DraftTiming.h"
#include "OvikModel/time/Freeze.h"
#include "OvikModel/time/Speed.h"
#include "OvikModel/time/SpeedEdit.h"
#include "TimeSamples.h"

namespace ovik {
namespace {

using namespace ovik::testing;

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
    // section, speed, reason
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
    EXPECT_EQ(sectionSpeed(draft, sectionID(1))->keys[0].rate, 2);
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
    EXPECT_EQ(stretches[1].range, src(1'000'000, 2'000'000));
    EXPECT_EQ(stretches[1].rate, 2);
    EXPECT_EQ(stretches[2].rate, 1);
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
    expectRefused(recordingDraft(), [](Draft& d) { setRate(d, 2, src(0, 1'000'000), sectionID(2)); },
                  TimelineEditError::nothingThere);
}

TEST(DraftRetiming, FreezeSplitsAndRemovingRejoins) {
    Draft draft = recordingDraft();
    const AnchoredTime frame = freeze(draft, OutputTime{1'500'000}, MediaDuration{100'000'000});
    EXPECT_EQ(frame, (AnchoredTime{sectionID(1), SourceTime{1'500'000}}));
    ASSERT_EQ(stretchesOf(draft).size(), 3u);
    EXPECT_EQ(stretchesOf(draft)[1], frozen(1'500'000, 30'000'000));
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
    EXPECT_EQ(allFreezes(draft).size(), 1u);
    const SpeedEdit lengthen{{}, SpeedEdit::setFreezeLength{allFreezes(draft)[0].at, MediaDuration{3'000'000}}};
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
