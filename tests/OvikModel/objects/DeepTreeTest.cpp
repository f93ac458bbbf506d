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

// Each level that fails is finished without decoding its failing child again: as deep as the
// parser allows, a bad leaf costs one decode a level, where decoding it again at every level
// would take 2^300 decodes. Deeper than that, the text is refused as JSON.
TEST(DeepTree, ABadLeafDeepDownIsToldAtOnce) {
    for (const auto& [depth, kind] : {std::pair{300, DecodingError::Kind::typeMismatch},
                                      {10'000, DecodingError::Kind::dataCorrupted}}) {
        const std::string text = nestAroundBadLeaf(depth);
        const auto start = std::chrono::steady_clock::now();
        try {
            (void)decodeJSON<ObjectNode>(std::string_view(text));
            ADD_FAILURE() << "a tree with a bad leaf was read";
        } catch (const DecodingError& error) {
            EXPECT_EQ(error.kind(), kind) << depth;
            const std::string path = codingPathText(error.codingPath());
            EXPECT_TRUE(depth > 300 || path.ends_with("content.group[0].isHidden")) << path;
        }
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1)) << depth;
    }
}

} // namespace
} // namespace ovik
