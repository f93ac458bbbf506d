#include <gtest/gtest.h>

#include "OvikModel/animation/ActionList.h"

namespace ovik {
namespace {

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
    struct Case {
        const char* name;
        Action action;
        bool earlier, later;
    };
    const Case cases[] = {
        {"opening", over(ActionRange::opening{us(0), us(10)}), true, false},
        {"closing", over(ActionRange::closing{us(0), us(10)}), false, true},
        {"whole", whole(), true, true},
        {"between before", between(0, 100), true, false},
        {"between ending at the split", between(0, 500), true, false},
        {"between across", between(0, 501), true, true},
        {"between from the split", between(500, 900), false, true},
        {"between after", between(600, 900), false, true},
        {"reversed after", between(600, 100), false, true},
    };
    for (const Case& c : cases) {
        const SplitActions halves = beyondBasics({c.action}, SourceTime{500});
        EXPECT_EQ(halves.earlier.size(), c.earlier ? 1u : 0u) << c.name;
        EXPECT_EQ(halves.later.size(), c.later ? 1u : 0u) << c.name;
    }
}

TEST(ActionList, BeyondBasicsKeepsListOrder) {
    const std::vector<Action> actions = {between(0, 900), whole(), between(100, 200)};
    const SplitActions halves = beyondBasics(actions, SourceTime{500});
    EXPECT_EQ(halves.earlier, actions);
    EXPECT_EQ(halves.later, (std::vector<Action>{actions[0], actions[1]}));
}

} // namespace
} // namespace ovik
