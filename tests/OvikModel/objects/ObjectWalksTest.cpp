#include <gtest/gtest.h>

#include "OvikModel/ModelSamples.h"
#include "OvikModel/objects/ObjectWalks.h"

namespace ovik {
namespace {

const auto id = testing::objectID;

ObjectNode leaf(int n, Annotation annotation = Annotation{{}, Annotation::followPoint{}}) {
    return testing::leaf(std::to_string(n), n, std::move(annotation));
}

ObjectNode group(int n, std::vector<ObjectNode> children, bool hidden = false) {
    ObjectNode node = testing::group("", n, std::move(children));
    node.isHidden = hidden;
    return node;
}

// 1[2, 3(hidden)[4, 5[6]], 7], 8, 9[] (an empty group, legal as stored)
ObjectNodes tree() {
    return {group(1, {leaf(2), group(3, {leaf(4), group(5, {leaf(6)})}, true), leaf(7)}), leaf(8), group(9, {})};
}

std::vector<ObjectID> ids(std::initializer_list<int> numbers) {
    std::vector<ObjectID> out;
    for (int n : numbers) out.push_back(id(n));
    return out;
}

ObjectIDs idSet(std::initializer_list<int> numbers) {
    const auto list = ids(numbers);
    return ObjectIDs(list.begin(), list.end());
}

std::vector<ObjectID> leafIDs(const ObjectNodes& nodes, const ObjectIDs& under, bool inherited) {
    std::vector<ObjectID> visited;
    forEachLeaf(nodes, under, inherited, [&](const ObjectNode& node) { visited.push_back(node.id); });
    return visited;
}

std::vector<ObjectID> allIDs(const ObjectNodes& nodes) {
    std::vector<ObjectID> visited;
    forEachNode(nodes, std::nullopt,
                [&](const ObjectNode& node, const ObjectLocation&) { visited.push_back(node.id); });
    return visited;
}

TEST(ObjectWalks, LeavesAreVisitedInPaintingOrder) {
    const ObjectNodes nodes = tree();
    EXPECT_EQ(leafIDs(nodes, {id(3)}, false), ids({4, 6}));
    EXPECT_EQ(leafIDs(nodes, {id(1), id(6)}, false), ids({2, 4, 6, 7}));
    EXPECT_EQ(leafIDs(nodes, {id(8), id(9)}, false), ids({8}));
    EXPECT_EQ(leafIDs(nodes, {}, true), ids({2, 4, 6, 7, 8}));
    EXPECT_EQ(leafIDs(nodes, {}, false), ids({}));
    EXPECT_EQ(allIDs(nodes), ids({1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(ObjectWalks, NodesAreFoundWithTheirLocationAtAnyDepth) {
    ObjectNodes nodes = tree();
    EXPECT_EQ(location(nodes, id(6)), (ObjectLocation{id(5), 0}));
    EXPECT_EQ(location(nodes, id(7)), (ObjectLocation{id(1), 2}));
    EXPECT_EQ(location(nodes, id(9)), (ObjectLocation{std::nullopt, 2}));
    EXPECT_FALSE(location(nodes, id(42)));
    EXPECT_EQ(node(nodes, id(4))->name, "4");
    EXPECT_EQ(node(nodes, id(42)), nullptr);

    EXPECT_TRUE(updateNode(nodes, id(6), [](ObjectNode& node) { node.name = "six"; }));
    EXPECT_FALSE(updateNode(nodes, id(42), [](ObjectNode& node) { node.name = "none"; }));
    EXPECT_EQ(node(nodes, id(6))->name, "six");
}

TEST(ObjectWalks, RewritesReachLeavesOrEveryNode) {
    ObjectNodes nodes = tree();
    updateLeaves(nodes, {id(3)}, false, [](ObjectNode& node) { node.isLocked = true; });
    mapLeaves(nodes, [](const ObjectNode& node) {
        ObjectNode copy = node;
        copy.name += "'";
        return copy;
    });
    updateEveryNode(nodes, [](ObjectNode& node) { node.motionBlur = true; });
    std::vector<std::string> seen;
    forEachNode(nodes, std::nullopt, [&](const ObjectNode& node, const ObjectLocation&) {
        EXPECT_TRUE(node.motionBlur);
        seen.push_back(node.name + (node.isLocked ? "L" : ""));
    });
    EXPECT_EQ(seen, (std::vector<std::string>{"", "2'", "", "4'L", "", "6'L", "7'", "8'", ""}));
}

TEST(ObjectWalks, RemovalPrunesEmptiedGroupsUpward) {
    struct Case {
        std::initializer_list<int> removed;
        bool pruning;
        std::initializer_list<int> left;
    };
    const Case cases[] = {
        {{6}, true, {1, 2, 3, 4, 7, 8, 9}}, {{6}, false, {1, 2, 3, 4, 5, 7, 8, 9}}, {{4, 6}, true, {1, 2, 7, 8, 9}},
        {{2, 4, 6, 7}, true, {8, 9}},       {{3}, true, {1, 2, 7, 8, 9}},
    };
    for (const Case& c : cases) {
        ObjectNodes nodes = tree();
        EXPECT_TRUE(removeNodes(nodes, idSet(c.removed), c.pruning));
        EXPECT_EQ(allIDs(nodes), ids(c.left));
    }
    ObjectNodes nodes = tree();
    EXPECT_FALSE(removeNodes(nodes, {id(42)}, true));
    EXPECT_EQ(nodes, tree());
}

TEST(ObjectWalks, PruningTakesOnlyEmptyGroupsAmongTheGiven) {
    ObjectNodes nodes = tree();
    removeNodes(nodes, {id(4), id(6)}, false);
    pruneEmptyGroups(nodes, {id(1), id(2)});
    EXPECT_EQ(allIDs(nodes), ids({1, 2, 3, 5, 7, 8, 9}));
    pruneEmptyGroups(nodes, {id(5), id(9)});
    EXPECT_EQ(allIDs(nodes), ids({1, 2, 7, 8}));
}

TEST(ObjectWalks, OutermostSkipsMembersInsideOtherMembers) {
    const ObjectNodes nodes = tree();
    using Placed = std::vector<std::pair<ObjectID, ObjectLocation>>;
    EXPECT_EQ(outermost(nodes, std::nullopt, {id(1), id(4), id(8)}),
              (Placed{{id(1), {std::nullopt, 0}}, {id(8), {std::nullopt, 1}}}));
    EXPECT_EQ(outermost(nodes, std::nullopt, {id(6), id(4)}), (Placed{{id(4), {id(3), 0}}, {id(6), {id(5), 0}}}));
}

TEST(ObjectWalks, AncestorsAndHiddenness) {
    const ObjectNodes nodes = tree();
    EXPECT_EQ(ancestors(nodes, id(6)), ids({1, 3, 5}));
    EXPECT_EQ(ancestors(nodes, id(8)), ids({}));
    EXPECT_TRUE(isEffectivelyHidden(nodes, id(6)));
    EXPECT_TRUE(isEffectivelyHidden(nodes, id(3)));
    EXPECT_FALSE(isEffectivelyHidden(nodes, id(2)));
    EXPECT_FALSE(isEffectivelyHidden(nodes, id(42)));
}

TEST(ObjectWalks, PathsOfEveryDepthAreListed) {
    const auto sticker = [](const char* image) {
        return Annotation{{}, Annotation::sticker{StickerAnnotation{{}, 0, PackagePath{image}}}};
    };
    ObjectNode imported = group(1, {leaf(2, sticker("s/deep.png")), group(3, {leaf(4, sticker("s/a.png"))})});
    imported.vectorSource = VectorSource{PackagePath{"vectors/a.svg"}, "a.svg", "00", std::nullopt, {}};
    const ObjectNodes nodes{imported, leaf(5, sticker("s/a.png")), leaf(6)};
    EXPECT_EQ(objectPaths(nodes), (std::set<PackagePath>{{"s/a.png"}, {"s/deep.png"}, {"vectors/a.svg"}}));
    EXPECT_TRUE(containsLeaf(nodes, [](const ObjectNode& node) { return node.id == id(4); }));
    EXPECT_FALSE(containsLeaf(nodes, [](const ObjectNode& node) { return node.id == id(3); }));
}

} // namespace
} // namespace ovik
