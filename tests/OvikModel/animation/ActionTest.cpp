#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

#include "OvikL10n/L10n.h"
#include "OvikModel/animation/Action.h"
#include "OvikModel/animation/ActionList.h"
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

Action on(PropertyKey property) { return Action::holding(property, ActionValue::makeNumber(1)); }

TEST(ActionRest, OwnValuesComeFirstThenTheRowsRest) {
    ActionOwn own;
    own.fontAxes = {{"wght", 700}, {"GRAD", 50}};
    own.params = {{"radius", ActionValue::makeVector(3, 4)}};
    Action param = on(PropertyKey::param());
    param.param = "radius";

    Action axis = on(PropertyKey::fontAxis());
    axis.axis = "GRAD";
    Action missingAxis = axis;
    missingAxis.axis = "opsz";

    EXPECT_EQ(param.rest(own), ActionValue::makeVector(3, 4));

    EXPECT_EQ(on(PropertyKey::fontWeight()).rest(own), ActionValue::makeNumber(700));
    EXPECT_EQ(axis.rest(own), ActionValue::makeNumber(50));
    EXPECT_EQ(missingAxis.rest(own), ActionValue::makeNumber(0));
    EXPECT_EQ(on(PropertyKey::opacity()).rest(own), ActionValue::makeNumber(1));
    EXPECT_EQ(on(PropertyKey::position()).rest(own), ActionValue::makeVector(0, 0));
    EXPECT_EQ(on(PropertyKey::color()).rest(own), std::nullopt);
    EXPECT_EQ(on(*PropertyKey::named("name")).rest(own), ActionValue::makeNumber(0));
}

TEST(ActionRest, FontTags) {
    Action axis = on(PropertyKey::fontAxis());
    axis.axis = "GRAD";
    const std::pair<Action, std::optional<std::string>> cases[] = {
        {on(PropertyKey::fontWeight()), "wght"}, {on(PropertyKey::fontWidth()), "wdth"},
        {on(PropertyKey::fontSlant()), "slnt"},  {axis, "GRAD"},
        {on(PropertyKey::fontAxis()), std::nullopt}, {on(PropertyKey::opacity()), std::nullopt},
    };
    for (const auto& [action, tag] : cases) EXPECT_EQ(action.fontTag(), tag) << action.property.name();
}

TEST(ActionFactories, HoldingHeldAndBecome) {
    EXPECT_EQ(encodeJSON(Action::holding(PropertyKey::text(), ActionValue::makeText("a"))).compact(),
              R"({"curve":"linear","mode":{"to":{"from":{"text":"a"},"to":{"text":"a"}}},"property":"text",)"
              R"("range":"whole"})");
    EXPECT_EQ(encodeJSON(Action::held(PropertyKey::opacity(), 0.5)).compact(),
              R"({"curve":"smooth","mode":{"to":{"from":{"number":0.5},"to":{"number":0.5}}},"property":"opacity",)"
              R"("range":"whole","scope":"whole"})");
    const ActionRange range{{}, ActionRange::opening{MediaDuration{0}, MediaDuration{800}}};
    const Action become = Action::become(ObjectID{}, range, ActionCurve{{}, ActionCurve::overshoot{}});
    EXPECT_EQ(encodeJSON(become).compact(),
              R"({"curve":"overshoot","into":")" + ObjectID{}.description() +
                  R"(","mode":{"to":{"from":{"number":0},"to":{"number":1}}},"property":"become",)"
                  R"("range":{"opening":{"length":800}}})");
    EXPECT_FALSE(become.problem());
}

TEST(ActionFactories, ShiftingMovesOnlyMomentRanges) {
    Action between = on(PropertyKey::opacity());
    between.range.cases = ActionRange::between{SourceTime{10}, SourceTime{20}};
    EXPECT_EQ(between.shifted(MediaDuration{-15}).range.as<ActionRange::between>(),
              (ActionRange::between{SourceTime{-5}, SourceTime{5}}));
    Action opening = on(PropertyKey::opacity());
    opening.range.cases = ActionRange::opening{MediaDuration{1}, MediaDuration{2}};
    EXPECT_EQ(opening.shifted(MediaDuration{100}), opening);
}

