#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "OvikModel/Draft.h"
#include "OvikModel/ModelSamples.h"
#include "OvikModel/draft/CursorSettings.h"
#include "OvikModel/draft/Section.h"
#include "OvikModel/draft/SectionSpeed.h"
#include "OvikModel/time/TimeSamples.h"

namespace ovik {
namespace {

constexpr std::string_view head =
    R"({"id":"00000000-0000-0000-0000-00000000000C","media":"00000000-0000-0000-0000-00000000000A",)";

Section read(std::string_view keys) {
    return decodeJSON<Section>(std::string_view(std::string(head) + std::string(keys)));
}

std::string written(const Section& section) {
    JSONValue value = encodeJSON(section);
    value.object()->erase("id");
    value.object()->erase("media");
    return value.compact();
}

TEST(SectionLength, ParallelListsBecomeStretchesAndBack) {
    const Section section = read(R"("keptRanges":[{"start":0,"end":10},{"start":10,"end":20},{"start":30,"end":40}],)"
                                 R"("rates":[1,2,1],"autoRates":[1,7],"resumes":[2],)"
                                 R"("freezes":[{"at":15,"duration":5},{"at":40,"duration":3}]})");
    const auto& stretches = section.length.as<Section::Length::kept>().value;
    ASSERT_EQ(stretches.size(), 6u);
    // The freeze at 15 splits the second range; its right half joins the freeze without a cut.
    EXPECT_EQ(stretches[1].range.end, SourceTime{15});
    EXPECT_EQ(stretches[1].origin, SpeedOrigin::auto_);
    EXPECT_EQ(stretches[2], KeptStretch::freeze(SourceTime{15}, MediaDuration{5}));
    EXPECT_EQ(stretches[3].range.start, SourceTime{15});
    EXPECT_EQ(stretches[3].rate, 2);
    EXPECT_TRUE(stretches[3].resumes);
    EXPECT_TRUE(stretches[4].resumes);
    EXPECT_TRUE(stretches[5].isFreeze());
    EXPECT_EQ(written(section), R"({"autoRates":[1,2],"freezes":[{"at":15,"duration":5},{"at":40,"duration":3}],)"
                                R"("keptRanges":[{"end":10,"start":0},{"end":15,"start":10},{"end":20,"start":15},)"
                                R"({"end":40,"start":30}],"rates":[1,2,2,1],"resumes":[2,3]})");
}

TEST(SectionLength, WritesOnlyWhatDiffersFromPlainPlaying) {
    const std::pair<const char*, const char*> cases[] = {
        {R"("keptRanges":[{"start":0,"end":5}],"rates":[1],"autoRates":[],"freezes":[]})",
         R"({"keptRanges":[{"end":5,"start":0}]})"},
        // A still ignores the kept lists, which are lost on the next save.
        {R"("stillDuration":7,"keptRanges":"ignored","rates":[1,2]})", R"({"stillDuration":7})"},
        {R"("stillDuration":null,"keptRanges":[]})", R"({"keptRanges":[]})"},
    };
    for (const auto& [keys, expected] : cases) EXPECT_EQ(written(read(keys)), expected) << keys;
}

TEST(SectionLength, ASpeedThatSaysNothingIsDroppedAndNeverWritten) {
    const char* identities[] = {R"({})", R"({"keys":[{"at":0,"rate":1},{"at":9,"rate":1,"curve":"linear"}]})"};
    for (const char* speed : identities) {
        const Section section = read(std::string(R"("stillDuration":1,"speed":)") + speed + "}");
        EXPECT_FALSE(section.speed.has_value()) << speed;
    }
    Section section = read(R"("stillDuration":1})");
    section.speed = SectionSpeed{};
    EXPECT_EQ(written(section), R"({"stillDuration":1})");

    const Section sorted = read(R"("stillDuration":1,"speed":{"keys":[{"at":9,"rate":2},{"at":1,"rate":1}]}})");
    EXPECT_EQ(encodeJSON(*sorted.speed).compact(),
              R"({"holds":[],"keys":[{"at":1,"rate":1},{"at":9,"rate":2}],"reversed":false})");
}

using Key = SectionSpeed::Key;
using Piece = SectionSpeed::Piece;

Key key(std::int64_t at, double rate, std::optional<ActionCurve> curve = std::nullopt) {
    return Key{MediaDuration{at}, rate, std::move(curve)};
}
ActionCurve linear() { return ActionCurve{{}, ActionCurve::linear{}}; }

TEST(SectionSpeed, ClampedKeepsTheRangeAndRoundsToThousandths) {
    const std::pair<double, double> rates[] = {{0.01, 0.05}, {1.23456, 1.235}, {9, 8}, {NAN, 1}};
    for (const auto& [in, out] : rates) EXPECT_EQ(SectionSpeed::clamped(in), out) << in;
}

TEST(SectionSpeed, RateBetweenKeys) {
    const SectionSpeed speed = SectionSpeed::make({key(1'000'000, 2, linear()), key(0, 1, linear()), key(2'000'000, 9)}, {}, false);
    EXPECT_EQ(speed.keys.front().at.microseconds, 0);
    EXPECT_DOUBLE_EQ(speed.rate(-5), 1);
    EXPECT_DOUBLE_EQ(speed.rate(500'000), 1.5);
    // Past the last key the rate is held, through the limits.
    EXPECT_DOUBLE_EQ(speed.rate(3'000'000), 8);
    // Two keys at one moment: the rate jumps to the later one.
    const SectionSpeed jump = SectionSpeed::make({key(0, 1), key(500'000, 2), key(500'000, 4)}, {}, false);
    EXPECT_DOUBLE_EQ(jump.rate(500'000), 4);
}

TEST(SectionSpeed, HoldsComeAtTheirPlaceAndFlipWhenReversed) {
    const std::vector<SectionSpeed::Hold> holds{{MediaDuration{0}, MediaDuration{10'000}},
                                                {MediaDuration{5'000'000}, MediaDuration{2'000'000}}};
    const auto pieces = SectionSpeed::make({}, holds, false).pieces(MediaDuration{1'000'000}, true);
    ASSERT_EQ(pieces.size(), 3u);
    EXPECT_EQ(pieces[0], (Piece{MediaDuration{50'000}, MediaDuration{0}, MediaDuration{0}}));
    EXPECT_EQ(pieces[1], (Piece{MediaDuration{1'000'000}, MediaDuration{0}, MediaDuration{1'000'000}}));
    EXPECT_EQ(pieces[2], (Piece{MediaDuration{2'000'000}, MediaDuration{1'000'000}, MediaDuration{1'000'000}}));
    const auto reversed = SectionSpeed::make({}, holds, true).pieces(MediaDuration{1'000'000}, true);
    ASSERT_EQ(reversed.size(), 3u);
    EXPECT_TRUE(reversed[0].isHold());
    EXPECT_EQ(reversed[0].output.microseconds, 2'000'000);
    EXPECT_EQ(reversed[1].from.microseconds, 1'000'000);
    EXPECT_EQ(reversed[1].to.microseconds, 0);
}

TEST(SectionSpeed, RampStepsFollowTheirLimits) {
    const SectionSpeed ramp = SectionSpeed::ramp(1, 2, MediaDuration{1'000'000}, linear());
    // Unframed: about one step per 33 ms of the slowest output; framed: none under 100 ms of source.
    EXPECT_EQ(ramp.pieces(MediaDuration{1'000'000}, false).size(), 31u);
    const auto framed = ramp.pieces(MediaDuration{1'000'000}, true);
    ASSERT_EQ(framed.size(), 10u);
    for (const Piece& piece : framed) EXPECT_EQ((piece.to - piece.from).microseconds, 100'000);
    EXPECT_EQ(framed.back().to.microseconds, 1'000'000);
    // Each step plays at the rate of its middle: the first at 1.05×.
    EXPECT_EQ(framed.front().output.microseconds, 95'238);
    const SectionSpeed steep = SectionSpeed::ramp(0.05, 8, MediaDuration{100'000'000}, linear());
    EXPECT_EQ(steep.pieces(MediaDuration{100'000'000}, false).size(), 600u);
}

TEST(SectionSpeed, EqualEndRatesMakeOneFlatPieceWhateverTheCurve) {
    const ActionCurve sag{{}, ActionCurve::bezier{0.5, -3, 0.5, 4}};
    const SectionSpeed speed = SectionSpeed::make({key(0, 2, sag), key(1'000'000, 2)}, {}, false);
    const auto pieces = speed.pieces(MediaDuration{1'000'000}, false);
    ASSERT_EQ(pieces.size(), 1u);
    EXPECT_EQ(pieces[0].output.microseconds, 500'000);
}

TEST(SectionSpeed, ExcerptKeepsTheRatesAtItsEnds) {
    const SectionSpeed speed = SectionSpeed::make({key(0, 1, linear()), key(2'000'000, 3)},
                                                  {{MediaDuration{1'500'000}, MediaDuration{100'000}}}, false);
    const auto part = speed.excerpt(MediaDuration{1'000'000}, MediaDuration{1'800'000});
    ASSERT_TRUE(part);
    ASSERT_EQ(part->keys.size(), 2u);
    EXPECT_DOUBLE_EQ(part->keys[0].rate, 2);
    EXPECT_EQ(part->keys[0].curve, linear());
    EXPECT_EQ(part->keys[1].at.microseconds, 800'000);
    EXPECT_DOUBLE_EQ(part->keys[1].rate, 2.8);
    ASSERT_EQ(part->holds.size(), 1u);
    EXPECT_EQ(part->holds[0].at.microseconds, 500'000);
    // A plain part is no speed at all.
    EXPECT_FALSE(SectionSpeed::make({key(0, 1)}, {}, false).excerpt(MediaDuration{0}, MediaDuration{10}));
}

using namespace testing;

TEST(KeptStretch, OutputLengthNeverCollapses) {
    // A stretch and its output length.
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
    // Stretches, the seams asked to join, and how many stretches are left.
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

Draft read() { return decodeJSON<Draft>(encodeJSON(testing::canvasDraft())); }

TEST(DraftMemo, CopiesShareOneTableThatAnyOfThemClears) {
    const Draft draft = read();
    const Draft copy = draft;
    int made = 0;
    const auto make = [&] { return ++made; };
    EXPECT_EQ(*draft.memo.value<int>({"n"}, make), 1);
    EXPECT_EQ(*copy.memo.value<int>({"n"}, make), 1);
    EXPECT_EQ(*copy.memo.value<double>({"n"}, [] { return 2.5; }), 2.5); // another type is a miss
    copy.memo.clear();
    EXPECT_EQ(*draft.memo.value<int>({"n"}, make), 2);
    EXPECT_EQ(read(), draft); // not part of equality, and a loaded draft starts empty
    EXPECT_EQ(*read().memo.value<int>({"n"}, make), 3);
}

TEST(CursorSettings, DrawnFallsBackToPlainWhereTheLookHasNoUse) {
    CursorSettings styled = CursorSettings::newRecording();
    styled.turnsWithMotion = false;
    styled.pointerColor = RGBA{0, 0, 1, 1};
    EXPECT_EQ(styled.drawn(), styled);

    CursorSettings dot = styled;
    dot.look = CursorLook::dot;
    CursorSettings expected = dot;
    expected.turnsWithMotion = true;
    expected.pointerColor = PointerPalette::standard;
    EXPECT_EQ(dot.drawn(), expected);

    CursorSettings off = styled;
    off.isStylingOff = true;
    off.isShown = false;
    CursorSettings hidden = CursorSettings::plain();
    hidden.isShown = false;
    EXPECT_EQ(off.drawn(), hidden);
}

} // namespace
} // namespace ovik
