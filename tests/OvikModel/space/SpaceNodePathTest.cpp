#include <gtest/gtest.h>

#include <tuple>

#include "OvikModel/space/SpaceNodePath.h"

namespace ovik {
namespace {

TEST(SpaceNodePath, ReadsTheLongestNodeAtTheStart) {
    // The text, how much of it the node takes (0: no node), and its steps.
    const std::tuple<const char*, std::size_t, std::size_t> cases[] = {
        {"objects.0", 9, 1}, {"lights.2.color", 8, 1}, {"objects.0.children.1.material.roughness", 20, 2},
        {"objects.12.children.0.children.3", 32, 3},
        {"objects.0.children", 9, 1},   // a list without its index is not a step
        {"objects.0.childrenx.1", 9, 1},
        {"lights.1.objects.0", 8, 1},  // only children lists go deeper
        {"objects", 0, 0}, {"objects.x", 0, 0}, {"objects.-1", 0, 0}, {"objects.1x", 0, 0},
        {"cards.0", 0, 0}, {"children.0", 0, 0}, {"", 0, 0},
    };
    for (const auto& [text, taken, steps] : cases) {
        const auto found = SpaceNodePath::leading(text);
        ASSERT_EQ(found.has_value(), taken > 0) << text;
        if (!found) continue;
        EXPECT_EQ(found->second, taken) << text;
        EXPECT_EQ(found->first.steps.size(), steps) << text;
    }
    EXPECT_TRUE(SpaceNodePath::parse("objects.0.children.1"));
    EXPECT_FALSE(SpaceNodePath::parse("objects.0.children.1.color"));
}

TEST(SpaceNodePath, FindsOnlyObjectNodes) {
    const JSONValue space = JSONValue::parse(
        R"({"lights": [{"type": "PointLight"}], "objects": [{"children": [5, {"type": "Mesh"}], "type": "Group"}]})");
    // The text, and the type of the node it finds (null: none).
    const std::tuple<const char*, const char*> cases[] = {
        {"lights.0", "PointLight"}, {"objects.0", "Group"}, {"objects.0.children.1", "Mesh"},
        {"objects.0.children.0", nullptr}, // not a JSON object
        {"objects.0.children.2", nullptr}, {"objects.1", nullptr}, {"lights.0.children.0", nullptr},
    };
    for (const auto& [text, type] : cases) {
        const JSONValue* node = SpaceNodePath::parse(text)->in(space);
        ASSERT_EQ(node != nullptr, type != nullptr) << text;
        if (node) {
            EXPECT_EQ(*node->at("type")->string(), type) << text;
        }
    }
}

} // namespace
} // namespace ovik
