#include <gtest/gtest.h>

#include <cmath>

#include "OvikModel/animation/ActionEvaluator.h"
#include "OvikModel/animation/ActionRange.h"

namespace ovik {
namespace {

ActionCurve curve(std::string_view json) { return decodeJSON<ActionCurve>(json); }

TEST(ActionCurve, EaseAtChosenPoints) {
    struct Case {
        std::string_view curve;
        double t, eased;
    };
    const Case cases[] = {
        {R"("overshoot")", -1, 0},       {R"("overshoot")", 0, 0},
        {R"("overshoot")", 1, 1},        {R"("overshoot")", 0.5, 1 + 2.70158 * -0.125 + 1.70158 * 0.25},
        {R"("overshoot")", 7, 1},        {R"("smooth")", 0.25, 0.15625},
        {R"("continuous")", 0.25, 0.15625}, {R"("linear")", 0.3, 0.3},
        {R"({"steps":4})", 0.3, 0.25}, {R"({"steps":0})", 0.99, 0},
        {R"({"steps":4})", 1, 1}, {R"({"spring":{}})", -0.5, 0},
        // The CSS "ease" curve at its middle.
        {R"({"bezier":{"x1":0.25,"y1":0.1,"x2":0.25,"y2":1}})", 0.5, 0.8024033877399112},
    };
    for (const Case& c : cases)
        EXPECT_NEAR(ActionEvaluator::ease(curve(c.curve), c.t), c.eased, 1e-6) << c.curve << " at " << c.t;
}

TEST(ActionCurve, BezierWhoseHandlesLieOnTheDiagonalIsTheIdentity) {
    for (double t = 0.01; t < 1; t += 0.07) {
        EXPECT_NEAR(ActionEvaluator::bezier(t, 0.3, 0.3, 0.8, 0.8), t, 1e-8) << t;
        // Flat handles at the start stall Newton; bisection still answers.
        EXPECT_NEAR(ActionEvaluator::bezier(t, 0, 0, 0, 0), t, 1e-8) << t;
    }
}

TEST(ActionCurve, SpringSettlesInEveryDampingRegime) {
    // Stiffness 100 gives w = 10: damping 4, 20 and 60 are under, critically and over damped.
    for (const double damping : {4.0, 20.0, 60.0}) {
        EXPECT_NEAR(ActionEvaluator::spring(0, 100, damping), 0, 1e-12) << damping;
        EXPECT_NEAR(ActionEvaluator::spring(5, 100, damping), 1, 1e-3) << damping;
    }
    // Critical damping never overshoots; light damping does.
    EXPECT_LT(ActionEvaluator::spring(0.5, 100, 20), 1);
    EXPECT_GT(ActionEvaluator::spring(0.3, 100, 4), 1);
}

TEST(ActionCurve, JSONRoundTripsAndDefaults) {
    const ActionCurve spring = curve(R"({"spring":{}})");
    EXPECT_EQ(encodeJSON(spring).compact(), R"({"spring":{"damping":10,"stiffness":200}})");
    for (const char* json : {R"("overshoot")", R"({"steps":3})", R"({"bezier":{"x1":0,"x2":1,"y1":0.5,"y2":2}})"})
        EXPECT_EQ(encodeJSON(curve(json)).compact(), json);
}

TEST(ActionRange, JSONAndScaling) {
    const auto range = decodeJSON<ActionRange>(std::string_view(R"({"opening":{"delay":3,"length":301}})"));
    EXPECT_EQ(encodeJSON(range.scaled(0.5)).compact(), R"({"opening":{"delay":2,"length":151}})"); // halves up
    const auto between = decodeJSON<ActionRange>(std::string_view(R"({"between":{"end":9,"start":3}})"));
    EXPECT_EQ(between.scaled(2), between);
    EXPECT_EQ(encodeJSON(decodeJSON<ActionRange>(std::string_view(R"("whole")"))).compact(), R"("whole")");
}

} // namespace
} // namespace ovik
