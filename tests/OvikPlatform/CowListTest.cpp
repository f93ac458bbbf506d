#include <gtest/gtest.h>

#include "OvikPlatform/CowBox.h"
#include "OvikPlatform/CowList.h"

namespace ovik {
namespace {

TEST(CowList, ChangesDoNotReachOtherCopies) {
    const CowList<int> a{1, 2, 3};
    CowList<int> b = a;
    EXPECT_EQ(&a.items(), &b.items()); // shared until changed
    b.mutableItems().push_back(4);
    EXPECT_EQ(a.size(), 3u);
    EXPECT_FALSE(a == b);
    EXPECT_EQ(encodeJSON(b).compact(), "[1,2,3,4]");
}

TEST(CowBox, ChangesDoNotReachOtherCopies) {
    const CowBox<std::vector<int>> a(std::vector<int>{1, 2});
    CowBox<std::vector<int>> b = a;
    EXPECT_EQ(&*a, &*b); // shared until changed
    b.mutate().push_back(3);
    EXPECT_EQ(a->size(), 2u);
    EXPECT_FALSE(a == b);
    EXPECT_TRUE(a == CowBox<std::vector<int>>(std::vector<int>{1, 2})); // equal by value
    EXPECT_EQ(decodeJSON<CowBox<std::vector<int>>>(std::string_view("[1,2,3]")), b);
}

} // namespace
} // namespace ovik
