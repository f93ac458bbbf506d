#include <gtest/gtest.h>

#include <tuple>

#include <fstream>
#include <iterator>

#include "OvikL10n/L10n.h"
#include "OvikModel/objects/ObjectNode.h"
#include "OvikModel/values/DecodingFailure.h"

namespace ovik {
namespace {

using testing::DecodingFailure;
using testing::expectRefused;
using Kind = DecodingError::Kind;

// A tree that uses every annotation kind and every field of a node.
std::string storedTree() {
    std::ifstream in(OVIK_SOURCE_DIR "/tests/OvikModel/objects/tree.json", std::ios::binary);
    return JSONValue::parse(std::string(std::istreambuf_iterator<char>(in), {})).compact();
}

template <class T>
std::string rewritten(std::string_view json) {
    return encodeJSON(decodeJSON<T>(json)).compact();
}

TEST(ObjectTreeJSON, RichTreeRoundTripsByteForByte) {
    const std::string stored = storedTree();
    const auto nodes = decodeJSON<std::vector<ObjectNode>>(std::string_view(stored));
    EXPECT_EQ(encodeJSON(nodes).compact(), stored);

    ASSERT_EQ(nodes.size(), 15u);
    const auto& children = *nodes[0].content.children();
    const auto& rectangle = children[0].annotation()->as<Annotation::rectangle>().value;
    ASSERT_TRUE(rectangle.paint && rectangle.paint->is<FillPaint::gradient>());
    EXPECT_EQ(rectangle.paint->as<FillPaint::gradient>().angleDegrees, 90);
    EXPECT_EQ(children[0].modifiers->split->order.as<Split::Order::random>().seed, 42u);
    EXPECT_EQ(children[0].clip->source.as<ClipShape::Source::picture>().channel, ClipShape::Channel::luma);
    EXPECT_EQ(children[0].inkTexture->kind(), InkTexture::Kind::dry);
    EXPECT_EQ(children[1].annotation()->as<Annotation::text>().value.formula->colors.at("y").color(),
              RGBA::fromHex(0xFF453A));
    EXPECT_EQ(nodes[2].annotation()->kind(), AnnotationKind::path);
    EXPECT_TRUE(nodes[14].content.children()->empty()); // an empty group is kept as it stands
}

TEST(ObjectTreeJSON, StoredFormsAreCanonicalAfterOneSave) {
    // Stagger is always written, a forward order never.
    EXPECT_EQ(rewritten<Split>(R"({"unit":"word","order":"forward"})"), R"({"stagger":60000,"unit":"word"})");
    EXPECT_EQ(rewritten<GridCell>(R"({"column":3,"span":1,"rows":1,"align":"center"})"), R"({"column":3,"row":1})");
    EXPECT_EQ(rewritten<Repeat>(R"({"count":2,"step":{"scale":1,"delay":0}})"), R"({"count":2})");
    // A path wins over an object; any channel but "luma" is the alpha.
    EXPECT_EQ(rewritten<ClipShape>(R"({"object":"00000000-0000-0000-0000-000000000001","path":{"anchors":[]}})"),
              R"({"path":{"anchors":[]}})");
    EXPECT_EQ(rewritten<ClipShape>(R"({"picture":{"section":"00000000-0000-0000-0000-000000000001"},"channel":"r"})"),
              R"({"picture":{"section":"00000000-0000-0000-0000-000000000001"}})");
    // A gradient without its first colour is no paint at all.
    EXPECT_EQ(rewritten<ShapeAnnotation>(R"({"frame":[[0,0],[1,1]],"rotation":0,"fillGradient":{"to":)"
                                         R"({"red":0,"green":0,"blue":0,"alpha":1},"angleDegrees":0}})"),
              R"({"frame":[[0,0],[1,1]],"rotation":0})");
    EXPECT_EQ(rewritten<InkTexture>(R"({"kind":"pixel","cell":16})"), R"({"cell":16,"kind":"pixel"})");
    EXPECT_EQ(rewritten<Thickness>(R"({"depth":2,"bevel":0,"bevelSegments":3,"bevelProfile":"round"})"),
              R"({"depth":2})");
    EXPECT_EQ(rewritten<StrokeProgress>(R"({"start":0,"end":1,"offset":0.5})"), R"({"offset":0.5})");
    EXPECT_EQ(rewritten<FormulaStyle>(R"({"colors":{}})"), "{}");
    EXPECT_EQ(rewritten<ObjectNode>(R"({"actions":[],"content":{"group":[]},"depthSorted":false,)"
                                    R"("id":"00000000-0000-0000-0000-000000000001","isHidden":false,"isLocked":false,)"
                                    R"("motionBlur":false,"name":"g","sourceOnly":false})"),
              R"({"content":{"group":[]},"id":"00000000-0000-0000-0000-000000000001","isHidden":false,)"
              R"("isLocked":false,"name":"g"})");
}

TEST(ObjectTreeJSON, AnAbsentOpacityIsNotOpacityOne) {
    const std::string base = R"({"content":{"group":[]},"id":"00000000-0000-0000-0000-000000000001",)"
                             R"("isHidden":false,"isLocked":false,"name":"g")";
    const auto absent = decodeJSON<ObjectNode>(std::string_view(base + "}"));
    const auto one = decodeJSON<ObjectNode>(std::string_view(base + R"(,"opacity":1})"));
    EXPECT_NE(absent, one);
    EXPECT_EQ(encodeJSON(absent).compact(), base + "}");
    EXPECT_EQ(encodeJSON(one).compact(), base + R"(,"opacity":1})");
}

TEST(ObjectTreeJSON, BadInputFailsWithItsPlace) {
    const std::string node = R"({"id":"00000000-0000-0000-0000-000000000001","name":"x","isHidden":false,)"
                             R"("isLocked":false,"content":{"annotation":{"sticker":{"frame":[[0,0],[1,1]],"rotation":0}}}})";
    const std::string group = R"({"group":[)" + node + "]}";
    const DecodingFailure contents[] = {
        {R"({"annotation":{"ribbon":{}}})", Kind::dataCorrupted, "annotation", "Unknown case ribbon"},
        {R"("group")", Kind::dataCorrupted, ""},
        {group.c_str(), Kind::keyNotFound, "group[0].content.annotation.sticker.image"},
    };
    for (const auto& failure : contents) expectRefused<ObjectContent>(failure);

    const DecodingFailure inks[] = {
        {R"({"kind":"none"})", Kind::dataCorrupted, "", "Standard ink is omitted"},
        {R"({"kind":"dry","amount":0.5,"grain":0.2,"seed":1})", Kind::dataCorrupted, "", "Invalid dry ink parameters"},
        {R"({"kind":"dry","amount":1.01,"grain":4,"seed":1})", Kind::dataCorrupted, "", "Invalid dry ink parameters"},
        {R"({"kind":"pixel","cell":0.5})", Kind::dataCorrupted, "", "Invalid pixel ink cell"},
        {R"({"kind":"pixel","cell":16.5})", Kind::dataCorrupted, "", "Invalid pixel ink cell"},
        {R"({"kind":"wet"})", Kind::dataCorrupted, "kind"},
        {R"({"kind":"dry","amount":0.5,"grain":1,"seed":-1})", Kind::dataCorrupted, "seed"},
        {R"({"cell":2})", Kind::keyNotFound, "kind"},
    };
    for (const auto& failure : inks) expectRefused<InkTexture>(failure);

    expectRefused<ImageSource>(
        {R"({"clock":{}})", Kind::dataCorrupted, "", "An image source names a media, an object or a section"});
    expectRefused<ClipShape>({R"({"feather":1})", Kind::keyNotFound, "object"});
    expectRefused<Split>({R"({"unit":"word","order":{"random":{}}})", Kind::keyNotFound, "order.random.seed"});
    EXPECT_THROW((void)encodeJSON(InkTexture{}), EncodingError); // the standard ink is never written
}

TEST(FormulaInk, ReadsNamesAndNumbersLeniently) {
    // text, stored, color
    const std::tuple<const char*, const char*, std::uint32_t> cases[] = {
        {" #abc ", "#AABBCC", 0xAABBCC}, {"#0a84ff", "#0A84FF", 0x0A84FF}, {"Grey", "grey", 0x8E8E93},
        {"紫", "紫", 0xBF5AF2},          {"\tWHITE\n", "white", 0xFFFFFF},
    };
    for (const auto& [text, stored, color] : cases) {
        const auto ink = FormulaInk::parse(text);
        ASSERT_TRUE(ink) << text;
        EXPECT_EQ(ink->text(), stored);
        EXPECT_EQ(ink->color(), RGBA::fromHex(color)) << text;
    }
    for (const char* text : {"#12345", "#abcg", "#", "", "redish", "0A84FF"})
        EXPECT_FALSE(FormulaInk::parse(text)) << text;
    EXPECT_EQ((FormulaInk{{}, FormulaInk::named{"mauve"}}.color()), RGBA::fromHex(0x8E8E93));

    L10n::LanguageOverride chinese("zh-Hans");
    expectRefused<FormulaInk>({R"(" #12345 ")", Kind::dataCorrupted, "", "不认识的颜色 #12345"});
}

} // namespace
} // namespace ovik
