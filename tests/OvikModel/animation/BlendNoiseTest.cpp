#include <gtest/gtest.h>

#include <cmath>

#include "ActionSamples.h"
#include "OvikModel/animation/PathSampling.h"

namespace ovik {
namespace {

using testing::anchor;

TEST(ActionNoise, IsRepeatableBoundedAndZeroOnTheLattice) {
    double smallest = 0, largest = 0;
    for (std::uint64_t seed : {0ull, 1ull, 0xFFFFFFFFFFFFFFFFull}) {
        for (double x = -50; x < 50; x += 0.137) {
            const double n = ActionEvaluator::noise(x, seed);
            EXPECT_EQ(n, ActionEvaluator::noise(x, seed));
            smallest = std::min(smallest, n);
            largest = std::max(largest, n);
        }
        for (double lattice : {-3.0, 0.0, 7.0}) EXPECT_EQ(ActionEvaluator::noise(lattice, seed), 0);
    }
    EXPECT_GE(smallest, -1);
    EXPECT_LE(largest, 1);
    // It does move, both ways.
    EXPECT_LT(smallest, -0.3);
    EXPECT_GT(largest, 0.3);
}

TEST(ActionNoise, SeedsGiveDifferentNoiseAndBadInputGivesZero) {
    EXPECT_NE(ActionEvaluator::noise(0.5, 1), ActionEvaluator::noise(0.5, 2));
    EXPECT_NE(ActionEvaluator::secondSeed(1), 1u);
    EXPECT_EQ(ActionEvaluator::secondSeed(1), ActionEvaluator::secondSeed(1));
    for (double bad : {NAN, INFINITY, -INFINITY}) EXPECT_EQ(ActionEvaluator::noise(bad, 3), 0);
    // Far beyond the lattice limit the answer is still a number.
    EXPECT_TRUE(std::isfinite(ActionEvaluator::noise(1e300, 3)));
}

TEST(ActionBlend, ValuesOfOneKind) {
    using V = ActionValue;
    struct Case {
        V a, b;
        double t;
        V expected;
    };
    const Case cases[] = {
        {V::makeNumber(2), V::makeNumber(4), 0.25, V::makeNumber(2.5)},
        {V::makeVector(0, 10), V::makeVector(10, 0), 0.5, V::makeVector(5, 5)},
        // A fade from nothing takes the colour of where it goes.
        {V::makeColor(RGBA{0, 0, 0, 0}), V::makeColor(RGBA{1, 0.5, 0, 1}), 0.5, V::makeColor(RGBA{1, 0.5, 0, 0.5})},
        {V::makeColor(RGBA{0, 0, 1, 1}), V::makeColor(RGBA{1, 0, 0, 1}), 0.5, V::makeColor(RGBA{0.5, 0, 0.5, 1})},
        {V::makeText("1.5"), V::makeText("3"), 0.5, V::makeText("2.3")},
        {V::makeText("1.5"), V::makeText("3"), 1, V::makeText("3.0")},
        {V::makeText(" 10 "), V::makeText("-0.125"), 0, V::makeText(" 10 ")},
        {V::makeText("hello"), V::makeText("world"), 0.99, V::makeText("hello")},
        {V::makeText("hello"), V::makeText("world"), 1, V::makeText("world")},
        {V::makePath(BezierPath{}), V::makePath(BezierPath{{PathAnchor{}}, true}), 0.49, V::makePath(BezierPath{})},
        {V::makePath(BezierPath{}), V::makePath(BezierPath{{PathAnchor{}}, true}), 0.5,
         V::makePath(BezierPath{{PathAnchor{}}, true})},
        // Mixed kinds swap halfway.
        {V::makeNumber(1), V::makeText("x"), 0.4, V::makeNumber(1)},
        {V::makeNumber(1), V::makeText("x"), 0.6, V::makeText("x")},
    };
    for (const Case& c : cases) EXPECT_EQ(ActionEvaluator::blend(c.a, c.b, c.t), c.expected) << c.t;
}

TEST(ActionBlend, CountingNeedsPlainNumbers) {
    EXPECT_EQ(ActionEvaluator::counting("0", "100", 0.5), "50");
    EXPECT_EQ(ActionEvaluator::counting("1.1234567", "2", 0), "1.123457");
    EXPECT_EQ(ActionEvaluator::counting("+2", "-2", 0.25), "1");
    for (const char* bad : {"1e3", "", "  ", "0x10", "1,000", "inf", "nan", "1.2.3", "--1"})
        EXPECT_FALSE(ActionEvaluator::counting(bad, "2", 0.5)) << bad;
}

TEST(ActionSpline, PassesThroughItsKeysAndMonotoneStaysWithin) {
    const std::vector<double> times = {0, 1, 2}, values = {0, 1, 1};
    EXPECT_EQ(ActionEvaluator::continuous(times, values, 0, 0, false), 0);
    EXPECT_EQ(ActionEvaluator::continuous(times, values, 0, 1, false), 1);
    EXPECT_EQ(ActionEvaluator::continuous(times, values, 1, 1, false), 1);
    // The tangent through the middle key carries the free curve past the flat last key...
    EXPECT_GT(ActionEvaluator::continuous(times, values, 1, 0.3, false), 1);
    // ...which the monotone one doesn't.
    for (double t = 0; t <= 1; t += 0.1) {
        EXPECT_LE(ActionEvaluator::continuous(times, values, 0, t, true), 1 + 1e-12);
        EXPECT_EQ(ActionEvaluator::continuous(times, values, 1, t, true), 1);
    }
    // Fritsch-Carlson: a tangent steeper than three times its segment's slope is cut back to it.
    EXPECT_NEAR(ActionEvaluator::continuous({0, 1, 2}, {0, 1, 7}, 0, 0.5, true), 0.125, 1e-12);
    EXPECT_NEAR(ActionEvaluator::continuous({0, 1, 2}, {0, 1, 7}, 0, 0.5, false), 0.0625, 1e-12);
    EXPECT_EQ(ActionEvaluator::continuous({}, {}, 0, 0.5, true), 0);
    EXPECT_EQ(ActionEvaluator::continuous({3}, {7}, 0, 0.5, true), 7);
}

TEST(PathSampling, MeasuresAndFindsPointsAlongThePath) {
    BezierPath square;
    square.anchors = {anchor(0, 0), anchor(10, 0), anchor(10, 10), anchor(0, 10)};
    const PathSampling open(square);
    EXPECT_NEAR(open.length(), 30, 1e-9);
    square.isClosed = true;
    const PathSampling closed(square);
    EXPECT_NEAR(closed.length(), 40, 1e-9);
    const CGPoint quarter = closed.point(15);
    EXPECT_NEAR(quarter.x, 10, 1e-9);
    EXPECT_NEAR(quarter.y, 5, 1e-9);
    EXPECT_EQ(closed.point(-1), (CGPoint{0, 0}));
    EXPECT_EQ(closed.point(99), (CGPoint{0, 0}));
    EXPECT_TRUE(PathSampling(BezierPath{}).isEmpty());
}

} // namespace
} // namespace ovik
