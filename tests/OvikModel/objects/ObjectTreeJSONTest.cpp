#include <gtest/gtest.h>

#include <cmath>

#include "OvikL10n/L10n.h"
#include "OvikModel/objects/ObjectNode.h"
#include "OvikModel/values/DecodingFailure.h"

namespace ovik {
namespace {

using testing::DecodingFailure;
using testing::expectRefused;
using Kind = DecodingError::Kind;

// A tree that uses every annotation kind and every field of a node, in canonical form.
constexpr std::string_view richTree =
    R"([{"content":{"group":[{"actions":[{"curve":"linear","mode":{"to":{"to":{"number":0}}},"property":"opacity",)"
    R"("range":"whole"}],"blend":"multiply","clip":{"actions":[{"curve":"smooth","keyframe":true,"mode":{"to":{"to":)"
    R"({"vector":{"dx":4,"dy":0}}}},"property":"position","range":{"opening":{"length":500000}}}],)"
    R"("channel":"luma","feather":2,"isInverted":true,"picture":{"clock":{"rate":2},"media":"00000000-0000-0000-0000-00000000005A"}},)"
    R"("content":{"annotation":{"rectangle":{"corner":"capsule","fill":{"alpha":1,"blue":0,"green":0.25,"red":1},)"
    R"("fillGradient":{"angleDegrees":90,"to":{"alpha":0.5,"blue":1,"green":0,"red":0}},"frame":[[10,20],[300,)"
    R"(-40.5]],"hasHalo":true,"hasShadow":true,"isFillTranslucent":true,"pattern":"dashed","rotation":0.25,)"
    R"("stroke":{"color":{"alpha":1,"blue":0,"green":0.25,"red":1},"width":4}}}},"grid":{"align":"topLeft",)"
    R"("column":2,"row":1,"rows":2},"id":"00000000-0000-0000-0000-000000000002","inkTexture":{"amount":0.4,)"
    R"("grain":0.25,"kind":"dry","seed":7},"isHidden":false,"isLocked":false,"modifiers":{"arrange":{"angle":0.5,)"
    R"("radius":20,"shape":{"path":{"anchors":[{"point":[0,0]},{"handleIn":[8,-2],"handleOut":[12,2],"isSmooth":true,)"
    R"("point":[10,0]}],"isClosed":true}}},"repeating":{"count":3,"step":{"delay":1000,"offset":[4,0]}},"split":{"order":{"random":{"seed":42}},)"
    R"("stagger":60000,"unit":"word"}},"name":"矩形 1","opacity":1,"pivot":[1,-2],"timing":{"end":4000000,)"
    R"("start":1000000},"tokens":{"fill":"accent"}},{"clip":{"object":"00000000-0000-0000-0000-000000000002"},)"
    R"("content":{"annotation":{"text":{"alignment":"center","axes":{"values":{"wght":700}},"background":{"alpha":0.5,)"
    R"("blue":1,"green":0,"red":0},"color":{"alpha":1,"blue":0,"green":0.25,"red":1},"font":{"face":"Bold",)"
    R"("family":"Noto","packageCopy":"ab12","postScriptName":"Noto-Bold"},"fontSize":18,"formula":{"colors":{"x":"#FF0000",)"
    R"("y":"red"}},"lineSpacing":1.2,"origin":[5,6],"string":"a/b \"x\"","tracking":0.5,"vertical":true,"weight":"semibold"}}},)"
    R"("id":"00000000-0000-0000-0000-000000000003","isHidden":false,"isLocked":false,"name":"文字 1","span":{"underLens":true}}]},)"
    R"("id":"00000000-0000-0000-0000-000000000001","isHidden":true,"isLocked":true,"name":"编组 1","section":"00000000-0000-0000-0000-00000000005B"},)"
    R"({"backFace":{"hidden":true},"clock":{"rate":0.5},"content":{"annotation":{"sticker":{"frame":[[0,0],)"
    R"([64,64]],"image":"stickers/cat.png","rotation":0}}},"depthSorted":true,"drivers":{"list":[]},"effects":{"entries":[{"primitive":"blur"}]},)"
    R"("host":"00000000-0000-0000-0000-00000000005A","id":"00000000-0000-0000-0000-000000000004","isHidden":false,)"
    R"("isLocked":false,"motionBlur":true,"name":"贴图 1","paused":{"perspective":{"tilt":0.1},"split":{"order":"center",)"
    R"("stagger":120000,"unit":"line"}},"section":"00000000-0000-0000-0000-00000000005B","sourceOnly":true,)"
    R"("strokeProgress":{"end":0.5},"thickness":{"bevel":1.5,"bevelProfile":"flat","bevelSegments":4,"depth":10,)"
    R"("material":{"metal":0.5}},"vectorSource":{"file":"vectors/cat.svg","name":"cat.svg","page":2,"sha256":"00ff",)"
    R"("skipped":["filter"]}},{"clip":{"path":{"anchors":[{"point":[0,0]},{"handleIn":[8,-2],"handleOut":[12,)"
    R"(2],"isSmooth":true,"point":[10,0]}],"isClosed":true}},"content":{"annotation":{"path":{"detail":{"cap":"round",)"
    R"("dash":[2,1],"dashPhase":0.5,"evenOdd":true,"gradient":{"focal":[0.5,0.5],"from":[0,0],"kind":"radial",)"
    R"("stops":[{"color":{"alpha":1,"blue":0,"green":0.25,"red":1},"offset":0},{"color":{"alpha":0.5,"blue":1,)"
    R"("green":0,"red":0},"offset":1}],"to":[1,1]},"join":"bevel","miterLimit":4,"subpaths":[{"anchors":[{"point":[0,)"
    R"(0]},{"handleIn":[8,-2],"handleOut":[12,2],"isSmooth":true,"point":[10,0]}],"isClosed":true}]},"fill":{"alpha":0.5,)"
    R"("blue":1,"green":0,"red":0},"path":{"anchors":[{"point":[0,0]},{"handleIn":[8,-2],"handleOut":[12,2],)"
    R"("isSmooth":true,"point":[10,0]}],"isClosed":true},"pattern":"sketch"}}},"id":"00000000-0000-0000-0000-000000000005",)"
    R"("inkTexture":{"cell":16,"kind":"pixel"},"isHidden":false,"isLocked":false,"name":"路径 1"},{"content":{"annotation":{"arrow":{"body":"tapered",)"
    R"("end":[100,50],"heads":"both","path":{"anchors":[{"point":[0,0]},{"handleIn":[8,-2],"handleOut":[12,)"
    R"(2],"isSmooth":true,"point":[10,0]}],"isClosed":true},"pattern":"dotted","start":[0,0],"stroke":{"color":{"alpha":1,)"
    R"("blue":0,"green":0.25,"red":1},"width":4},"through":[{"across":-10,"along":0.5}]}}},"id":"00000000-0000-0000-0000-000000000006",)"
    R"("isHidden":false,"isLocked":false,"name":"箭头 1"},{"content":{"annotation":{"pen":{"points":[[0,0],)"
    R"([1,1]],"stroke":{"color":{"alpha":1,"blue":0,"green":0.25,"red":1},"width":4},"times":[0,0.016]}}},"id":"00000000-0000-0000-0000-000000000007",)"
    R"("isHidden":false,"isLocked":false,"name":"画笔 1"},{"content":{"annotation":{"counter":{"center":[5,)"
    R"(5],"color":{"alpha":1,"blue":0,"green":0.25,"red":1},"diameter":28,"number":3}}},"id":"00000000-0000-0000-0000-000000000008",)"
    R"("isHidden":false,"isLocked":false,"name":"序号 1"},{"content":{"annotation":{"redact":{"cellSize":12,)"
    R"("color":{"alpha":1,"blue":0,"green":0.25,"red":1},"frame":[[0,0],[10,10]],"mode":"blur","strength":0.5}}},)"
    R"("id":"00000000-0000-0000-0000-000000000009","isHidden":false,"isLocked":false,"name":"打码 1"},{"content":{"annotation":{"spotlight":{"dim":0.5,)"
    R"("frame":[[0,0],[10,10]],"shape":"ellipse"}}},"id":"00000000-0000-0000-0000-00000000000A","isHidden":false,)"
    R"("isLocked":false,"name":"聚焦 1"},{"clip":{"picture":{"section":"00000000-0000-0000-0000-00000000005B"}},)"
    R"("content":{"annotation":{"magnifier":{"frame":[[0,0],[10,10]],"hasShadow":false,"pinned":[[1,1],[2,2]],)"
    R"("shape":"rectangle","stroke":{"color":{"alpha":1,"blue":0,"green":0.25,"red":1},"width":4},"zoom":2}}},)"
    R"("id":"00000000-0000-0000-0000-00000000000B","isHidden":false,"isLocked":false,"name":"放大镜 1"},)"
    R"({"clip":{"picture":{"object":"00000000-0000-0000-0000-000000000003"}},"content":{"annotation":{"followPoint":{"center":[3,)"
    R"(4]}}},"id":"00000000-0000-0000-0000-00000000000C","isHidden":false,"isLocked":false,"name":"跟随点 1"},)"
    R"({"content":{"annotation":{"particles":{"colors":[{"alpha":1,"blue":1,"green":1,"red":1}],"life":{"high":2,"low":1},)"
    R"("overlap":"add","rate":30,"seed":5,"sizeEnd":0,"sizeStart":4,"source":{"point":[0,0]},"speed":{"high":9,"low":3},)"
    R"("turbulence":2,"turbulenceRate":0}}},"id":"00000000-0000-0000-0000-00000000000D",)"
    R"("isHidden":false,"isLocked":false,"name":"粒子 1"},{"content":{"annotation":{"solid":{"frame":[[0,)"
    R"(0],[1,1]],"geometry":"box"}}},"id":"00000000-0000-0000-0000-00000000000E","isHidden":false,"isLocked":false,)"
    R"("name":"基本体 1"},{"content":{"annotation":{"generator":{"program":"waves"}}},"id":"00000000-0000-0000-0000-00000000000F",)"
    R"("isHidden":false,"isLocked":false,"name":"生成器 1"},{"content":{"annotation":{"line":{"end":[1,0],)"
    R"("heads":"none","start":[0,0],"stroke":{"color":{"alpha":1,"blue":0,"green":0.25,"red":1},"width":4}}}},)"
    R"("id":"00000000-0000-0000-0000-000000000010","isHidden":false,"isLocked":false,"name":"直线 1"},{"content":{"group":[]},)"
    R"("id":"00000000-0000-0000-0000-000000000011","isHidden":false,"isLocked":false,"name":"编组 2"}])";

