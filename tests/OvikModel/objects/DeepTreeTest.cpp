#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "OvikModel/objects/ObjectNode.h"

namespace ovik {
namespace {

// Groups nested `depth` deep around one leaf whose "isHidden" is not a boolean.
std::string nestAroundBadLeaf(int depth) {
    const std::string group = R"({"id":"00000000-0000-0000-0000-000000000001","name":"g","isHidden":false,)"
                              R"("isLocked":false,"content":{"group":[)";
    const std::string leaf = R"({"id":"00000000-0000-0000-0000-000000000002","name":"x","isHidden":5,)"
                             R"("isLocked":false,"content":{"group":[]}})";
    std::string text;
    for (int i = 0; i < depth; ++i) text += group;
    text += leaf;
    for (int i = 0; i < depth; ++i) text += "]}}";
    return text;
}

DecodingError refusal(const std::string& text) {
    try {
        (void)decodeJSON<ObjectNode>(std::string_view(text));
    } catch (const DecodingError& error) {
        return error;
    }
    ADD_FAILURE() << "a tree with a bad leaf was read";
    return DecodingError::dataCorrupted(CodingPath(), "");
}

// Each level that fails is finished without decoding its failing child again: as deep as the
// parser allows, a bad leaf costs one decode a level, where decoding it again at every level
// would take 2^300 decodes.
TEST(DeepTree, ABadLeafDeepDownIsToldAtOnce) {
    const auto start = std::chrono::steady_clock::now();
    const DecodingError error = refusal(nestAroundBadLeaf(300));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
    EXPECT_EQ(error.kind(), DecodingError::Kind::typeMismatch);
    const std::string path = codingPathText(error.codingPath());
    EXPECT_TRUE(path.ends_with("content.group[0].isHidden")) << path;
}

TEST(DeepTree, ANestDeeperThanTheParserTakesIsRefusedAsJSON) {
    const auto start = std::chrono::steady_clock::now();
    const DecodingError error = refusal(nestAroundBadLeaf(10'000));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
    EXPECT_EQ(error.kind(), DecodingError::Kind::dataCorrupted);
}

} // namespace
} // namespace ovik
