#include <gtest/gtest.h>

#include <tuple>

#include "OvikModel/animation/Action.h"
#include "OvikModel/animation/ActionList.h"

namespace ovik {
namespace {

Action on(PropertyKey property) { return Action::holding(property, ActionValue::makeNumber(1)); }

TEST(ActionRest, OwnValuesComeFirstThenTheRowsRest) {
    ActionOwn own;
    own.fontAxes = {{"wght", 700}, {"GRAD", 50}};
    own.params = {{"radius", ActionValue::makeVector(3, 4)}};
    Action param = on(PropertyKey::param());
    param.param = "radius";
    Action unknownParam = param;
    unknownParam.param = "spin";
    Action axis = on(PropertyKey::fontAxis());
    axis.axis = "GRAD";
    Action missingAxis = axis;
    missingAxis.axis = "opsz";

    EXPECT_EQ(param.rest(own), ActionValue::makeVector(3, 4));
    EXPECT_EQ(unknownParam.rest(own), ActionValue::makeNumber(0));
    EXPECT_EQ(on(PropertyKey::fontWeight()).rest(own), ActionValue::makeNumber(700));
    EXPECT_EQ(axis.rest(own), ActionValue::makeNumber(50));
    EXPECT_EQ(missingAxis.rest(own), ActionValue::makeNumber(0));
    EXPECT_EQ(on(PropertyKey::fontWeight()).rest(ActionOwn::none()), ActionValue::makeNumber(0));
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
    const Action holding = Action::holding(PropertyKey::text(), ActionValue::makeText("a"));
    EXPECT_EQ(encodeJSON(holding).compact(),
              R"({"curve":"linear","mode":{"to":{"from":{"text":"a"},"to":{"text":"a"}}},"property":"text","range":"whole"})");
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
    EXPECT_EQ(exitLength({}), us(0));
}

TEST(ActionList, BeyondBasicsSplitsByRange) {
    // name, action, earlier, later
    const std::tuple<const char*, Action, bool, bool> cases[] = {
        {"opening", over(ActionRange::opening{us(0), us(10)}), true, false},
        {"closing", over(ActionRange::closing{us(0), us(10)}), false, true}, {"whole", whole(), true, true},
        {"between before", between(0, 100), true, false},
        {"between ending at the split", between(0, 500), true, false},
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

ActionMode to(ActionValue value) { return ActionMode{{}, ActionMode::to{std::nullopt, std::move(value)}}; }

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
        {"texts are words", [](Action& a) { a.mode = to(ActionValue::makeText("a")); },
         [](Action& a) { a.mode = to(ActionValue::makeText("b")); }},
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

} // namespace
} // namespace ovik
