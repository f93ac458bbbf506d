#include <gtest/gtest.h>

#include <algorithm>

#include "OvikModel/animation/Action.h"

namespace ovik {
namespace {

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

TEST(ActionSortKey, ModesAndPathsEnterTheKey) {
    BezierPath path;
    path.anchors = {PathAnchor{CGPoint{1, 2}, std::nullopt, CGPoint{3, 4}, false}};
    BezierPath moved = path;
    moved.anchors[0].handleOut = CGPoint{3, 5};
    const ActionValue amount = ActionValue::makeNumber(1);
    // Pairs that differ only past the first numbers of the key.
    const std::pair<ActionMode, ActionMode> pairs[] = {
        {ActionMode{{}, ActionMode::alongPath{path}}, ActionMode{{}, ActionMode::alongPath{moved}}},
        {ActionMode{{}, ActionMode::oscillate{amount, 3, 0.5}}, ActionMode{{}, ActionMode::oscillate{amount, 3, 0.6}}},
        {ActionMode{{}, ActionMode::noise{amount, 3, 9, 1}}, ActionMode{{}, ActionMode::noise{amount, 3, 10, 0}}},
    };
    for (const auto& [earlier, later] : pairs) {
        Action a = base(), b = base();
        a.mode = earlier;
        b.mode = later;
        EXPECT_LT(a.sortKey(), b.sortKey());
    }
}

} // namespace
} // namespace ovik