Action over(ActionRange range) {
    Action action;
    action.range = std::move(range);
    return action;
}
Action over(ActionRange::opening range) { return over(ActionRange{{}, range}); }
Action over(ActionRange::closing range) { return over(ActionRange{{}, range}); }
Action between(std::int64_t start, std::int64_t end) {
    return over(ActionRange{{}, ActionRange::between{SourceTime{start}, SourceTime{end}}});
}
Action whole() { return over(ActionRange{{}, ActionRange::whole{}}); }

MediaDuration us(std::int64_t count) { return MediaDuration{count}; }

TEST(ActionList, EntranceAndExitLengthsTakeTheLongest) {
    const std::vector<Action> actions = {over(ActionRange::opening{us(100), us(300)}),
                                         over(ActionRange::opening{us(0), us(350)}),
                                         over(ActionRange::closing{us(500), us(100)}),
                                         over(ActionRange::closing{us(0), us(550)}), between(0, 9000)};
    EXPECT_EQ(entranceLength(actions), us(400));
    EXPECT_EQ(exitLength(actions), us(600));
    EXPECT_EQ(entranceLength({between(0, 9000)}), us(0));
}

TEST(ActionList, BeyondBasicsSplitsByRange) {
    // What, the action, and whether it goes to the earlier and to the later half.
    const std::tuple<const char*, Action, bool, bool> cases[] = {
        {"opening", over(ActionRange::opening{us(0), us(10)}), true, false},
        {"closing", over(ActionRange::closing{us(0), us(10)}), false, true}, {"whole", whole(), true, true},
        {"between before", between(0, 100), true, false}, {"between ending at the split", between(0, 500), true, false},
        {"between across", between(0, 501), true, true}, {"between from the split", between(500, 900), false, true},
        {"between after", between(600, 900), false, true}, {"reversed after", between(600, 100), false, true},
    };
    for (const auto& [name, action, earlier, later] : cases) {
        const SplitActions halves = beyondBasics({action}, SourceTime{500});
        EXPECT_EQ(halves.earlier.size(), earlier ? 1u : 0u) << name;
        EXPECT_EQ(halves.later.size(), later ? 1u : 0u) << name;
    }
}

TEST(ActionList, BeyondBasicsKeepsListOrder) {
    const std::vector<Action> actions = {between(0, 900), whole(), between(100, 200)};
    const SplitActions halves = beyondBasics(actions, SourceTime{500});
    EXPECT_EQ(halves.earlier, actions);
    EXPECT_EQ(halves.later, (std::vector<Action>{actions[0], actions[1]}));
}

// Opacity to 1, linearly, over the whole life: each case below changes one thing of it.
Action base() { return Action::holding(PropertyKey::opacity(), ActionValue::makeNumber(1)); }

using Change = void (*)(Action&);

