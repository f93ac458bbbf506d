#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <iterator>
#include <limits>
#include <tuple>

#include "OvikL10n/L10n.h"
#include "OvikModel/ModelSamples.h"
#include "OvikModel/objects/AnnotationDefaults.h"
#include "OvikModel/objects/AnnotationLimits.h"
#include "OvikModel/objects/ObjectNamer.h"
#include "OvikModel/objects/ObjectNode.h"
#include "OvikModel/objects/ObjectWalks.h"
#include "OvikModel/objects/ParticlesAnnotation.h"
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

    // The stored forms read into the fields they name.
    const auto& children = *nodes[0].content.children();
    EXPECT_EQ(children[0].annotation()->as<Annotation::rectangle>().value.paint->as<FillPaint::gradient>().angleDegrees, 90);
    EXPECT_EQ(children[0].modifiers->split->order.as<Split::Order::random>().seed, 42u);
    EXPECT_EQ(children[0].clip->source.as<ClipShape::Source::picture>().channel, ClipShape::Channel::luma);
    EXPECT_EQ(children[1].annotation()->as<Annotation::text>().value.formula->colors.at("y").color(),
              RGBA::fromHex(0xFF453A));
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

TEST(ObjectTreeJSON, BadInputFailsWithItsText) {
    const DecodingFailure inks[] = {
        {R"({"kind":"none"})", Kind::dataCorrupted, "", "Standard ink is omitted"},
        {R"({"kind":"dry","amount":0.5,"grain":0.2,"seed":1})", Kind::dataCorrupted, "", "Invalid dry ink parameters"},
        {R"({"kind":"dry","amount":1.01,"grain":4,"seed":1})", Kind::dataCorrupted, "", "Invalid dry ink parameters"},
        {R"({"kind":"pixel","cell":0.5})", Kind::dataCorrupted, "", "Invalid pixel ink cell"},
        {R"({"kind":"pixel","cell":16.5})", Kind::dataCorrupted, "", "Invalid pixel ink cell"},
    };
    for (const auto& failure : inks) expectRefused<InkTexture>(failure);
    expectRefused<ImageSource>(
        {R"({"clock":{}})", Kind::dataCorrupted, "", "An image source names a media, an object or a section"});
    EXPECT_THROW((void)encodeJSON(InkTexture{}), EncodingError); // the standard ink is never written
}

