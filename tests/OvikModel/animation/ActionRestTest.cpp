#include <gtest/gtest.h>

#include "OvikModel/animation/Action.h"

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

} // namespace
} // namespace ovik
