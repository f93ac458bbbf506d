#include <gtest/gtest.h>

#include <cmath>

#include "OvikModel/draft/SectionSpeed.h"

namespace ovik {
namespace {

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

} // namespace
} // namespace ovik
