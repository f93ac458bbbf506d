#include <gtest/gtest.h>

#include <set>

#include "PropertySamples.h"

namespace ovik {
namespace {

using namespace testing;

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
        leaf("Box", 1, d.rectangle(frame)),
        leaf("Other", 2, d.ellipse(frame)),
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
    {"particleFrom", "\"none\""}, {"particleTexture", R"({"object": ")" + otherID + "\"}"},
    {"particleWind", "[5, -1]"},
};

TEST(ParticleRows, EveryRowRoundTripsThroughTheDraftAndItsJSON) {
    for (const auto& [row, text] : roundTrips) {
        Draft draft = particlesDraft();
        const std::string path = std::string("Sparks.") + row;
        const JSONValue value = JSONValue::parse(text);
        set(draft, path, value);
        const auto read = get(draft, path);
        ASSERT_TRUE(read) << path;
        EXPECT_TRUE(read->same(value)) << path << " reads " << read->compact();
        EXPECT_FALSE(set(draft, path, value)) << path << " changed again";
        EXPECT_TRUE(get(reread(draft), path)->same(value)) << path;
    }
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
        {"Sparks.particleLifeRange", "[3, 1]"},
        {"Sparks.particleLifeRange", "[1]"},
        {"Sparks.particleBurst", "5"},
        {"Sparks.particleBurst", manyBursts},
        {"Sparks.particleColors", R"(["#000000","#000000","#000000","#000000","#000000"])"},
        {"Sparks.particleSizeOverLife", "[[0,1],[0,1],[0,1],[0,1],[0,1],[0,1],[0,1],[0,1],[0,1]]"},
        {"Sparks.particleSizeOverLife", "[[1.5, 1]]"},
        {"Sparks.particleColorOverLife", "[[0, 1]]"},
        {"Sparks.particleGlyphs", "\"   \""},
        {"Sparks.particleFrom", self},
        {"Sparks.particleFrom", "\"Box\""},
        {"Plain.particleInside", "true"},
        {"Sparks.particleTexture", "[1]"},
        {"Sparks.particleSource", "\"none\""},
        {"Sparks.particleSource", "[0, 0, 0, 10]"},
    };
    for (const auto& [path, value] : cases) expectRefused(particlesDraft(), path, JSONValue::parse(value), "");
}

} // namespace
} // namespace ovik