template <class T>
std::string rewritten(std::string_view json) {
    return encodeJSON(decodeJSON<T>(json)).compact();
}

TEST(ObjectTreeJSON, RichTreeRoundTripsByteForByte) {
    const auto nodes = decodeJSON<std::vector<ObjectNode>>(richTree);
    EXPECT_EQ(encodeJSON(nodes).compact(), richTree);

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
    struct Case {
        const char* text;
        const char* stored;
        std::uint32_t color;
    };
    const Case cases[] = {
        {" #abc ", "#AABBCC", 0xAABBCC}, {"#0a84ff", "#0A84FF", 0x0A84FF}, {"Grey", "grey", 0x8E8E93},
        {"紫", "紫", 0xBF5AF2},          {"\tWHITE\n", "white", 0xFFFFFF},
    };
    for (const Case& c : cases) {
        const auto ink = FormulaInk::parse(c.text);
        ASSERT_TRUE(ink) << c.text;
        EXPECT_EQ(ink->text(), c.stored);
        EXPECT_EQ(ink->color(), RGBA::fromHex(c.color)) << c.text;
    }
    for (const char* text : {"#12345", "#abcg", "#", "", "redish", "0A84FF"})
        EXPECT_FALSE(FormulaInk::parse(text)) << text;
    EXPECT_EQ((FormulaInk{{}, FormulaInk::named{"mauve"}}.color()), RGBA::fromHex(0x8E8E93));

    L10n::LanguageOverride chinese("zh-Hans");
    expectRefused<FormulaInk>({R"(" #12345 ")", Kind::dataCorrupted, "", "不认识的颜色 #12345"});
}

} // namespace
} // namespace ovik
