#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "OvikModel/keys/EncodedParts.h"

namespace ovik {
namespace {

// A stand-in for a node of the object tree: an id and a value that can change under it.
struct Node {
    int id = 0;
    std::string label;
    bool operator==(const Node&) const = default;
};

struct CountingEncoder {
    int* calls;
    std::string operator()(const Node& node) const {
        ++*calls;
        return std::to_string(node.id) + ":" + node.label;
    }
};

int idOf(const Node& node) { return node.id; }

TEST(EncodedPartTable, ReusesEqualNodesAndEncodesChangedOnes) {
    EncodedPartTable<int, Node> table(10);
    int calls = 0;
    const std::vector<Node> first = {{1, "a"}, {2, "b"}};
    EXPECT_EQ(table.parts(first, idOf, CountingEncoder{&calls}), (std::vector<std::string>{"1:a", "2:b"}));
    EXPECT_EQ(calls, 2);

    // Same id, new value: the stored bytes must not be used.
    const std::vector<Node> second = {{1, "a"}, {2, "changed"}};
    EXPECT_EQ(table.parts(second, idOf, CountingEncoder{&calls}), (std::vector<std::string>{"1:a", "2:changed"}));
    EXPECT_EQ(calls, 3);
    EXPECT_EQ(table.parts(second, idOf, CountingEncoder{&calls}), (std::vector<std::string>{"1:a", "2:changed"}));
    EXPECT_EQ(calls, 3);
    EXPECT_EQ(table.count(), 2u);
}

TEST(EncodedPartTable, TheEntryPastCapacityEmptiesTheTableBeforeItIsStored) {
    constexpr int capacity = 20000;
    EncodedPartTable<int, Node> table(capacity);
    int calls = 0;
    std::vector<Node> full;
    for (int id = 0; id < capacity; ++id) full.push_back({id, "x"});
    table.parts(full, idOf, CountingEncoder{&calls});
    EXPECT_EQ(table.count(), std::size_t(capacity));

    table.parts(std::vector<Node>{{capacity, "new"}}, idOf, CountingEncoder{&calls});
    EXPECT_EQ(table.count(), 1u);
    calls = 0;
    table.parts(std::vector<Node>{{0, "x"}}, idOf, CountingEncoder{&calls});
    EXPECT_EQ(calls, 1);
}

TEST(RecentEncodedParts, KeepsTheLastFourAndDropsTheOldest) {
    RecentEncodedParts<Node> songs(4);
    int calls = 0;
    for (int id = 0; id < 5; ++id) EXPECT_EQ(songs.bytes({id, "s"}, CountingEncoder{&calls}), std::to_string(id) + ":s");
    EXPECT_EQ(calls, 5);
    EXPECT_EQ(songs.count(), 4u);
    songs.bytes({4, "s"}, CountingEncoder{&calls});
    EXPECT_EQ(calls, 5);
    songs.bytes({0, "s"}, CountingEncoder{&calls});
    EXPECT_EQ(calls, 6);
}

} // namespace
} // namespace ovik
