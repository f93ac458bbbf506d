#include <gtest/gtest.h>

#include "OvikModel/Draft.h"
#include "OvikModel/draft/DraftSamples.h"

namespace ovik {
namespace {

Draft read() { return decodeJSON<Draft>(std::string_view(testing::draftJSON())); }

TEST(DraftMemo, CopiesShareOneTableThatAnyOfThemClears) {
    const Draft draft = read();
    const Draft copy = draft;
    int made = 0;
    const auto make = [&] { return ++made; };
    EXPECT_EQ(*draft.memo.value<int>({"n"}, make), 1);
    EXPECT_EQ(*copy.memo.value<int>({"n"}, make), 1);
    EXPECT_EQ(*copy.memo.value<double>({"n"}, [] { return 2.5; }), 2.5); // another type is a miss
    copy.memo.clear();
    EXPECT_EQ(*draft.memo.value<int>({"n"}, make), 2);
    EXPECT_EQ(read(), draft); // not part of equality, and a loaded draft starts empty
    EXPECT_EQ(*read().memo.value<int>({"n"}, make), 3);
}

} // namespace
} // namespace ovik
