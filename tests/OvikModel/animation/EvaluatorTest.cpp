#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "ActionSamples.h"

namespace ovik {
namespace {

using namespace testing;
using Kind = ActionEvaluator::Phase::Kind;

TEST(ActionEvaluator, EntranceAndExitLongerThanTheLifePlayAtHalfLength) {
    const std::vector<Action> fades = {action(PropertyKey::opacity(), toNumber(1, 0), opening(0, 1)),
                                       action(PropertyKey::opacity(), toNumber(0), closing(0, 1))};
    const std::vector<const Action*> both = {&fades[0], &fades[1]};
    EXPECT_DOUBLE_EQ(ActionEvaluator::squeeze(both, clockAt(0, 0, 1).life).value_or(-1), 0.5);
    EXPECT_NEAR(evaluate(fades, clockAt(0.25, 0, 1))[PropertyKey::opacity()], 0.5, 1e-12);
    EXPECT_NEAR(evaluate(fades, clockAt(0.75, 0, 1))[PropertyKey::opacity()], 0.5, 1e-12);
    // With room for both, neither is shortened.
    EXPECT_FALSE(ActionEvaluator::squeeze(both, clockAt(0, 0, 10).life));
    EXPECT_NEAR(evaluate(fades, clockAt(0.25, 0, 10))[PropertyKey::opacity()], 0.25, 1e-12);
}

// Ordering decides most pairs by the first numbers of their keys; it must agree with the
// whole keys everywhere, ties included.
TEST(ActionEvaluator, OrderingAgreesWithWholeSortKeys) {
    std::vector<Action> pool;
    for (const PropertyKey key : {PropertyKey::opacity(), PropertyKey::rotation(), PropertyKey::color()})
        for (const ActionRange& range : {opening(0, 1), opening(0.5, 1), whole(), between(1, 2), closing(0, 1)})
            for (const double to : {0.0, 1.0}) pool.push_back(action(key, toNumber(to), range));
    pool.push_back(action(PropertyKey::opacity(), toNumber(1), whole(), ActionCurve{})); // differs past the prefix
    std::mt19937 random(11);
    for (int round = 0; round < 20; ++round) {
        std::shuffle(pool.begin(), pool.end(), random);
        std::vector<const Action*> pointers;
        for (const Action& each : pool) pointers.push_back(&each);
        std::vector<const Action*> expected = pointers;
        std::stable_sort(expected.begin(), expected.end(),
                         [](const Action* a, const Action* b) { return a->sortKey() < b->sortKey(); });
        EXPECT_EQ(ActionEvaluator::ordered(pointers), expected);
    }
}

TEST(ActionEvaluator, OpeningOfNoLengthJumpsAtItsDelay) {
    const std::vector<Action> turn = {action(PropertyKey::rotation(), toNumber(90, 0), opening(0.5, 0))};
    EXPECT_EQ(evaluate(turn, clockAt(0.49))[PropertyKey::rotation()], 0);
    EXPECT_EQ(evaluate(turn, clockAt(0.5))[PropertyKey::rotation()], 90);
}

TEST(ActionEvaluator, PhasesOfEachRange) {
    struct Case {
        ActionRange range;
        double now;
        Kind kind;
        double progress;
    };
    const Case cases[] = {
        {opening(1, 2), 0.5, Kind::before, 0}, {opening(1, 2), 1.5, Kind::during, 0.25},
        {opening(1, 2), 3, Kind::done, 1},     {closing(1, 2), 6, Kind::before, 0},
        {closing(1, 2), 8.5, Kind::during, 0.75}, {closing(1, 2), 9, Kind::done, 1},
        {closing(1, 0), 8.9, Kind::before, 0}, {closing(1, 0), 9, Kind::done, 1},
        {whole(), 2.5, Kind::during, 0.25},    {whole(), 10, Kind::done, 1},
        {between(4, 6), 5.5, Kind::during, 0.75}, {between(4, 6), 6, Kind::done, 1},
    };
    for (const Case& c : cases) {
        const auto phase = ActionEvaluator::phase(action(PropertyKey::rotation(), toNumber(1), c.range), clockAt(c.now),
                                                  std::nullopt);
        ASSERT_TRUE(phase) << c.now;
        EXPECT_EQ(phase->kind, c.kind) << c.now;
        EXPECT_NEAR(phase->progress, c.progress, 1e-12) << c.now;
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

TEST(ActionEvaluator, TwoOpacityMovesMultiply) {
    const std::vector<Action> fades = {action(PropertyKey::opacity(), toNumber(1, 0), opening(0, 2)),
                                       action(PropertyKey::opacity(), toNumber(0.5, 1), whole())};
    EXPECT_NEAR(evaluate(fades, clockAt(1, 0, 4))[PropertyKey::opacity()], 0.5 * 0.875, 1e-12);
}

TEST(ActionEvaluator, ALaterMoveWithoutFromCarriesOnFromTheInterruptedValue) {
    const std::vector<Action> turns = {action(PropertyKey::rotation(), toNumber(100, 0), between(0, 2)),
                                       action(PropertyKey::rotation(), toNumber(200), between(1, 3))};
    EXPECT_NEAR(evaluate(turns, clockAt(0.5))[PropertyKey::rotation()], 25, 1e-9);
    EXPECT_NEAR(evaluate(turns, clockAt(2))[PropertyKey::rotation()], 125, 1e-9);
    EXPECT_NEAR(evaluate(turns, clockAt(3))[PropertyKey::rotation()], 200, 1e-9);
}

TEST(ActionEvaluator, AMoveFromElsewhereStartsASecondTrackThatWaitsForItsStart) {
    const std::vector<Action> turns = {action(PropertyKey::rotation(), toNumber(100, 0), between(0, 2)),
                                       action(PropertyKey::rotation(), toNumber(200, 0), between(1, 3))};
    EXPECT_NEAR(evaluate(turns, clockAt(0.5))[PropertyKey::rotation()], 25, 1e-9);
    // Both tracks count: the first has reached 100, the second 100 of its 200.
    EXPECT_NEAR(evaluate(turns, clockAt(2))[PropertyKey::rotation()], 200, 1e-9);
    // A `from` equal to the reached value continues the same track.
    const std::vector<Action> joined = {action(PropertyKey::rotation(), toNumber(100, 0), between(0, 2)),
                                        action(PropertyKey::rotation(), toNumber(200, 50), between(1, 3))};
    EXPECT_NEAR(evaluate(joined, clockAt(2))[PropertyKey::rotation()], 125, 1e-9);
}

TEST(ActionEvaluator, AnOutlineThatCannotDrawFadesInstead) {
    const std::vector<Action> drawing = {action(PropertyKey::strokeProgress(), toNumber(1, 0), opening(0, 2)),
                                         action(PropertyKey::strokeStart(), toNumber(0.3, 0.3), whole())};
    const ActionState fading = evaluate(drawing, clockAt(1), true);
    EXPECT_NEAR(fading[PropertyKey::opacity()], 0.5, 1e-12);
    EXPECT_EQ(fading[PropertyKey::strokeProgress()], 1);
    EXPECT_EQ(fading[PropertyKey::strokeStart()], 0);
    const ActionState drawn = evaluate(drawing, clockAt(1), false);
    EXPECT_EQ(drawn[PropertyKey::opacity()], 1);
    EXPECT_NEAR(drawn[PropertyKey::strokeProgress()], 0.5, 1e-12);
    EXPECT_NEAR(drawn[PropertyKey::strokeStart()], 0.3, 1e-12);
}

TEST(ActionEvaluator, AColourOnANumberPropertyChangesNothing) {
    const ActionValue red = ActionValue::makeColor(RGBA{1, 0, 0, 1});
    for (const PropertyKey key : {PropertyKey::rotation(), PropertyKey::scale()}) {
        const ActionState state = evaluate({action(key, toMode(red, red), whole())}, clockAt(1));
        EXPECT_EQ(state, ActionState::rest()) << key.name();
    }
}

TEST(ActionEvaluator, BlurDrivenBelowZeroIsZero) {
    const auto drift = [](double rate) {
        return action(PropertyKey::blur(), ActionMode{{}, ActionMode::continuous{ActionValue::makeNumber(rate)}}, whole());
    };
    EXPECT_EQ(evaluate({drift(-3)}, clockAt(1, 0, 2))[PropertyKey::blur()], 0);
    EXPECT_NEAR(evaluate({drift(3)}, clockAt(1, 0, 2))[PropertyKey::blur()], 3, 1e-12);
    EXPECT_NEAR(evaluate({drift(3)}, clockAt(5, 0, 2))[PropertyKey::blur()], 6, 1e-12);
}

TEST(ActionEvaluator, FontAxesShiftFromTheObjectsOwnValue) {
    ActionOwn own;
    own.fontAxes["wght"] = 400;
    const auto weight = [](double to) { return action(PropertyKey::fontWeight(), toNumber(to), whole()); };
    EXPECT_TRUE(evaluate({weight(0)}, clockAt(1)).fontAxes.empty());
    EXPECT_TRUE(evaluate({weight(400)}, clockAt(20), false, own).fontAxes.empty());
    EXPECT_EQ(evaluate({weight(500)}, clockAt(20), false, own).fontAxes, (std::map<std::string, double>{{"wght", 100}}));
}

TEST(ActionEvaluator, AZoomAboutAPointMovesByEqualRatios) {
    Action zoom = action(PropertyKey::scale(), toNumber(4, 1), between(0, 2));
    EXPECT_NEAR(evaluate({zoom}, clockAt(1))[PropertyKey::scale()], 2.5, 1e-12);
    zoom.about = CGPoint{10, 20};
    EXPECT_NEAR(evaluate({zoom}, clockAt(1))[PropertyKey::scale()], 2, 1e-12);
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
    const CGVector third = evaluate({travel}, clockAt(1, 0, 3)).offset();
    EXPECT_NEAR(third.dx, 10, 1e-9);
    EXPECT_NEAR(third.dy, 0, 1e-9);
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
    const ActionState half = ActionEvaluator::stateOfTransition(fade, 0.5, secs(2));
    EXPECT_NEAR(half[PropertyKey::opacity()], 1, 1e-12);
    EXPECT_NEAR(half[PropertyKey::rotation()], 45, 1e-12);
    const ActionState late = ActionEvaluator::stateOfTransition(fade, 0.75, secs(2));
    EXPECT_NEAR(late[PropertyKey::opacity()], 0.5, 1e-12);
    EXPECT_EQ(ActionEvaluator::stateOfTransition({}, 0.5, secs(2)), ActionState::rest());
}

std::vector<Action> mixedActions() {
    Action red = action(PropertyKey::color(), toMode(ActionValue::makeColor(RGBA{1, 0, 0, 0.5})), whole());
    Action blue = action(PropertyKey::color(), toMode(ActionValue::makeColor(RGBA{0, 0, 1, 0.5})), opening(0, 1));
    Action label = action(PropertyKey::text(), toMode(ActionValue::makeText("b"), ActionValue::makeText("a")), whole());
    Action other = action(PropertyKey::text(), toMode(ActionValue::makeText("d"), ActionValue::makeText("c")), opening(0, 1));
    return {red,
            blue,
            label,
            other,
            action(PropertyKey::rotation(), toNumber(100, 0), between(0, 2)),
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

} // namespace
} // namespace ovik
