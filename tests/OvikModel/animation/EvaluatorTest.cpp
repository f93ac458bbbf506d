#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <tuple>

#include "../time/TimeSamples.h"
#include "ActionSamples.h"
#include "OvikModel/animation/DraftAppearance.h"
#include "OvikModel/animation/ObjectAppearance.h"
#include "OvikModel/animation/PathSampling.h"
#include "OvikModel/time/DraftTimeline.h"

namespace ovik {
namespace {

using namespace testing;
using Kind = ActionEvaluator::Phase::Kind;

TEST(ActionEvaluator, NumbersAtAMoment) {
    using P = PropertyKey;
    const auto rotation = [](double to, std::optional<double> from, ActionRange range) {
        return action(P::rotation(), toNumber(to, from), std::move(range));
    };
    const auto fadeIn = action(P::opacity(), toNumber(1, 0), opening(0, 1));
    const auto fadeOut = action(P::opacity(), toNumber(0), closing(0, 1));
    const auto drift = [](double rate) {
        return action(P::blur(), ActionMode{{}, ActionMode::continuous{ActionValue::makeNumber(rate)}}, whole());
    };
    Action zoom = action(P::scale(), toNumber(4, 1), between(0, 2));
    Action zoomAbout = zoom;
    zoomAbout.about = CGPoint{10, 20};
    const ActionValue red = ActionValue::makeColor(RGBA{1, 0, 0, 1});
    const ActionMode swell{{}, ActionMode::oscillate{ActionValue::makeNumber(0.5), 0.25, 0}};
    const std::vector<Action> squeezable = {action(P::opacity(), toNumber(1, 0), opening(1, 1)),
                                            action(P::opacity(), toNumber(0), closing(0, 2))};
    const std::vector<Action> twoFades = {action(P::opacity(), toNumber(1, 0), opening(0, 2)),
                                          action(P::opacity(), toNumber(0.5, 1), whole())};
    const Action turn = rotation(100, 0, between(0, 2));
    const std::vector<Action> interrupted = {turn, rotation(200, {}, between(1, 3))};
    const std::vector<Action> twoTracks = {turn, rotation(200, 0, between(1, 3))};
    // What, the actions, the moment in a life from 0 to `end`, and the number of `key` then.
    const std::tuple<const char*, std::vector<Action>, double, double, PropertyKey, double> cases[] = {
        // An entrance and an exit longer than the life both play at the same shorter length.
        {"squeezed entrance", {fadeIn, fadeOut}, 0.25, 1, P::opacity(), 0.5},
        {"squeezed exit", {fadeIn, fadeOut}, 0.75, 1, P::opacity(), 0.5},
        {"room for both", {fadeIn, fadeOut}, 0.25, 10, P::opacity(), 0.25},
        {"squeezed delay", squeezable, 0.75, 2, P::opacity(), 0.5},
        {"no length, before its delay", {rotation(90, 0, opening(0.5, 0))}, 0.49, 10, P::rotation(), 0},
        {"no length, at its delay", {rotation(90, 0, opening(0.5, 0))}, 0.5, 10, P::rotation(), 90},
        {"opacities multiply", twoFades, 1, 4, P::opacity(), 0.5 * 0.875},
        {"opacity stays within 0...1", {action(P::opacity(), toNumber(1.5, 1.5), whole())}, 1, 4, P::opacity(), 1},
        {"an offset multiplies by one more", {action(P::scale(), swell, whole())}, 1, 10, P::scale(), 1.5},
        // A later move without `from` carries on from the value the earlier one reached.
        {"before the interruption", interrupted, 0.5, 10, P::rotation(), 25},
        {"interrupted", interrupted, 2, 10, P::rotation(), 125},
        {"after the interruption", interrupted, 3, 10, P::rotation(), 200},
        // A `from` elsewhere starts a second track; both count once it has started.
        {"second track", twoTracks, 2, 10, P::rotation(), 200},
        {"second track waits", twoTracks, 0.5, 10, P::rotation(), 25},
        {"from the reached value", {turn, rotation(200, 50, between(1, 3))}, 2, 10, P::rotation(), 125},
        {"from the reached value, rounded", {turn, rotation(200, 50.00000001, between(1, 3))}, 2, 10, P::rotation(), 125},
        {"a colour on rotation", {action(P::rotation(), toMode(red, red), whole())}, 1, 10, P::rotation(), 0},
        {"blur driven below zero", {drift(-3)}, 1, 2, P::blur(), 0},
        {"blur driven to the end", {drift(3)}, 5, 2, P::blur(), 6}, {"a zoom", {zoom}, 1, 10, P::scale(), 2.5},
        {"a zoom about a point moves by equal ratios", {zoomAbout}, 1, 10, P::scale(), 2},
    };
    for (const auto& [what, actions, now, end, key, value] : cases)
        EXPECT_NEAR(evaluate(actions, clockAt(now, 0, end))[key], value, 1e-6) << what;
}

TEST(ActionEvaluator, PhasesOfEachRange) {
    // Range, moment, and the phase and progress there.
    const std::tuple<ActionRange, double, Kind, double> cases[] = {
        {opening(1, 2), 0.5, Kind::before, 0}, {opening(1, 2), 1.5, Kind::during, 0.25},
        {opening(1, 2), 3, Kind::done, 1},     {closing(1, 2), 6, Kind::before, 0},
        {closing(1, 2), 8.5, Kind::during, 0.75}, {closing(1, 2), 9, Kind::done, 1},
        {closing(1, 0), 8.9, Kind::before, 0}, {closing(1, 0), 9, Kind::done, 1},
        {whole(), 2.5, Kind::during, 0.25},    {whole(), 10, Kind::done, 1},
        {between(4, 6), 5.5, Kind::during, 0.75}, {between(4, 6), 6, Kind::done, 1},
    };
    for (const auto& [range, now, kind, progress] : cases) {
        const auto phase = ActionEvaluator::phase(action(PropertyKey::rotation(), toNumber(1), range), clockAt(now),
                                                  std::nullopt);
        ASSERT_TRUE(phase) << now;
        EXPECT_EQ(phase->kind, kind) << now;
        EXPECT_NEAR(phase->progress, progress, 1e-12) << now;
    }
}

TEST(ActionEvaluator, RangesThatNeedAFilmMomentAnswerNothingOnAStill) {
    const ActionClock still = ActionClock::still(sourceAt(5));
    EXPECT_FALSE(ActionEvaluator::phase(action(PropertyKey::rotation(), toNumber(1), opening(0, 1)), still, std::nullopt));
    EXPECT_FALSE(ActionEvaluator::phase(action(PropertyKey::rotation(), toNumber(1), whole()), still, std::nullopt));
    // A wobble between moments runs on the film clock: on a still it is before or done.
    ActionMode wobble{{}, ActionMode::oscillate{ActionValue::makeNumber(1), 1, 0}};
    const auto early = ActionEvaluator::phase(action(PropertyKey::rotation(), wobble, between(6, 8)), still, std::nullopt);
    const auto late = ActionEvaluator::phase(action(PropertyKey::rotation(), wobble, between(1, 5)), still, std::nullopt);
    EXPECT_EQ(early->kind, Kind::before);
    EXPECT_EQ(late->kind, Kind::done);
}

TEST(ActionEvaluator, AnOutlineThatCannotDrawFadesInstead) {
    const std::vector<Action> drawing = {action(PropertyKey::strokeProgress(), toNumber(1, 0), opening(0, 2)),
                                         action(PropertyKey::strokeStart(), toNumber(0.3, 0.3), whole())};
    const ActionState fading = evaluate(drawing, clockAt(1), true);
    EXPECT_NEAR(fading[PropertyKey::opacity()], 0.5, 1e-12);
    EXPECT_EQ(fading[PropertyKey::strokeProgress()], 1);
    EXPECT_EQ(fading[PropertyKey::strokeStart()], 0);
    EXPECT_NEAR(evaluate(drawing, clockAt(1), false)[PropertyKey::strokeProgress()], 0.5, 1e-12);
}

TEST(ActionEvaluator, FontAxesShiftFromTheObjectsOwnValue) {
    ActionOwn own;
    own.fontAxes["wght"] = 400;
    const auto weight = [](double to) { return action(PropertyKey::fontWeight(), toNumber(to), whole()); };
    EXPECT_TRUE(evaluate({weight(0)}, clockAt(1)).fontAxes.empty());
    EXPECT_TRUE(evaluate({weight(400)}, clockAt(20), false, own).fontAxes.empty());
    EXPECT_EQ(evaluate({weight(500)}, clockAt(20), false, own).fontAxes, (std::map<std::string, double>{{"wght", 100}}));
}

TEST(ActionEvaluator, WobblesAddAroundRest) {
    const Action wobble = action(PropertyKey::position(),
                                 ActionMode{{}, ActionMode::oscillate{ActionValue::makeVector(10, 4), 0.25, 0}}, whole());
    const CGVector offset = evaluate({wobble}, clockAt(1)).offset();
    EXPECT_NEAR(offset.dx, 10, 1e-9);
    EXPECT_NEAR(offset.dy, 4, 1e-9);
    // Done, a wobble leaves nothing behind.
    EXPECT_EQ(evaluate({wobble}, clockAt(11)), ActionState::rest());
}

TEST(ActionEvaluator, ATravelAlongAPathOffsetsFromItsFirstPoint) {
    BezierPath path;
    path.anchors = {anchor(5, 5), anchor(15, 5), anchor(15, 25)};
    const Action travel = action(PropertyKey::position(), ActionMode{{}, ActionMode::alongPath{path}}, whole());
    EXPECT_EQ(evaluate({travel}, clockAt(1, 2, 5)).offset(), (CGVector{0, 0}));
    EXPECT_NEAR(evaluate({travel}, clockAt(1, 0, 3)).offset().dx, 10, 1e-9);
    EXPECT_EQ(evaluate({travel}, clockAt(4, 0, 3)).offset(), (CGVector{10, 20}));
}

TEST(ActionEvaluator, ActionsOfATermMoveOnlyThatTerm) {
    Action termed = action(PropertyKey::rotation(), toNumber(30, 30), whole());
    termed.term = "x";
    const std::vector<Action> actions = {termed, action(PropertyKey::rotation(), toNumber(5, 5), whole())};
    EXPECT_EQ(evaluate(actions, clockAt(1))[PropertyKey::rotation()], 5);
    EXPECT_EQ(ActionEvaluator::state(actions, clockAt(1), false, "x", ActionOwn::none())[PropertyKey::rotation()], 30);
}

TEST(ActionEvaluator, TransitionSidesCountAgainstTheTransitionsLength) {
    const std::vector<Action> fade = {action(PropertyKey::opacity(), toNumber(0), closing(0, 1)),
                                      action(PropertyKey::rotation(), toNumber(90, 0), whole())};
    EXPECT_NEAR(ActionEvaluator::stateOfTransition(fade, 0.5, secs(2))[PropertyKey::rotation()], 45, 1e-12);
    const ActionState late = ActionEvaluator::stateOfTransition(fade, 0.75, secs(2));
    EXPECT_NEAR(late[PropertyKey::opacity()], 0.5, 1e-12);

    // The time into a transition rounds to the microsecond, halves up: 1.5 µs of 3 is 2.
    const std::vector<Action> turn = {action(PropertyKey::rotation(), toNumber(90, 0), opening(0, 0.000003))};
    EXPECT_NEAR(ActionEvaluator::stateOfTransition(turn, 0.5, MediaDuration{3})[PropertyKey::rotation()], 60, 1e-9);
}

std::vector<Action> mixedActions() {
    Action red = action(PropertyKey::color(), toMode(ActionValue::makeColor(RGBA{1, 0, 0, 0.5})), whole());
    Action blue = action(PropertyKey::color(), toMode(ActionValue::makeColor(RGBA{0, 0, 1, 0.5})), opening(0, 1));
    Action label = action(PropertyKey::text(), toMode(ActionValue::makeText("b"), ActionValue::makeText("a")), whole());
    Action other = action(PropertyKey::text(), toMode(ActionValue::makeText("d"), ActionValue::makeText("c")), opening(0, 1));
    return {red, blue, label, other, action(PropertyKey::rotation(), toNumber(100, 0), between(0, 2)),
            action(PropertyKey::rotation(), toNumber(200), between(1, 3)),
            action(PropertyKey::opacity(), toNumber(1, 0), opening(0, 2)),
            action(PropertyKey::scale(), ActionMode{{}, ActionMode::noise{ActionValue::makeNumber(0.2), 3, 42, 0.5}},
                   whole())};
}

TEST(ActionEvaluator, TheOrderOfTheListDoesNotMatter) {
    const std::vector<Action> actions = mixedActions();
    const ActionState expected = evaluate(actions, clockAt(1.3));
    std::mt19937 shuffler(7);
    for (int round = 0; round < 20; ++round) {
        std::vector<Action> shuffled = actions;
        std::shuffle(shuffled.begin(), shuffled.end(), shuffler);
        EXPECT_EQ(evaluate(shuffled, clockAt(1.3)), expected) << round;
    }
}

TEST(ActionNoise, IsBoundedAndZeroOnTheLattice) {
    double smallest = 0, largest = 0;
    for (std::uint64_t seed : {0ull, 1ull, 0xFFFFFFFFFFFFFFFFull}) {
        for (double x = -50; x < 50; x += 0.137) {
            const double n = ActionEvaluator::noise(x, seed);
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
    for (double bad : {NAN, INFINITY, -INFINITY}) EXPECT_EQ(ActionEvaluator::noise(bad, 3), 0);
    // Far beyond the lattice limit the answer is still a number.
    EXPECT_TRUE(std::isfinite(ActionEvaluator::noise(1e300, 3)));
}

TEST(ActionBlend, ValuesOfOneKind) {
    using V = ActionValue;
    // From, to, progress, and the blend.
    const std::tuple<V, V, double, V> cases[] = {
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
    for (const auto& [a, b, t, expected] : cases) EXPECT_EQ(ActionEvaluator::blend(a, b, t), expected) << t;
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
    EXPECT_NEAR(closed.point(15).y, 5, 1e-9);
    EXPECT_EQ(closed.point(-1), (CGPoint{0, 0}));
    EXPECT_EQ(closed.point(99), (CGPoint{0, 0}));
    EXPECT_TRUE(PathSampling(BezierPath{}).isEmpty());
}

TEST(ActionState, PlainAndInDepth) {
    // A number set on a state at rest, and whether the state is then plain and in depth.
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
    EXPECT_EQ(latest(PropertyKey::number(), ActionValue::makeNumber(7)), ActionValue::makeNumber(7));
}

TEST(ObjectAppearance, ReadsTheStateAndDrawsOnlyADrawableOutline) {
    ActionState state = ActionState::rest();
    state[PropertyKey::opacity()] = 0.5;
    state[PropertyKey::strokeProgress()] = 0.25;
    state[PropertyKey::strokeStart()] = 0.1;
    state.latestValue(PropertyKey::text()) = ActionValue::makeText("12");
    const ObjectAppearance drawn(state, true), faded(state, false);
    EXPECT_EQ(std::pair(drawn.opacity, drawn.text), std::pair(0.5, std::optional<std::string>("12")));
    EXPECT_EQ((std::pair{drawn.drawn, drawn.strokeStart}), (std::pair{0.25, 0.1}));
    EXPECT_EQ((std::pair{faded.drawn, faded.strokeStart}), (std::pair{1.0, 0.0}));
    EXPECT_TRUE(ObjectAppearance(ActionState::rest(), true).isFull());
    EXPECT_FALSE(drawn.isFull());
}

TEST(ObjectAppearance, CarriesSettingsOnlyWhenSomethingConfigures) {
    ActionState moved = ActionState::rest();
    moved.setOffset(CGVector{3, 4});
    ActionState arranged = moved;
    arranged[PropertyKey::arrangeAngle()] = 30;
    ActionState shifted = moved;
    shifted.effectShifts[EffectAddress{0, "amount"}] = 0.5;
    // What, the state, and whether the appearance holds settings.
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

    // No such section: a still moment, at which `whole` has no life to run over.
    EXPECT_EQ(timelineState(*line, lens, sectionID(9), OutputTime::fromSeconds(7), sourceAt(3)), ActionState::rest());
}

} // namespace
} // namespace ovik