TEST(FormulaInk, ReadsNamesAndNumbersLeniently) {
    // Text as typed, as stored, and the colour it names.
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

std::vector<ObjectID> ids(const std::vector<int>& numbers) {
    std::vector<ObjectID> out;
    for (int n : numbers) out.push_back(id(n));
    return out;
}

ObjectIDs idSet(const std::vector<int>& numbers) {
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
    // The ids removed, whether emptied groups go too, and the ids left.
    const std::tuple<std::vector<int>, bool, std::vector<int>> cases[] = {
        {{6}, true, {1, 2, 3, 4, 7, 8, 9}}, {{6}, false, {1, 2, 3, 4, 5, 7, 8, 9}}, {{4, 6}, true, {1, 2, 7, 8, 9}},
        {{2, 4, 6, 7}, true, {8, 9}},       {{3}, true, {1, 2, 7, 8, 9}},
    };
    for (const auto& [removed, pruning, left] : cases) {
        ObjectNodes nodes = tree();
        EXPECT_TRUE(removeNodes(nodes, idSet(removed), pruning));
        EXPECT_EQ(allIDs(nodes), ids(left));
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
    for (const auto& [n, hidden] : {std::pair{6, true}, {3, true}, {2, false}, {42, false}})
        EXPECT_EQ(isEffectivelyHidden(nodes, id(n)), hidden) << n;
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

ObjectNode named(std::string name, ObjectContent content) { return testing::node(std::move(name), 0, std::move(content)); }

TEST(ObjectNamer, CountsOnFromTheHighestNumberOfEachKind) {
    L10n::LanguageOverride chinese("zh-Hans");
    const auto defaults = AnnotationDefaults::standard();
    const auto rectangle = ObjectContent::makeAnnotation(defaults.rectangle({}));
    const auto ellipse = ObjectContent::makeAnnotation(defaults.ellipse({}));
    const ObjectNodes nodes{
        named("矩形 3", rectangle), named("矩形 x", rectangle),
        named("编组 2", ObjectContent::makeGroup({named("矩形 -7", rectangle), named("矩形 12", ellipse)})),
        named("矩形  9", rectangle), named("矩形 99999999999999999999", rectangle),
    };
    ObjectNamer namer = ObjectNamer::over(nodes);
    const auto rectangles = ObjectNamer::Key::makeKind(AnnotationKind::rectangle);
    EXPECT_EQ(namer.next(rectangles), "矩形 4");
    EXPECT_EQ(namer.next(rectangles), "矩形 5");
    EXPECT_EQ(namer.next(ObjectNamer::Key::makeKind(AnnotationKind::ellipse)), "椭圆 1");
    EXPECT_EQ(namer.next(ObjectNamer::Key::makeGroup()), "编组 3");
    EXPECT_EQ(namer.next(ObjectNamer::Key::makeKind(AnnotationKind::pen)), "画笔 1");
}

TEST(AnnotationDefaults, FactoriesFitWhatTheyAreGiven) {
    const auto defaults = AnnotationDefaults::standard();
    // A frame drawn leftwards and upwards is stored with a positive size.
    EXPECT_EQ(defaults.rectangle({{100, 50}, {-40, -10}}).as<Annotation::rectangle>().value.frame,
              (CGRect{{60, 40}, {40, 10}}));
    EXPECT_EQ(defaults.arrow({0, 0}, {1, 1}).as<Annotation::arrow>().value.heads, ArrowHeads::end);
    EXPECT_EQ(defaults.line({0, 0}, {1, 1}).as<Annotation::line>().value.heads, ArrowHeads::none);
    EXPECT_TRUE(defaults.formula({1, 2}, 30).as<Annotation::text>().value.formula);
    // A lens is a square of a quarter of the shorter side of what it looks at, in its middle.
    EXPECT_EQ(defaults.magnifier(2, {{0, 0}, {400, 200}}).as<Annotation::magnifier>().value.frame,
              (CGRect{{175, 75}, {50, 50}}));
    EXPECT_GE(defaults.counter({}).as<Annotation::counter>().value.diameter, AnnotationLimits::minimumCounterDiameter);
}

const double nan = std::numeric_limits<double>::quiet_NaN();

ParticlesAnnotation standard() { return ParticlesAnnotation::standard(CGRect{{0, 0}, {800, 500}}, std::nullopt, 7); }

std::string bytes(const ParticlesAnnotation& particles) { return encodeJSON(particles).compact(); }

TEST(ParticlesAnnotation, ANewRecipeWritesOnlyWhatDiffersFromAbsence) {
    EXPECT_EQ(bytes(standard()),
              R"({"colors":[{"alpha":1,"blue":1,"green":1,"red":1}],"fadeOut":0.3,"life":{"high":2,"low":1},)"
              R"("rate":40,"seed":7,"sizeEnd":4,"sizeStart":4,"source":{"point":[400,250]},)"
              R"("speed":{"high":160,"low":60},"spread":360})");
    // An empty canvas counts as 800 by 500 points; a given source wins.
    EXPECT_EQ(ParticlesAnnotation::standard(CGRect{}, std::nullopt, 7), standard());
    const ParticleSource area{{}, ParticleSource::area{CGRect{{1, 2}, {3, 4}}}};
    EXPECT_EQ(ParticlesAnnotation::standard(CGRect{}, area, 7).source, area);
}

TEST(ParticlesAnnotation, TurbulenceRateIsWrittenOnlyWithTurbulence) {
    // Turbulence, its rate, and whether the rate is written.
    for (const auto& [turbulence, written] : {std::pair{0.0, 0u}, {5.0, 1u}}) {
        ParticlesAnnotation particles = standard();
        particles.turbulence = turbulence;
        particles.turbulenceRate = 3;
        EXPECT_EQ(encodeJSON(particles).object()->count("turbulenceRate"), written) << turbulence;
    }
}

TEST(ParticlesAnnotation, EveryFieldSurvivesItsJSON) {
    // Every optional field set; the blend is stored under "overlap".
    const std::string_view stored =
        R"({"bursts":[{"at":0.5,"count":20,"pin":{"marker":1}},{"at":1,"count":3}],"colorOverLife":[{"color":)"
        R"({"alpha":1,"blue":0,"green":0,"red":1},"offset":0},{"color":{"alpha":1,"blue":1,"green":0,"red":0},)"
        R"("offset":1}],"colorPick":"each","colors":[{"alpha":1,"blue":1,"green":1,"red":1}],"depth":40,"drag":0.5,)"
        R"("emitter":{"object":"anything"},"fadeOut":0.3,"flip":1.5,"from":{"fill":true,"letterDelay":0.2,)"
        R"("object":"0B0B0B0B-0000-4000-8000-000000000001"},"glyphs":"*+","gravity":[0,98],"life":{"high":2,"low":1},)"
        R"("look":"glyph","maxCount":900,"opacityOverLife":[{"at":0.5,"value":1}],"overlap":"lighten","prewarm":true,)"
        R"("rate":40,"seed":7,"sizeEnd":4,"sizeOverLife":[{"at":0,"value":4},{"at":1,"value":0}],"sizeStart":4,)"
        R"("source":{"path":{"anchors":[{"point":[0,0]},{"point":[5,9]}],"isClosed":true}},"speed":{"high":160,)"
        R"("low":60},"spread":360,"texture":{"section":"00000000-0000-0000-0000-000000000000"},"turbulence":4,)"
        R"("turbulenceRate":2,"turbulenceScale":80,"wind":[-3,0]})";
    const auto particles = decodeJSON<ParticlesAnnotation>(stored);
    EXPECT_EQ(encodeJSON(particles).compact(), stored);
    EXPECT_EQ(particles.blend, ParticleBlend::lighten);
}

TEST(ParticlesAnnotation, ReadingClampsDepthAndLetterDelay) {
    // The stored depth and letter delay, and what is kept of them.
    const std::tuple<const char*, const char*, double, double> cases[] = {
        {"-5", "-1", 0, 0}, {"30000", "90", 20000, 60}, {"12.5", "0.25", 12.5, 0.25}};
    for (const auto& [depth, letterDelay, keptDepth, keptDelay] : cases) {
        JSONValue json = encodeJSON(standard());
        json.object()->insert_or_assign("depth", JSONValue::parse(depth));
        json.object()->insert_or_assign(
            "from", JSONValue::parse(std::string(R"({"object":"0B0B0B0B-0000-4000-8000-000000000001","letterDelay":)") +
                                     letterDelay + "}"));
        const auto particles = decodeJSON<ParticlesAnnotation>(json);
        EXPECT_EQ(particles.depth, keptDepth) << depth;
        EXPECT_EQ(particles.from->letterDelay, keptDelay) << letterDelay;
    }
}

TEST(ParticlesAnnotation, KeptMakesEveryNumberSound) {
    using P = ParticlesAnnotation;
    // A field, a value out of its limits, and what is kept.
    const std::tuple<double P::*, double, double> numbers[] = {
        {&P::rate, 2e5, 100000}, {&P::direction, nan, 0},  {&P::spread, 400, 360},   {&P::drag, -1, 0},
        {&P::sizeStart, nan, 1}, {&P::sizeEnd, -2, 0},     {&P::sizeJitter, 3, 1},    {&P::brightness, nan, 1},
        {&P::fadeOut, 2, 1},     {&P::trail, 5, 2},        {&P::depth, 1e9, 20000},   {&P::flip, -50, -20},
        {&P::turbulenceScale, -4, 0},
    };
    for (const auto& [field, bad, kept] : numbers) {
        ParticlesAnnotation particles = standard();
        particles.*field = bad;
        EXPECT_EQ(particles.kept().*field, kept) << bad;
    }
    ParticlesAnnotation bad = standard();
    bad.life = {70, nan};
    bad.speed = {90, -5};
    bad.colors.assign(6, RGBA{0, 0, 0, 1});
    bad.maxCount = 0;
    const ParticlesAnnotation kept = bad.kept();
    EXPECT_EQ(kept.life, (ParticleRange{1, 60}));
    EXPECT_EQ(kept.speed, (ParticleRange{0, 90}));
    EXPECT_EQ(kept.colors.size(), 4u);
    EXPECT_EQ(kept.maxCount, 1);
}

TEST(ParticlesAnnotation, KeptBurstsCanLeaveAndAreInOrder) {
    ParticlesAnnotation particles = standard();
    particles.bursts = {{2, 5, std::nullopt}, {nan, 5, std::nullopt}, {1, 0, std::nullopt}, {0.5, 900000, std::nullopt}};
    EXPECT_EQ(particles.kept().bursts, (std::vector<ParticleBurst>{{0.5, 100000, std::nullopt}, {2, 5, std::nullopt}}));
    particles.bursts.assign(70, ParticleBurst{1, 1, std::nullopt});
    EXPECT_EQ(particles.kept().bursts.size(), ParticleLimits::bursts);
}

TEST(ParticlesAnnotation, KeptCurvesAreSortedCutAndInRange) {
    ParticlesAnnotation particles = standard();
    particles.sizeOverLife = std::vector<ParticleLifeStop>{{0.9, 5000}, {nan, 2}, {-1, -3}};
    particles.opacityOverLife = std::vector<ParticleLifeStop>{};
    particles.colorOverLife = std::vector<VectorGradientStop>(10, VectorGradientStop{2, RGBA{}});
    const ParticlesAnnotation kept = particles.kept();
    EXPECT_EQ(kept.sizeOverLife, (std::vector<ParticleLifeStop>{{0, 2}, {0, 0}, {0.9, 1000}}));
    EXPECT_FALSE(kept.opacityOverLife);
    ASSERT_TRUE(kept.colorOverLife);
    EXPECT_EQ(kept.colorOverLife->size(), ParticleLimits::lifeStops);
    EXPECT_EQ(kept.colorOverLife->front().offset, 1);
}

TEST(ParticlesAnnotation, KeptGlyphsStopAtTheLimitOfCharacters) {
    ParticlesAnnotation particles = standard();
    std::string stars;
    for (int i = 0; i < 130; ++i) stars += "\xE2\x98\x85"; // three bytes a character
    particles.glyphs = stars;
    EXPECT_EQ(particles.kept().glyphs, stars.substr(0, 128 * 3));

}

} // namespace
} // namespace ovik
