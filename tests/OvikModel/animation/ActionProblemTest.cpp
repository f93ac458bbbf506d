#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "OvikL10n/L10n.h"
#include "OvikModel/animation/Action.h"
#include "OvikModel/animation/LookActions.h"

namespace ovik {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

// A valid action: opacity to one half, linearly, over the whole life.
Action fade() {
    Action action;
    action.property = PropertyKey::opacity();
    action.mode.cases = ActionMode::to{std::nullopt, ActionValue::makeNumber(0.5)};
    action.curve.cases = ActionCurve::linear{};
    action.range.cases = ActionRange::whole{};
    return action;
}

BezierPath pathOf(int points) {
    BezierPath path;
    for (int i = 0; i < points; ++i) path.anchors.push_back(PathAnchor{CGPoint{double(i), 0}, {}, {}, false});
    return path;
}

ActionMode oscillation(ActionValue amplitude, double frequency = 1, double decay = 0) {
    return ActionMode{{}, ActionMode::oscillate{std::move(amplitude), frequency, decay}};
}
ActionMode jitter(ActionValue amplitude, std::optional<double> decay = std::nullopt) {
    return ActionMode{{}, ActionMode::noise{std::move(amplitude), 1, 7, decay}};
}
ActionMode rate(ActionValue value) { return ActionMode{{}, ActionMode::continuous{std::move(value)}}; }
ActionMode to(ActionValue value) { return ActionMode{{}, ActionMode::to{std::nullopt, std::move(value)}}; }

struct Case {
    const char* name;
    std::function<void(Action&)> change;
    std::string expected; // empty: valid
};

class ActionProblemTest : public ::testing::Test {
protected:
    L10n::LanguageOverride english{"en"};
};

TEST_F(ActionProblemTest, EachCheckGivesItsText) {
    const std::string vectorKind = "The value of Position must be a [dx, dy].";
    const std::string amplitude = "The amplitude must be a [dx, dy].";
    const std::string frequency = "Frequency and decay must be 0 or greater.";
    const std::string spring = "The spring's stiffness must be greater than 0 and its damping at least 0.";
    const std::string bezier = "The two control points of the curve must have x between 0 and 1.";
    const std::string negative = "An action's duration and delay can't be negative.";
    const auto vector = ActionValue::makeVector;
    const auto number = ActionValue::makeNumber;
    const Case cases[] = {
        {"valid", [](Action&) {}, ""},
        {"to of another kind", [](Action& a) { a.property = PropertyKey::position(); }, vectorKind},
        {"from of another kind",
         [&](Action& a) {
             a.property = PropertyKey::position();
             a.mode.cases = ActionMode::to{number(1), vector(1, 2)};
         },
         vectorKind},
        {"colour to a number", [](Action& a) { a.property = PropertyKey::color(); }, "The value of Colour must be a Colour."},
        {"to not finite", [&](Action& a) { a.mode = to(number(nan)); }, "The value must be a finite number."},
        {"from not finite", [&](Action& a) { a.mode.cases = ActionMode::to{number(infinity), number(1)}; },
         "The value must be a finite number."},
        {"text swings",
         [](Action& a) {
             a.property = PropertyKey::text();
             a.mode = oscillation(ActionValue::makeText("a"));
         },
         "Text can't swing."},
        {"colour jitters",
         [](Action& a) {
             a.property = PropertyKey::color();
             a.mode = jitter(ActionValue::makeColor(RGBA{}));
         },
         "Colour can't jitter."},
        {"amplitude of another kind",
         [&](Action& a) {
             a.property = PropertyKey::position();
             a.mode = oscillation(number(1));
         },
         amplitude},
        {"amplitude not finite",
         [&](Action& a) {
             a.property = PropertyKey::position();
             a.mode = jitter(vector(infinity, 0));
         },
         amplitude},
        {"negative frequency", [&](Action& a) { a.mode = oscillation(number(0.1), -1); }, frequency},
        {"decay not finite", [&](Action& a) { a.mode = oscillation(number(0.1), 1, nan); }, frequency},
        {"noise decay negative", [&](Action& a) { a.mode = jitter(number(0.1), -0.5); }, frequency},
        {"noise without decay", [&](Action& a) { a.mode = jitter(number(0.1)); }, ""},
        {"text keeps changing",
         [](Action& a) {
             a.property = PropertyKey::text();
             a.mode = rate(ActionValue::makeText("a"));
         },
         "Text can't change continuously."},
        {"rate of another kind",
         [&](Action& a) {
             a.property = PropertyKey::position();
             a.mode = rate(number(1));
         },
         "The rate must be a [dx, dy]."},
        {"opacity along a path", [](Action& a) { a.mode.cases = ActionMode::alongPath{pathOf(2)}; },
         "Only position can move along a path."},
        {"path of one point",
         [](Action& a) {
             a.property = PropertyKey::position();
             a.mode.cases = ActionMode::alongPath{pathOf(1)};
         },
         L10n::text("model.path.validation.minimumPoints")},
        {"path along two points",
         [](Action& a) {
             a.property = PropertyKey::position();
             a.mode.cases = ActionMode::alongPath{pathOf(2)};
         },
         ""},
        {"spring without stiffness", [](Action& a) { a.curve.cases = ActionCurve::spring{0, 10}; }, spring},
        {"spring with negative damping", [](Action& a) { a.curve.cases = ActionCurve::spring{200, -1}; }, spring},
        {"spring of infinite stiffness", [](Action& a) { a.curve.cases = ActionCurve::spring{infinity, 1}; }, spring},
        {"no steps", [](Action& a) { a.curve.cases = ActionCurve::steps{0}; }, "Steps need at least one step."},
        {"bezier x beyond 1", [](Action& a) { a.curve.cases = ActionCurve::bezier{0.2, 0, 1.5, 1}; }, bezier},
        {"bezier y not finite", [](Action& a) { a.curve.cases = ActionCurve::bezier{0.2, 0, 0.5, infinity}; }, bezier},
        {"bezier y beyond 1", [](Action& a) { a.curve.cases = ActionCurve::bezier{0.2, -1, 0.5, 2}; }, ""},
        {"negative delay", [](Action& a) { a.range.cases = ActionRange::opening{MediaDuration{-1}, {}}; }, negative},
        {"negative exit length", [](Action& a) { a.range.cases = ActionRange::closing{{}, MediaDuration{-1}}; }, negative},
        {"ends before it starts", [](Action& a) { a.range.cases = ActionRange::between{SourceTime{5}, SourceTime{4}}; },
         "An action can't end before it starts."},
        {"empty between", [](Action& a) { a.range.cases = ActionRange::between{SourceTime{5}, SourceTime{5}}; }, ""},
        {"negative stagger", [](Action& a) { a.stagger = MediaDuration{-1}; },
         "The stagger between parts can't be negative."},
        {"generator without name", [](Action& a) { a.property = PropertyKey::param(); },
         "An action on a generator parameter must say which parameter, such as params.radius."},
        {"generator by name",
         [&](Action& a) {
             a.property = PropertyKey::param();
             a.param = "radius";
             a.mode = to(vector(1, 2));
         },
         ""},
        {"name on opacity", [](Action& a) { a.param = "radius"; }, "Only generator parameters have a parameter name."},
        {"shape on opacity", [](Action& a) { a.shape = RevealShape{{}, RevealShape::circle{}}; }, "Only a reveal has a shape."},
        {"wipe at no angle",
         [](Action& a) {
             a.property = PropertyKey::reveal();
             a.shape = RevealShape{{}, RevealShape::wipe{nan}};
         },
         "The wipe angle must be a finite number."},
        {"reveal along one point",
         [](Action& a) {
             a.property = PropertyKey::reveal();
             a.shape = RevealShape{{}, RevealShape::path{pathOf(1), 4}};
         },
         "A reveal along a path needs a path of at least two points."},
        {"reveal of no width",
         [](Action& a) {
             a.property = PropertyKey::reveal();
             a.shape = RevealShape{{}, RevealShape::path{pathOf(2), 0}};
         },
         "The width of a reveal along a path must be greater than 0."},
        {"reveal in a circle",
         [](Action& a) {
             a.property = PropertyKey::reveal();
             a.shape = RevealShape{{}, RevealShape::circle{}};
         },
         ""},
    };
    for (const Case& c : cases) {
        Action action = fade();
        c.change(action);
        EXPECT_EQ(action.problem().value_or(""), c.expected) << c.name;
    }
}

TEST_F(ActionProblemTest, TheFirstFailingCheckIsTold) {
    Action action = fade();
    action.curve.cases = ActionCurve::steps{0};
    action.stagger = MediaDuration{-1};
    EXPECT_EQ(action.problem(), "Steps need at least one step.");
    action.mode = to(ActionValue::makeNumber(nan));
    EXPECT_EQ(action.problem(), "The value must be a finite number.");
}

TEST_F(ActionProblemTest, AGeneratorParameterTakesTheKindOfItsFirstValue) {
    Action action = fade();
    action.property = PropertyKey::param();
    action.param = "radius";
    action.mode.cases = ActionMode::to{ActionValue::makeText("a"), ActionValue::makeNumber(1)};
    EXPECT_EQ(Action::paramKind(action.mode), ActionValue::Kind::text);
    EXPECT_EQ(action.problem(), "The value of Generator parameter must be a Text.");
}

TEST_F(ActionProblemTest, AxisTags) {
    struct AxisCase {
        PropertyKey property;
        std::optional<std::string> axis;
        std::string expected;
    };
    const std::string required = "A font axis must say which axis: a four-letter tag, such as axis:GRAD.";
    const AxisCase cases[] = {
        {PropertyKey::fontAxis(), "GRAD", ""},
        {PropertyKey::fontAxis(), "opsz", ""},
        {PropertyKey::fontAxis(), std::nullopt, required},
        {PropertyKey::fontAxis(), "GRADE", required},
        {PropertyKey::fontAxis(), " GRD", required},
        {PropertyKey::fontAxis(), "GR\tD", required},
        {PropertyKey::fontWeight(), std::nullopt, ""},
        {PropertyKey::opacity(), "GRAD", "Only font axes have an axis tag."},
    };
    for (const AxisCase& c : cases) {
        Action action = fade();
        action.property = c.property;
        action.axis = c.axis;
        EXPECT_EQ(action.axisProblem().value_or(""), c.expected) << c.axis.value_or("none");
    }
}

TEST_F(ActionProblemTest, AboutPoints) {
    const std::string finite = L10n::text("model.lens.validation.aboutFinite");
    const std::string scaleOnly = L10n::text("model.lens.validation.aboutScaleOnly");
    const std::string positive = L10n::text("model.lens.validation.aboutPositiveScale");
    struct AboutCase {
        PropertyKey property;
        std::optional<CGPoint> about;
        double to;
        bool onLens;
        std::string expected;
    };
    const AboutCase cases[] = {
        {PropertyKey::opacity(), std::nullopt, 2, true, ""},
        {PropertyKey::scale(), CGPoint{nan, 0}, 2, false, finite},
        {PropertyKey::scale(), CGPoint{0, infinity}, 2, true, finite},
        {PropertyKey::opacity(), CGPoint{1, 2}, 2, false, ""},
        {PropertyKey::opacity(), CGPoint{1, 2}, 2, true, scaleOnly},
        {PropertyKey::scale(), CGPoint{1, 2}, 0, true, positive},
        {PropertyKey::scale(), CGPoint{1, 2}, 2, true, ""},
    };
    for (const AboutCase& c : cases) {
        Action action = fade();
        action.property = c.property;
        action.about = c.about;
        action.mode = to(ActionValue::makeNumber(c.to));
        EXPECT_EQ(action.aboutProblem(c.onLens).value_or(""), c.expected) << c.property.name() << " " << c.onLens;
    }
}

TEST_F(ActionProblemTest, LooksMoveOnlyTheirEffectsByThreeModes) {
    EXPECT_EQ(LookActions::properties(), std::vector<PropertyKey>{PropertyKey::effect()});
    EXPECT_FALSE(LookActions::refuses(PropertyKey::effect()));
    EXPECT_EQ(LookActions::refuses(PropertyKey::opacity()),
              "A look can only change the numbers of its effects (effects[i].name): add Opacity to a screenshot, "
              "recording or object.");
    for (const ActionMode& allowed : {to(ActionValue::makeNumber(1)), oscillation(ActionValue::makeNumber(1)),
                                      jitter(ActionValue::makeNumber(1))})
        EXPECT_FALSE(LookActions::refuses(allowed));
    EXPECT_EQ(LookActions::refuses(rate(ActionValue::makeNumber(1))),
              "A look can only change to, swing or jitter; add Keep turning to a screenshot, recording or object.");
    EXPECT_EQ(LookActions::refuses(ActionMode{{}, ActionMode::alongPath{pathOf(2)}}),
              "A look can only change to, swing or jitter; add Along path to a screenshot, recording or object.");
}

} // namespace
} // namespace ovik
