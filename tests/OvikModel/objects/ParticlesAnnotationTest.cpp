#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "OvikModel/objects/ParticlesAnnotation.h"

namespace ovik {
namespace {

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
    const struct {
        double turbulence, rate;
        bool written;
    } cases[] = {{0, 0, false}, {0, 3, false}, {5, 0, true}, {5, 3, true}};
    for (const auto& c : cases) {
        ParticlesAnnotation particles = standard();
        particles.turbulence = c.turbulence;
        particles.turbulenceRate = c.rate;
        EXPECT_EQ(encodeJSON(particles).object()->count("turbulenceRate"), c.written ? 1u : 0u)
            << c.turbulence << " " << c.rate;
    }
}

TEST(ParticlesAnnotation, EveryFieldSurvivesItsJSON) {
    ParticlesAnnotation particles = standard();
    BezierPath path;
    path.anchors.resize(2);
    path.anchors[1].point = CGPoint{5, 9};
    path.isClosed = true;
    particles.source = ParticleSource{{}, ParticleSource::path{path}};
    particles.emitter = OpaqueJSON(JSONValue::parse(R"({"object":"anything"})"));
    particles.gravity = {0, 98};
    particles.wind = {-3, 0};
    particles.drag = 0.5;
    particles.turbulence = 4;
    particles.turbulenceRate = 2;
    particles.colorPick = ParticleColorPick::each;
    particles.look = ParticleLook::glyph;
    particles.blend = ParticleBlend::lighten;
    particles.bursts = {{0.5, 20, OpaqueJSON(JSONValue::parse(R"({"marker":1})"))}, {1, 3, std::nullopt}};
    particles.prewarm = true;
    particles.maxCount = 900;
    particles.depth = 40;
    particles.from = ParticleShapeSource{ObjectID{*UUID::parse("0B0B0B0B-0000-4000-8000-000000000001")}, true, 0.2};
    particles.texture = ImageSource{{}, ImageSource::section{SectionID{}}};
    particles.glyphs = "*+";
    particles.colorOverLife = std::vector<VectorGradientStop>{{0, RGBA{1, 0, 0, 1}}, {1, RGBA{0, 0, 1, 1}}};
    particles.sizeOverLife = std::vector<ParticleLifeStop>{{0, 4}, {1, 0}};
    particles.opacityOverLife = std::vector<ParticleLifeStop>{{0.5, 1}};
    particles.flip = 1.5;
    particles.turbulenceScale = 80;
    const JSONValue json = encodeJSON(particles);
    EXPECT_EQ(decodeJSON<ParticlesAnnotation>(json), particles);
    // The blend is stored under its own key.
    EXPECT_EQ(json.object()->count("overlap"), 1u);
    EXPECT_EQ(json.object()->count("blend"), 0u);
}

TEST(ParticlesAnnotation, ReadingFailsWithoutARequiredKeyOrWithAnUnknownSource) {
    for (const char* key : {"source", "rate", "life", "speed", "sizeStart", "sizeEnd", "colors", "seed"}) {
        JSONValue json = encodeJSON(standard());
        json.object()->erase(key);
        EXPECT_THROW(decodeJSON<ParticlesAnnotation>(json), DecodingError) << key;
    }
    JSONValue json = encodeJSON(standard());
    json.object()->insert_or_assign("source", JSONValue::parse(R"({"spiral":[0,0]})"));
    try {
        decodeJSON<ParticlesAnnotation>(json);
        ADD_FAILURE() << "an unknown source was read";
    } catch (const DecodingError& error) {
        EXPECT_NE(std::string(error.what()).find("Unknown case spiral"), std::string::npos) << error.what();
    }
}

TEST(ParticlesAnnotation, ReadingClampsDepthAndLetterDelay) {
    const struct {
        const char* depth;
        const char* letterDelay;
        double keptDepth, keptDelay;
    } cases[] = {{"-5", "-1", 0, 0}, {"30000", "90", 20000, 60}, {"12.5", "0.25", 12.5, 0.25}};
    for (const auto& c : cases) {
        JSONValue json = encodeJSON(standard());
        json.object()->insert_or_assign("depth", JSONValue::parse(c.depth));
        json.object()->insert_or_assign(
            "from", JSONValue::parse(std::string(R"({"object":"0B0B0B0B-0000-4000-8000-000000000001","letterDelay":)") +
                                     c.letterDelay + "}"));
        const auto particles = decodeJSON<ParticlesAnnotation>(json);
        EXPECT_EQ(particles.depth, c.keptDepth) << c.depth;
        EXPECT_EQ(particles.from->letterDelay, c.keptDelay) << c.letterDelay;
    }
}

TEST(ParticlesAnnotation, KeptMakesEveryNumberSound) {
    ParticlesAnnotation bad = standard();
    bad.rate = 2e5;
    bad.life = {70, nan};
    bad.speed = {90, -5};
    bad.direction = nan;
    bad.spread = 400;
    bad.drag = -1;
    bad.sizeStart = nan;
    bad.sizeEnd = -2;
    bad.sizeJitter = 3;
    bad.colors.assign(6, RGBA{0, 0, 0, 1});
    bad.brightness = nan;
    bad.fadeOut = 2;
    bad.trail = 5;
    bad.maxCount = 0;
    bad.depth = 1e9;
    bad.flip = -50;
    bad.turbulenceScale = -4;
    const ParticlesAnnotation kept = bad.kept();
    EXPECT_EQ(kept.rate, 100000);
    EXPECT_EQ(kept.life, (ParticleRange{1, 60}));
    EXPECT_EQ(kept.speed, (ParticleRange{0, 90}));
    EXPECT_EQ(kept.direction, 0);
    EXPECT_EQ(kept.spread, 360);
    EXPECT_EQ(kept.drag, 0);
    EXPECT_EQ(kept.sizeStart, 1);
    EXPECT_EQ(kept.sizeEnd, 0);
    EXPECT_EQ(kept.sizeJitter, 1);
    EXPECT_EQ(kept.colors.size(), 4u);
    EXPECT_EQ(kept.brightness, 1);
    EXPECT_EQ(kept.fadeOut, 1);
    EXPECT_EQ(kept.trail, 2);
    EXPECT_EQ(kept.maxCount, 1);
    EXPECT_EQ(kept.depth, 20000);
    EXPECT_EQ(kept.flip, -20);
    EXPECT_EQ(kept.turbulenceScale, 0);
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
    particles.glyphs = "ab";
    EXPECT_EQ(particles.kept().glyphs, "ab");
}

} // namespace
} // namespace ovik
