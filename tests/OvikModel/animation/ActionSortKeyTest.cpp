#include <gtest/gtest.h>

#include <algorithm>

#include "OvikModel/animation/Action.h"

namespace ovik {
namespace {

Action action(PropertyKey property, ActionMode mode, ActionRange range) {
    Action out;
    out.property = property;
    out.mode = std::move(mode);
    out.curve.cases = ActionCurve::linear{};
    out.range = std::move(range);
    return out;
}

ActionMode to(ActionValue value) { return ActionMode{{}, ActionMode::to{std::nullopt, std::move(value)}}; }
ActionRange opening(std::int64_t delay, std::int64_t length) {
    return ActionRange{{}, ActionRange::opening{MediaDuration{delay}, MediaDuration{length}}};
}
ActionRange whole() { return ActionRange{{}, ActionRange::whole{}}; }

double rank(PropertyKey key) { return key.slot().rank; }

TEST(ActionSortKey, NumbersFollowTheFieldsInOrder) {
    Action a = action(PropertyKey::opacity(), to(ActionValue::makeNumber(0.5)), opening(1, 2));
    a.curve.cases = ActionCurve::spring{300, 20};
    a.stagger = MediaDuration{7};
    a.shape = RevealShape{{}, RevealShape::wipe{45}};
    a.about = CGPoint{8, 9};
    const std::vector<double> expected = {0, 1, 2, rank(PropertyKey::opacity()), 0, -1, 0, 0.5, 2, 300, 20, 0, 7, 0, 45, 8, 9};
    EXPECT_EQ(a.sortKey().numbers, expected);
    EXPECT_TRUE(a.sortKey().words.empty());
}

TEST(ActionSortKey, ValuesPathsAndWords) {
    BezierPath path;
    path.isClosed = true;
    path.anchors = {PathAnchor{CGPoint{1, 2}, std::nullopt, CGPoint{3, 4}, false}};
    Action a = action(PropertyKey::position(), ActionMode{{}, ActionMode::alongPath{path}}, whole());
    a.scope = ActionScope::whole;
    a.shape = RevealShape{{}, RevealShape::circle{}};
    a.into = ObjectID{};
    a.axis = "GRAD";
    a.effect = EffectAddress{1, "amount"};
    a.param = "radius";
    a.pace = ActionPace::length;
    const std::vector<double> numbers = {2, rank(PropertyKey::position()), 4, 1, 1, 1, 1, 2, 0, 1, 3, 4, 3, 1, -1, 1};
    EXPECT_EQ(a.sortKey().numbers, numbers);
    const std::vector<std::string> words = {"into " + ObjectID{}.description(), "axis GRAD", "effect effects[1].amount",
                                            "param radius", "pace length"};
    EXPECT_EQ(a.sortKey().words, words);

    Action b = action(PropertyKey::text(), ActionMode{{}, ActionMode::to{ActionValue::makeText("from"),
                                                                         ActionValue::makeText("to")}},
                      whole());
    EXPECT_EQ(b.sortKey().words, (std::vector<std::string>{"from", "to"}));
    Action c = action(PropertyKey::color(), to(ActionValue::makeColor(RGBA{0.1, 0.2, 0.3, 0.4})), whole());
    const std::vector<double> colour = {2, rank(PropertyKey::color()), 0, -1, 2, 0.1, 0.2, 0.3, 0.4, 3, 0, -1, -1};
    EXPECT_EQ(c.sortKey().numbers, colour);
}

TEST(ActionSortKey, ModesListTheirNumbers) {
    const auto amount = ActionValue::makeVector(1, 2);
    const auto numbersAfterRank = [&](ActionMode mode) {
        const auto numbers = action(PropertyKey::position(), std::move(mode), whole()).sortKey().numbers;
        return std::vector<double>(numbers.begin() + 2, numbers.end() - 4); // without range, rank, curve, scope, stagger, shape
    };
    EXPECT_EQ(numbersAfterRank(ActionMode{{}, ActionMode::oscillate{amount, 3, 0.5}}),
              (std::vector<double>{1, 1, 1, 2, 3, 0.5}));
    EXPECT_EQ(numbersAfterRank(ActionMode{{}, ActionMode::noise{amount, 3, 9, std::nullopt}}),
              (std::vector<double>{2, 1, 1, 2, 3, 9}));
    EXPECT_EQ(numbersAfterRank(ActionMode{{}, ActionMode::noise{amount, 3, 9, 0.25}}),
              (std::vector<double>{2, 1, 1, 2, 3, 9, 0.25}));
    EXPECT_EQ(numbersAfterRank(ActionMode{{}, ActionMode::continuous{amount}}), (std::vector<double>{3, 1, 1, 2}));
}

TEST(ActionSortKey, OrderAcrossRangesPropertiesAndWords) {
    // Listed in the order they must sort into.
    Action tagged = action(PropertyKey::opacity(), to(ActionValue::makeNumber(1)), whole());
    tagged.param = "a";
    Action later = tagged;
    later.param = "b";
    const std::vector<Action> ordered = {
        action(PropertyKey::opacity(), to(ActionValue::makeNumber(1)), opening(0, 5)),
        action(PropertyKey::opacity(), to(ActionValue::makeNumber(1)), opening(1, 0)),
        action(PropertyKey::position(), to(ActionValue::makeNumber(1)), ActionRange{{}, ActionRange::closing{}}),
        action(PropertyKey::position(), to(ActionValue::makeNumber(1)), whole()),
        action(PropertyKey::opacity(), to(ActionValue::makeNumber(1)), whole()),
        tagged,
        later,
        action(PropertyKey::position(), to(ActionValue::makeNumber(1)),
               ActionRange{{}, ActionRange::between{SourceTime{-5}, SourceTime{0}}}),
    };
    ASSERT_LT(rank(PropertyKey::position()), rank(PropertyKey::opacity()));
    for (std::size_t i = 1; i < ordered.size(); ++i)
        EXPECT_LT(ordered[i - 1].sortKey(), ordered[i].sortKey()) << i;

    std::vector<Action> shuffled(ordered.rbegin(), ordered.rend());
    std::rotate(shuffled.begin(), shuffled.begin() + 3, shuffled.end());
    std::stable_sort(shuffled.begin(), shuffled.end(),
                     [](const Action& x, const Action& y) { return x.sortKey() < y.sortKey(); });
    EXPECT_EQ(shuffled, ordered);
}

TEST(ActionSortKey, AnAuthorTagDoesNotCount) {
    Action a = action(PropertyKey::opacity(), to(ActionValue::makeNumber(1)), whole());
    Action b = a;
    b.by = "script";
    b.term = "x";
    EXPECT_EQ(a.sortKey(), b.sortKey());
}

} // namespace
} // namespace ovik
