#include <gtest/gtest.h>

#include <tuple>

#include "ActionSamples.h"
#include "OvikModel/animation/DraftAppearance.h"
#include "OvikModel/animation/ObjectAppearance.h"
#include "OvikModel/time/DraftTimeline.h"
#include "../time/TimeSamples.h"

namespace ovik {
namespace {

using namespace testing;

TEST(ActionState, PlainAndInDepth) {
    // key, value, plain, inDepth
    const std::tuple<PropertyKey, double, bool, bool> cases[] = {
        {PropertyKey::stretchX(), 2, false, false}, {PropertyKey::skew(), 1, false, false},
        {PropertyKey::blur(), -1, true, false},     {PropertyKey::blur(), 1, false, false},
        {PropertyKey::depth(), 5, true, true},      {PropertyKey::rotationY(), 0.2, true, true},
        {PropertyKey::scale(), 3, true, false},
    };
    for (const auto& [key, value, plain, inDepth] : cases) {
        ActionState state = ActionState::rest();
        state[key] = value;
        EXPECT_EQ(state.isPlain(), plain) << key.name();
        EXPECT_EQ(state.isInDepth(), inDepth) << key.name();
    }
    EXPECT_TRUE(ActionState::rest().isPlain());
    EXPECT_FALSE(ActionState::rest().isInDepth());
    EXPECT_EQ(ActionState::rest()[PropertyKey::text()], 0); // a key without a number place
}

TEST(ActionState, SettingsKeepOnlyWhatConfigures) {
    ActionState state = ActionState::rest();
    state.setOffset(CGVector{3, 4});
    state[PropertyKey::arrangeAngle()] = 30;
    state.effectShifts[EffectAddress{1, "amount"}] = 0.5;
    state.paramMoves["radius"].value = ActionValue::makeNumber(2);
    const ActionState settings = state.settings();
    EXPECT_EQ(settings.offset(), (CGVector{0, 0}));
    EXPECT_EQ(settings[PropertyKey::arrangeAngle()], 30);
    EXPECT_EQ(settings.effectShifts, state.effectShifts);
    EXPECT_EQ(settings.paramMoves, state.paramMoves);
}

TEST(ActionState, CombinedAddsMultipliesAndLayers) {
    ActionState child = ActionState::rest(), parent = ActionState::rest();
    child.setOffset(CGVector{1, 2});
    parent.setOffset(CGVector{10, 20});
    child[PropertyKey::scale()] = 2;
    parent[PropertyKey::scale()] = 3;
    child.color(PropertyKey::color()) = RGBA{0, 0, 1, 1};
    parent.color(PropertyKey::color()) = RGBA{1, 0, 0, 0.5};
    child.latestValue(PropertyKey::become()) = ActionValue::makeNumber(0.25);
    parent.latestValue(PropertyKey::become()) = ActionValue::makeNumber(0.75);
    parent.latestValue(PropertyKey::text()) = ActionValue::makeText("parent");
    child.fontAxes["wght"] = 100;
    parent.fontAxes["wght"] = 50;
    child.paramMoves["r"] = {ActionValue::makeNumber(1), ActionValue::makeNumber(1)};
    parent.paramMoves["r"] = {ActionValue::makeNumber(9), ActionValue::makeNumber(2)};
    const ActionState both = child.combined(parent);
    EXPECT_EQ(both.offset(), (CGVector{11, 22}));
    EXPECT_EQ(both[PropertyKey::scale()], 6);
    EXPECT_EQ(both.color(PropertyKey::color()), (RGBA{0.5, 0, 0.5, 1}));
    EXPECT_EQ(both.latestValue(PropertyKey::become()), ActionValue::makeNumber(0.25));
    EXPECT_EQ(both.latestValue(PropertyKey::text()), ActionValue::makeText("parent"));
    EXPECT_EQ(both.fontAxes.at("wght"), 150);
    EXPECT_EQ(both.paramMoves.at("r"), (ActionState::ParamMove{ActionValue::makeNumber(9), ActionValue::makeNumber(3)}));
}

TEST(ActionState, SourceOverOfColours) {
    EXPECT_EQ(ActionState::over(RGBA{1, 0, 0, 2}, std::nullopt), (RGBA{1, 0, 0, 1}));
    EXPECT_EQ(ActionState::over(RGBA{1, 0, 0, 0}, RGBA{0, 0, 1, 0}), (RGBA{}));
    EXPECT_EQ(ActionState::over(RGBA{1, 1, 1, 0.5}, RGBA{0, 0, 0, 0.5}), (RGBA{2.0 / 3, 2.0 / 3, 2.0 / 3, 0.75}));
}

TEST(ActionState, ParamViewsReplaceTheirOwnField) {
    ActionState state = ActionState::rest();
    state.paramMoves["a"] = {ActionValue::makeNumber(1), std::nullopt};
    state.paramMoves["b"] = {ActionValue::makeNumber(2), ActionValue::makeNumber(3)};
    state.setParamValues({{"c", ActionValue::makeNumber(4)}});
    EXPECT_EQ(state.paramValues(), (std::map<std::string, ActionValue>{{"c", ActionValue::makeNumber(4)}}));
    EXPECT_EQ(state.paramOffsets(), (std::map<std::string, ActionValue>{{"b", ActionValue::makeNumber(3)}}));
    EXPECT_FALSE(state.paramMoves.contains("a"));
}

TEST(ActionState, AccumulatedLatestValuesKeepOnlyTheirKind) {
    const auto latest = [](PropertyKey key, ActionValue value) {
        return evaluate({action(key, toMode(value, value), whole())}, clockAt(1)).latestValue(key);
    };
    EXPECT_EQ(latest(PropertyKey::text(), ActionValue::makeText("hi")), ActionValue::makeText("hi"));
    EXPECT_FALSE(latest(PropertyKey::text(), ActionValue::makeNumber(1)));
    EXPECT_FALSE(latest(PropertyKey::path(), ActionValue::makePath(BezierPath{})));
    EXPECT_EQ(latest(PropertyKey::number(), ActionValue::makeNumber(7)), ActionValue::makeNumber(7));
}

TEST(ObjectAppearance, ReadsTheStateAndDrawsOnlyADrawableOutline) {
    ActionState state = ActionState::rest();
    state[PropertyKey::opacity()] = 0.5;
    state[PropertyKey::strokeProgress()] = 0.25;
    state[PropertyKey::strokeStart()] = 0.1;
    state.latestValue(PropertyKey::text()) = ActionValue::makeText("12");
    const ObjectAppearance drawn(state, true), faded(state, false);
    EXPECT_EQ(drawn.opacity, 0.5);
    EXPECT_EQ(drawn.drawn, 0.25);
    EXPECT_EQ(drawn.strokeStart, 0.1);
    EXPECT_EQ(drawn.text, "12");
    EXPECT_EQ(faded.drawn, 1);
    EXPECT_EQ(faded.strokeStart, 0);
    EXPECT_TRUE(ObjectAppearance(ActionState::rest(), true).isFull());
    EXPECT_FALSE(drawn.isFull());
    EXPECT_TRUE(drawn.isPlain());
}

TEST(ObjectAppearance, CarriesSettingsOnlyWhenSomethingConfigures) {
    ActionState moved = ActionState::rest();
    moved.setOffset(CGVector{3, 4});
    ActionState arranged = moved;
    arranged[PropertyKey::arrangeAngle()] = 30;
    ActionState shifted = moved;
    shifted.effectShifts[EffectAddress{0, "amount"}] = 0.5;
    // what, state, held
    const std::tuple<const char*, const ActionState&, bool> cases[] = {
        {"a move only", moved, false}, {"a setting number", arranged, true}, {"an effect shift", shifted, true}};
    for (const auto& [what, state, held] : cases) {
        const ObjectAppearance look(state, true);
        EXPECT_EQ(look.settings.has_value(), held) << what;
        EXPECT_EQ(look.settingsState(), state.settings()) << what;
    }
}

// A still section of 4 s, then one of 6 s: the second plays from film second 4.
Draft twoStills(ObjectNode node) {
    Draft draft = draftOf({stillSection(1, 4'000'000), stillSection(2, 6'000'000)});
    draft.isAnimation = true;
    draft.objects = CowList<ObjectNode>({std::move(node)});
    return draft;
}

ObjectNode fadingNode(std::optional<Timing> timing) {
    ObjectNode node;
    node.section = sectionID(2);
    node.timing = timing;
    node.content = ObjectContent::makeAnnotation(Annotation{{}, Annotation::followPoint{}});
    node.actions = {action(PropertyKey::opacity(), toNumber(1, 0), opening(0, 2))};
    return node;
}

TEST(DraftAppearance, AnUntimedObjectLivesAsLongAsItsSection) {
    const ObjectNode node = fadingNode(std::nullopt);
    const Draft draft = twoStills(node);
    EXPECT_FALSE(rawAppearance(draft, node, OutputTime::fromSeconds(3)));
    EXPECT_NEAR(rawAppearance(draft, node, OutputTime::fromSeconds(5))->opacity, 0.5, 1e-12);
    // The end of the draft still shows it.
    EXPECT_EQ(rawAppearance(draft, node, OutputTime::fromSeconds(10))->opacity, 1);
    EXPECT_TRUE(rawMotion(draft, node, OutputTime::fromSeconds(3), true));
}

TEST(DraftAppearance, ATextsAxisActionsShiftFromItsOwnAxes) {
    ObjectNode node = fadingNode(std::nullopt);
    TextAnnotation text;
    text.axes.values[FontAxes::weight] = 400;
    node.content = ObjectContent::makeAnnotation(Annotation{{}, Annotation::text{text}});
    node.actions = {action(PropertyKey::fontWeight(), toNumber(500), opening(0, 2))};
    const Draft draft = twoStills(node);
    EXPECT_EQ(rawAppearance(draft, node, OutputTime::fromSeconds(6))->fontAxes,
              (std::map<std::string, double>{{"wght", 100}}));
}

TEST(DraftAppearance, ATimedObjectLivesOverItsTiming) {
    const ObjectNode node = fadingNode(Timing{sourceAt(2), sourceAt(5)});
    const Draft draft = twoStills(node);
    EXPECT_FALSE(rawAppearance(draft, node, OutputTime::fromSeconds(5.5)));
    EXPECT_EQ(rawAppearance(draft, node, OutputTime::fromSeconds(6))->opacity, 0);
    EXPECT_NEAR(rawAppearance(draft, node, OutputTime::fromSeconds(6.5))->opacity, 0.25, 1e-12);
    EXPECT_FALSE(rawAppearance(draft, node, OutputTime::fromSeconds(9)));
    const auto motion = rawMotion(draft, node, OutputTime::fromSeconds(6.5));
    EXPECT_EQ(motion->clock->life, (OutputRange{OutputTime::fromSeconds(6), OutputTime::fromSeconds(9)}));
    EXPECT_EQ(motion->clock->time, sourceAt(2.5));
}

TEST(DraftAppearance, SectionActionsRunOverTheSectionsLife) {
    const Draft draft = twoStills(ObjectNode{});
    const auto line = DraftTimeline::make(draft.sections.items());
    const std::vector<Action> lens = {action(PropertyKey::scale(), toNumber(2, 1), whole())};
    EXPECT_NEAR(timelineState(*line, lens, sectionID(2), OutputTime::fromSeconds(7), sourceAt(3))[PropertyKey::scale()],
                1.5, 1e-12);
    EXPECT_EQ(timelineState(*line, {}, sectionID(2), OutputTime::fromSeconds(7), sourceAt(3)), ActionState::rest());
    // No such section: a still moment, at which `whole` has no life to run over.
    EXPECT_EQ(timelineState(*line, lens, sectionID(9), OutputTime::fromSeconds(7), sourceAt(3)), ActionState::rest());
}

} // namespace
} // namespace ovik
