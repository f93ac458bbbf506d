#include <gtest/gtest.h>

#include <set>

#include "PropertySamples.h"

namespace ovik {
namespace {

using namespace testing;

// One object of each kind the rows reach; "Rect" is 20 points thick. "Marks" holds a
// rectangle and a text, "Words" only texts.
Draft kindsDraft() {
    const AnnotationDefaults d = AnnotationDefaults::standard();
    const CGRect frame{{10, 10}, {80, 40}};
    ObjectNode rect = leaf("Rect", 0, d.rectangle(frame));
    Thickness thick;
    thick.depth = 20;
    rect.thickness = thick;
    PathAnnotation path;
    path.path.anchors.resize(2);
    path.path.anchors[1].point = CGPoint{30, 40};
    Draft draft;
    draft.objects = CowList<ObjectNode>({
        rect, leaf("Oval", 1, d.ellipse(frame)), leaf("Arrow", 2, d.arrow({0, 0}, {50, 50})),
        leaf("Line", 3, d.line({0, 0}, {50, 0})), leaf("Pen", 4, d.pen({{0, 0}, {5, 5}}, std::nullopt)),
        leaf("Text", 5, d.text({0, 0}, "Hello")), leaf("Counter", 6, d.counter({20, 20})),
        leaf("Redact", 7, d.redact(frame)), leaf("Spot", 8, d.spotlight(frame)), leaf("Lens", 9, d.magnifier(2, frame)),
        leaf("Path", 10, Annotation{{}, Annotation::path{path}}),
        node("Marks", 11,
             ObjectContent::makeGroup({leaf("Inner", 12, d.rectangle(frame)), leaf("Caption", 13, d.text({0, 0}, "A"))})),
        node("Words", 14, ObjectContent::makeGroup({leaf("Word", 15, d.text({0, 0}, "B"))})),
    });
    return draft;
}

JSONValue json(const char* text) { return JSONValue::parse(text); }

TEST(ObjectRows, EachRowRoundTripsOnAKindThatHasIt) {
    // A path and the text of a value it takes; the rows of a plain rectangle round-trip with all others.
    const std::tuple<const char*, const char*> cases[] = {
        {"Path.fillColor", "\"#112233\""}, {"Oval.gradientFrom", "\"#445566\""},  {"Oval.gradientTo", "\"#778899\""},
        {"Pen.pattern", "\"sketch\""},     {"Path.pattern", "\"dotted\""},         {"Arrow.body", "\"tapered\""},
        {"Line.heads", "\"both\""},        {"Pen.halo", "true"},                   {"Arrow.through", "true"},
        {"Text.size", "40"},               {"Counter.size", "30"},                 {"Line.size", "6"},
        {"Oval.size", "2.5"},              {"Text.alignment", "\"center\""},       {"Text.background", "\"#FFFFFF\""},
        {"Redact.mode", "\"blur\""},       {"Redact.strength", "0.8"},             {"Spot.shape", "\"ellipse\""},
        {"Lens.shape", "\"rectangle\""},   {"Lens.zoom", "3"},                     {"Spot.dim", "0.25"},
        {"Pen.ink", "\"dry\""},            {"Pen.inkAmount", "0.7"},               {"Pen.inkGrain", "2"},
        {"Pen.inkSeed", "42"},             {"Rect.loop", "\"forever\""},           {"Text.font", "\"Avenir-Heavy\""},
        {"Text.tracking", "-1"},           {"Text.lineSpacing", "1.5"},            {"Text.vertical", "true"},
        {"Rect.bevel", "5"},               {"Rect.bevelSegments", "8"},            {"Rect.bevelProfile", "\"flat\""},
        {"Text.weight", "\"bold\""},       {"Text.weight", "650"},                 {"Text.width", "75"},
        {"Text.slant", "-12"},             {"Rect.sideMaterial", R"({"color":"#FF0000"})"},
        {"Rect.backMaterial", R"({"roughness":0.5})"},
    };
    for (const auto& [path, text] : cases) expectKept(kindsDraft(), path, json(text));
}

TEST(ObjectRows, AGroupReachesTheLeavesThatHaveTheRow) {
    Draft draft = kindsDraft();
    EXPECT_TRUE(set(draft, "Marks.pattern", JSONValue("dotted")));
    EXPECT_TRUE(get(draft, "Inner.pattern")->same(JSONValue("dotted")));
    EXPECT_FALSE(get(draft, "Caption.pattern"));
    // A group of texts only has no leaf with the row.
    const L10n::LanguageOverride english("en");
    try {
        set(draft, "Words.pattern", JSONValue("dotted"));
        ADD_FAILURE() << "a text took a line style";
    } catch (const PropertyError& error) {
        EXPECT_EQ(std::string(error.what()),
                  "“Words” has no Line style: it is only for Rectangle, Ellipse, Arrow, Line, Pen, Path.");
    }
}

TEST(ObjectRows, RefusalsNameTheProblemAndChangeNothing) {
    const L10n::LanguageOverride english("en");
    // Path, value, and part of the refusal (any text when empty).
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"Rect.heads", "\"end\"", "it is only for Arrow, Line."}, {"Rect.fillColor", "\"red\"", "#RRGGBB, or none"},
        {"Rect.speed", "20", ""}, {"Rect.loop", "0", "between 1 and 1000"},
        {"Rect.loop", "\"often\"", "a count or \"forever\""}, {"Rect.loop", "2.5", "a count or \"forever\""},
        {"Rect.offset", "-1", "start can't be negative"}, {"Rect.freeze", "-1", "freeze time can't be negative"},
        {"Rect.timeCurve", "[[1, 0], [0, 1]]", "earliest to latest"}, {"Rect.timeCurve", "[]", "at least one keyframe"},
        {"Rect.timeCurve", "[[0, 0], [1]]", "[[x, y], …], or none"}, {"Rect.pivot", "[1]", "[x, y], or none"},
        {"Text.weight", "\"heavy\"", ""}, {"Text.weight", "1200", ""}, {"Rect.sideMaterial", "[1]", "material JSON"},
    };
    for (const auto& [path, value, message] : cases) expectRefused(kindsDraft(), path, json(value), message);
}

TEST(ObjectRows, AWeightWordLeavesTheWeightAxis) {
    Draft draft = kindsDraft();
    set(draft, "Text.weight", JSONValue(700.0));
    set(draft, "Text.width", JSONValue(80.0));
    set(draft, "Text.weight", JSONValue("medium"));
    EXPECT_TRUE(get(draft, "Text.weight")->same(JSONValue("medium")));
    // The other axis stays, and is what the text's axis actions shift.
    EXPECT_TRUE(get(draft, "Text.width")->same(JSONValue(80.0)));
    EXPECT_TRUE(get(draft, "Text.slant")->same(JSONValue(0.0)));
}

TEST(ObjectRows, SizesBelowTheirLimitAreRaisedToIt) {
    Draft draft = kindsDraft();
    set(draft, "Counter.size", JSONValue(2.0));
    set(draft, "Line.size", JSONValue(0.1));
    EXPECT_TRUE(get(draft, "Counter.size")->same(JSONValue(8.0)));
    EXPECT_TRUE(get(draft, "Line.size")->same(JSONValue(0.5)));
}

TEST(ObjectRows, DetailsSwitchAndKeepTheirRecords) {
    Draft draft = kindsDraft();
    // A dry setting makes the ink dry; choosing dry again keeps its settings.
    set(draft, "Pen.inkGrain", JSONValue(3.0));
    EXPECT_TRUE(get(draft, "Pen.ink")->same(JSONValue("dry")));
    EXPECT_FALSE(set(draft, "Pen.ink", JSONValue("dry")));
    set(draft, "Pen.ink", JSONValue("pixel"));
    EXPECT_FALSE(get(draft, "Pen.inkGrain"));
    // Turning a gradient off keeps its first colour as the fill.
    set(draft, "Rect.gradientFrom", JSONValue("#102030"));
    set(draft, "Rect.gradient", JSONValue(false));
    EXPECT_TRUE(get(draft, "Rect.fillColor")->same(JSONValue("#102030")));
    EXPECT_TRUE(get(draft, "Rect.gradientTo")->same(JSONValue("none")));
    // A clock set back to plain is left out of the node.
    set(draft, "Rect.speed", JSONValue(2.0));
    set(draft, "Rect.speed", JSONValue(1.0));
    EXPECT_FALSE(draft.objects[0].clock);
}

const std::string otherID = numbered(2).uuidString();
const std::string sparksID = numbered(3).uuidString();

// "Sparks" takes its shape from "Box" and has some turbulence; "Plain" is a new recipe.
Draft particlesDraft() {
    const CGRect frame{{0, 0}, {80, 40}};
    ParticlesAnnotation sparks = ParticlesAnnotation::standard(frame, std::nullopt, 9);
    sparks.from = ParticleShapeSource{ObjectID{numbered(1)}};
    sparks.turbulence = 5;
    const AnnotationDefaults d = AnnotationDefaults::standard();
    Draft draft;
    draft.objects = CowList<ObjectNode>({
        leaf("Box", 1, d.rectangle(frame)), leaf("Other", 2, d.ellipse(frame)),
        leaf("Sparks", 3, Annotation{{}, Annotation::particles{sparks}}),
        leaf("Plain", 4, Annotation{{}, Annotation::particles{ParticlesAnnotation::standard(frame, std::nullopt, 1)}}),
    });
    return draft;
}

// A row of a particles object and the text of a value it takes.
const std::tuple<const char*, std::string> roundTrips[] = {
    {"particleRate", "120"}, {"particleBurst", "[[0.5, 20], [1, 5]]"}, {"particleBurst", "[]"}, {"particleLife", "3"},
    {"particleSpeed", "80"}, {"particleDirection", "-90"}, {"particleSpread", "45"}, {"particleGravity", "[0, 98]"},
    {"particleSize", "6"}, {"particleTrail", "0.5"}, {"particleDepth", "300"}, {"particleBlend", "\"add\""},
    {"particleLook", "\"flake\""}, {"particleSeed", "4294967295"}, {"particleMax", "500"},
    {"particleMax", "\"none\""}, {"particleLifeRange", "[0.5, 4]"}, {"particleSpeedRange", "[10, 20]"},
    {"particleSizeEnd", "0"}, {"particleSizeJitter", "0.3"}, {"particleColorPick", "\"each\""},
    {"particleBrightness", "2"}, {"particleSoftness", "0.5"}, {"particleFadeIn", "0.1"}, {"particleFadeOut", "0.4"},
    {"particlePrewarm", "true"}, {"particleSource", "[10, 20]"}, {"particleSource", "[0, 0, 100, 50]"},
    {"particleSource", R"({"anchors": [{"point": [0, 0]}, {"point": [50, 10]}]})"}, {"particleInside", "true"},
    {"particleLetterDelay", "0.25"}, {"particleSizeOverLife", "[[0, 4], [1, 0]]"},
    {"particleOpacityOverLife", "[[0, 1], [0.5, 0.2]]"}, {"particleOpacityOverLife", "\"none\""},
    {"particleColorOverLife", R"([[0, "#FF0000"], [1, "#0000FF"]])"}, {"particleTurbulence", "20"},
    {"particleTurbulenceRate", "2"}, {"particleTurbulenceScale", "200"}, {"particleFlip", "-2"},
    {"particleSpin", "90"}, {"particleDrag", "0.5"}, {"particleGlyphs", "\"\xE2\x98\x85+\""},
    {"particleColors", R"(["#FF0000", "#00FF00"])"}, {"particleFrom", "\"" + otherID + "\""},
    {"particleFrom", "\"none\""}, {"particleTexture", R"({"object": ")" + otherID + "\"}"}, {"particleWind", "[5, -1]"},
};

TEST(ParticleRows, EveryRowRoundTripsThroughTheDraftAndItsJSON) {
    for (const auto& [row, text] : roundTrips)
        expectKept(particlesDraft(), std::string("Sparks.") + row, JSONValue::parse(text));
}

TEST(ParticleRows, EveryParticleRowIsReadAndWrittenOnParticlesOnly) {
    std::set<std::string> tried;
    for (const auto& [row, text] : roundTrips) tried.insert(row);
    std::size_t rows = 0;
    for (const PropertyKey key : PropertyTable::allKeys()) {
        const PropertySpec& spec = key.spec();
        if (spec.sdk.rfind("particle", 0) != 0) continue;
        ++rows;
        EXPECT_TRUE(tried.count(spec.sdk)) << spec.sdk << " has no round trip";
        EXPECT_TRUE(get(particlesDraft(), "Plain." + spec.sdk)) << spec.sdk;
        EXPECT_FALSE(get(particlesDraft(), "Box." + spec.sdk)) << spec.sdk;
    }
    EXPECT_GT(rows, 0u);
}

TEST(ParticleRows, OneNumberStandsForAWholeRange) {
    Draft draft = particlesDraft();
    EXPECT_TRUE(get(draft, "Sparks.particleLife")->same(JSONValue(1.5)));
    set(draft, "Sparks.particleLife", JSONValue(3));
    EXPECT_TRUE(get(draft, "Sparks.particleLifeRange")->same(JSONValue::parse("[3, 3]")));
    set(draft, "Sparks.particleSpeedRange", JSONValue::parse("[10, 30]"));
    EXPECT_TRUE(get(draft, "Sparks.particleSpeed")->same(JSONValue(20)));
}

TEST(ParticleRows, ListsAreStoredInOrder) {
    Draft draft = particlesDraft();
    set(draft, "Sparks.particleSizeOverLife", JSONValue::parse("[[1, 0], [0, 4]]"));
    EXPECT_TRUE(get(draft, "Sparks.particleSizeOverLife")->same(JSONValue::parse("[[0, 4], [1, 0]]")));
    set(draft, "Sparks.particleBurst", JSONValue::parse("[[2, 1], [0.5, 3]]"));
    EXPECT_TRUE(get(draft, "Sparks.particleBurst")->same(JSONValue::parse("[[0.5, 3], [2, 1]]")));
    set(draft, "Sparks.particleColors", JSONValue("none"));
    EXPECT_TRUE(get(draft, "Sparks.particleColors")->same(JSONValue::parse("[]")));
}

TEST(ParticleRows, RefusalsChangeNothing) {
    std::string manyBursts = "[";
    for (int i = 0; i < 65; ++i) manyBursts += std::string(i ? "," : "") + "[1, 1]";
    manyBursts += "]";
    const std::string self = "\"" + sparksID + "\"";
    const std::pair<const char*, std::string> cases[] = {
        {"Sparks.particleLifeRange", "[3, 1]"}, {"Sparks.particleLifeRange", "[1]"}, {"Sparks.particleBurst", "5"},
        {"Sparks.particleBurst", manyBursts},
        {"Sparks.particleColors", R"(["#000000","#000000","#000000","#000000","#000000"])"},
        {"Sparks.particleSizeOverLife", "[[0,1],[0,1],[0,1],[0,1],[0,1],[0,1],[0,1],[0,1],[0,1]]"},
        {"Sparks.particleSizeOverLife", "[[1.5, 1]]"}, {"Sparks.particleColorOverLife", "[[0, 1]]"},
        {"Sparks.particleGlyphs", "\"   \""}, {"Sparks.particleFrom", self}, {"Sparks.particleFrom", "\"Box\""},
        {"Plain.particleInside", "true"}, {"Sparks.particleTexture", "[1]"}, {"Sparks.particleSource", "\"none\""},
        {"Sparks.particleSource", "[0, 0, 0, 10]"},
    };
    for (const auto& [path, value] : cases) expectRefused(particlesDraft(), path, JSONValue::parse(value), "");
}

} // namespace
} // namespace ovik