TEST(ActionSortKey, EachFieldOrdersInItsTurn) {
    // Each pair must sort earlier first, whatever else the keys hold.
    const std::tuple<const char*, Change, Change> pairs[] = {
        {"opening before closing", [](Action& a) { a.range.cases = ActionRange::opening{}; },
         [](Action& a) { a.range.cases = ActionRange::closing{}; }},
        {"closing before whole", [](Action& a) { a.range.cases = ActionRange::closing{}; }, [](Action&) {}},
        {"whole before between", [](Action&) {}, [](Action& a) { a.range.cases = ActionRange::between{}; }},
        {"delay before length", [](Action& a) { a.range.cases = ActionRange::opening{MediaDuration{0}, MediaDuration{5}}; },
         [](Action& a) { a.range.cases = ActionRange::opening{MediaDuration{1}, MediaDuration{0}}; }},
        {"range before property", [](Action& a) { a.range.cases = ActionRange::closing{}; },
         [](Action& a) { a.property = PropertyKey::position(); }},
        {"property by rank", [](Action& a) { a.property = PropertyKey::position(); }, [](Action&) {}},
        {"mode by kind", [](Action&) {},
         [](Action& a) { a.mode.cases = ActionMode::oscillate{ActionValue::makeNumber(0), 0, 0}; }},
        {"an absent from first", [](Action& a) { a.mode = to(ActionValue::makeNumber(9)); }, [](Action&) {}},
        {"values by kind", [](Action& a) { a.mode = to(ActionValue::makeNumber(9)); },
         [](Action& a) { a.mode = to(ActionValue::makeVector(0, 0)); }},
        {"numbers by value", [](Action& a) { a.mode = to(ActionValue::makeNumber(0.5)); },
         [](Action& a) { a.mode = to(ActionValue::makeNumber(1)); }},
        {"curve by kind", [](Action& a) { a.curve.cases = ActionCurve::spring{900, 90}; }, [](Action&) {}},
        {"spring by stiffness", [](Action& a) { a.curve.cases = ActionCurve::spring{200, 90}; },
         [](Action& a) { a.curve.cases = ActionCurve::spring{300, 10}; }},
        {"scope each first", [](Action&) {}, [](Action& a) { a.scope = ActionScope::whole; }},
        {"no stagger first", [](Action&) {}, [](Action& a) { a.stagger = MediaDuration{0}; }},
        {"wipe before circle", [](Action& a) { a.shape = RevealShape{{}, RevealShape::wipe{90}}; },
         [](Action& a) { a.shape = RevealShape{{}, RevealShape::circle{}}; }},
        {"a prefix first", [](Action&) {}, [](Action& a) { a.about = CGPoint{0, 0}; }},
        {"words after numbers", [](Action& a) { a.param = "b", a.mode = to(ActionValue::makeNumber(0.5)); },
         [](Action& a) { a.param = "a"; }},
        {"words in order", [](Action& a) { a.axis = "GRAD"; }, [](Action& a) { a.axis = "wght"; }},
    };
    for (const auto& [what, earlier, later] : pairs) {
        Action a = base(), b = base();
        earlier(a);
        later(b);
        EXPECT_LT(a.sortKey(), b.sortKey()) << what;
        EXPECT_FALSE(b.sortKey() < a.sortKey()) << what;
    }
}

TEST(ActionSortKey, AnAuthorTagDoesNotCount) {
    Action tagged = base();
    tagged.by = "script";
    tagged.term = "x";
    EXPECT_EQ(tagged.sortKey(), base().sortKey());
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
        {fade(), ""}, {act(P::position(), to(number(0.5))), vectorKind},
        {act(P::color(), to(number(0.5))), "The value of Colour must be a Colour."},
        {act(P::opacity(), to(number(nan))), finite},
        {act(P::text(), swing(ActionValue::makeText("a"))), "Text can't swing."},
        {act(P::color(), jitter(ActionValue::makeColor(RGBA{}))), "Colour can't jitter."},
        {act(P::position(), swing(number(1))), amplitude}, {act(P::opacity(), swing(number(0.1), -1)), frequency},
        {act(P::opacity(), jitter(number(0.1), -0.5)), frequency}, {act(P::opacity(), jitter(number(0.1))), ""},
        {act(P::text(), rate(ActionValue::makeText("a"))), "Text can't change continuously."},
        {act(P::position(), rate(number(1))), "The rate must be a [dx, dy]."},
        {act(P::opacity(), along(2)), "Only position can move along a path."},
        {act(P::position(), along(1)), L10n::text("model.path.validation.minimumPoints")},
        {act(P::position(), along(2)), ""}, {act(P::opacity(), to(number(1)), ActionCurve::spring{0, 10}), spring},
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
        {PropertyKey::opacity(), std::nullopt, 2, true, ""}, {PropertyKey::scale(), CGPoint{nan, 0}, 2, false, finite},
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
