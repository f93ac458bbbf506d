#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "OvikL10n/L10n.h"
#include "OvikModel/animation/Action.h"
#include "OvikModel/animation/LookActions.h"

namespace ovik {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
const auto number = ActionValue::makeNumber;
const auto vector = ActionValue::makeVector;

BezierPath pathOf(int points) {
    BezierPath path;
    for (int i = 0; i < points; ++i) path.anchors.push_back(PathAnchor{CGPoint{double(i), 0}, {}, {}, false});
    return path;
}

ActionMode to(const ActionValue& value, const std::optional<ActionValue>& from = std::nullopt) {
    return ActionMode{{}, ActionMode::to{from, value}};
}
ActionMode swing(ActionValue amplitude, double frequency = 1, double decay = 0) {
    return ActionMode{{}, ActionMode::oscillate{std::move(amplitude), frequency, decay}};
}
ActionMode jitter(ActionValue amplitude, std::optional<double> decay = std::nullopt) {
    return ActionMode{{}, ActionMode::noise{std::move(amplitude), 1, 7, decay}};
}
ActionMode rate(ActionValue value) { return ActionMode{{}, ActionMode::continuous{std::move(value)}}; }
ActionMode along(int points) { return ActionMode{{}, ActionMode::alongPath{pathOf(points)}}; }

/// An action on `property` moving by `mode`, linearly, over the whole life, unless told otherwise.
Action act(PropertyKey property, ActionMode mode, decltype(ActionCurve::cases) curve = ActionCurve::linear{},
           decltype(ActionRange::cases) range = ActionRange::whole{}) {
    Action action;
    action.property = property;
    action.mode = std::move(mode);
    action.curve.cases = std::move(curve);
    action.range.cases = std::move(range);
    return action;
}
Action fade() { return act(PropertyKey::opacity(), to(number(0.5))); }
Action fadeWith(void (*change)(Action&)) {
    Action action = fade();
    change(action);
    return action;
}

class ActionProblemTest : public ::testing::Test {
protected:
    L10n::LanguageOverride english{"en"};
};

TEST_F(ActionProblemTest, EachCheckGivesItsText) {
    using P = PropertyKey;
    const std::string vectorKind = "The value of Position must be a [dx, dy].";
    const std::string amplitude = "The amplitude must be a [dx, dy].";
    const std::string frequency = "Frequency and decay must be 0 or greater.";
    const std::string spring = "The spring's stiffness must be greater than 0 and its damping at least 0.";
    const std::string bezier = "The two control points of the curve must have x between 0 and 1.";
    const std::string negative = "An action's duration and delay can't be negative.";
    const std::string finite = "The value must be a finite number.";
    const std::pair<Action, std::string> cases[] = {
        {fade(), ""},
        {act(P::position(), to(number(0.5))), vectorKind},
        {act(P::color(), to(number(0.5))), "The value of Colour must be a Colour."},
        {act(P::opacity(), to(number(nan))), finite},
        {act(P::text(), swing(ActionValue::makeText("a"))), "Text can't swing."},
        {act(P::color(), jitter(ActionValue::makeColor(RGBA{}))), "Colour can't jitter."},
        {act(P::position(), swing(number(1))), amplitude},
        {act(P::opacity(), swing(number(0.1), -1)), frequency},
        {act(P::opacity(), jitter(number(0.1), -0.5)), frequency},
        {act(P::opacity(), jitter(number(0.1))), ""},
        {act(P::text(), rate(ActionValue::makeText("a"))), "Text can't change continuously."},
        {act(P::position(), rate(number(1))), "The rate must be a [dx, dy]."},
        {act(P::opacity(), along(2)), "Only position can move along a path."},
        {act(P::position(), along(1)), L10n::text("model.path.validation.minimumPoints")},
        {act(P::position(), along(2)), ""},
        {act(P::opacity(), to(number(1)), ActionCurve::spring{0, 10}), spring},
        {act(P::opacity(), to(number(1)), ActionCurve::spring{200, -1}), spring},
        {act(P::opacity(), to(number(1)), ActionCurve::steps{0}), "Steps need at least one step."},
        {act(P::opacity(), to(number(1)), ActionCurve::bezier{0.2, 0, 1.5, 1}), bezier},
        {act(P::opacity(), to(number(1)), ActionCurve::bezier{0.2, -1, 0.5, 2}), ""}, // y may leave 0...1
        {act(P::opacity(), to(number(1)), ActionCurve::linear{}, ActionRange::opening{MediaDuration{-1}, {}}), negative},
        {act(P::opacity(), to(number(1)), ActionCurve::linear{}, ActionRange::between{SourceTime{5}, SourceTime{4}}),
         "An action can't end before it starts."},
        {act(P::opacity(), to(number(1)), ActionCurve::linear{}, ActionRange::between{SourceTime{5}, SourceTime{5}}), ""},
        {fadeWith([](Action& a) { a.stagger = MediaDuration{-1}; }), "The stagger between parts can't be negative."},
        {act(P::param(), to(number(1))),
         "An action on a generator parameter must say which parameter, such as params.radius."},
        {fadeWith([](Action& a) { a.param = "radius"; }), "Only generator parameters have a parameter name."},
        {fadeWith([](Action& a) { a.shape = RevealShape{{}, RevealShape::circle{}}; }), "Only a reveal has a shape."},
    };
    for (const auto& [action, expected] : cases) EXPECT_EQ(action.problem().value_or(""), expected) << expected;

    // A generator parameter takes the kind of its first value.
    Action param = act(P::param(), to(number(1), ActionValue::makeText("a")));
    param.param = "radius";
    EXPECT_EQ(Action::paramKind(param.mode), ActionValue::Kind::text);
    EXPECT_EQ(param.problem(), "The value of Generator parameter must be a Text.");
    param.mode = to(vector(1, 2));
    EXPECT_EQ(param.problem(), std::nullopt);
}

TEST_F(ActionProblemTest, RevealShapes) {
    const std::pair<decltype(RevealShape::cases), std::string> cases[] = {
        {RevealShape::wipe{nan}, "The wipe angle must be a finite number."},
        {RevealShape::path{pathOf(1), 4}, "A reveal along a path needs a path of at least two points."},
        {RevealShape::path{pathOf(2), 0}, "The width of a reveal along a path must be greater than 0."},
        {RevealShape::circle{}, ""},
    };
    for (const auto& [shape, expected] : cases) {
        Action action = act(PropertyKey::reveal(), to(number(0.5)));
        action.shape = RevealShape{{}, shape};
        EXPECT_EQ(action.problem().value_or(""), expected);
    }
}

TEST_F(ActionProblemTest, TheFirstFailingCheckIsTold) {
    Action action = act(PropertyKey::opacity(), to(number(0.5)), ActionCurve::steps{0});
    action.stagger = MediaDuration{-1};
    EXPECT_EQ(action.problem(), "Steps need at least one step.");
    action.mode = to(number(nan));
    EXPECT_EQ(action.problem(), "The value must be a finite number.");
}

TEST_F(ActionProblemTest, AxisTags) {
    const std::string required = "A font axis must say which axis: a four-letter tag, such as axis:GRAD.";
    const std::tuple<PropertyKey, std::optional<std::string>, std::string> cases[] = {
        {PropertyKey::fontAxis(), "GRAD", ""},         {PropertyKey::fontAxis(), "opsz", ""},
        {PropertyKey::fontAxis(), std::nullopt, required}, {PropertyKey::fontAxis(), "GRADE", required},
        {PropertyKey::fontAxis(), " GRD", required},   {PropertyKey::fontAxis(), "GR\tD", required},
        {PropertyKey::fontWeight(), std::nullopt, ""}, {PropertyKey::opacity(), "GRAD", "Only font axes have an axis tag."},
    };
    for (const auto& [property, axis, expected] : cases) {
        Action action = act(property, to(number(1)));
        action.axis = axis;
        EXPECT_EQ(action.axisProblem().value_or(""), expected) << axis.value_or("none");
    }
}

TEST_F(ActionProblemTest, AboutPoints) {
    const std::string finite = L10n::text("model.lens.validation.aboutFinite");
    const std::string scaleOnly = L10n::text("model.lens.validation.aboutScaleOnly");
    const std::string positive = L10n::text("model.lens.validation.aboutPositiveScale");
    // Property, about point, the value it goes to, on the lens, and the problem.
    const std::tuple<PropertyKey, std::optional<CGPoint>, double, bool, std::string> cases[] = {
        {PropertyKey::opacity(), std::nullopt, 2, true, ""},
        {PropertyKey::scale(), CGPoint{nan, 0}, 2, false, finite},
        {PropertyKey::scale(), CGPoint{0, infinity}, 2, true, finite},
        {PropertyKey::opacity(), CGPoint{1, 2}, 2, false, ""},
        {PropertyKey::opacity(), CGPoint{1, 2}, 2, true, scaleOnly},
        {PropertyKey::scale(), CGPoint{1, 2}, 0, true, positive}, {PropertyKey::scale(), CGPoint{1, 2}, 2, true, ""},
    };
    for (const auto& [property, about, value, onLens, expected] : cases) {
        Action action = act(property, to(number(value)));
        action.about = about;
        EXPECT_EQ(action.aboutProblem(onLens).value_or(""), expected) << property.name() << " " << onLens;
    }
}

TEST_F(ActionProblemTest, LooksMoveOnlyTheirEffectsByThreeModes) {
    EXPECT_EQ(LookActions::properties(), std::vector<PropertyKey>{PropertyKey::effect()});
    EXPECT_FALSE(LookActions::refuses(PropertyKey::effect()));
    EXPECT_EQ(LookActions::refuses(PropertyKey::opacity()),
              "A look can only change the numbers of its effects (effects[i].name): add Opacity to a screenshot, "
              "recording or object.");
    for (const ActionMode& allowed : {to(number(1)), swing(number(1)), jitter(number(1))})
        EXPECT_FALSE(LookActions::refuses(allowed));
    EXPECT_EQ(LookActions::refuses(rate(number(1))),
              "A look can only change to, swing or jitter; add Keep turning to a screenshot, recording or object.");
    EXPECT_EQ(LookActions::refuses(along(2)),
              "A look can only change to, swing or jitter; add Along path to a screenshot, recording or object.");
}

} // namespace
} // namespace ovik
