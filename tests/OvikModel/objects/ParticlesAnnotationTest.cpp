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
    // turbulence, rate, written
    const std::tuple<double, double, bool> cases[] = {{0, 0, false}, {0, 3, false}, {5, 0, true}, {5, 3, true}};
    for (const auto& [turbulence, rate, written] : cases) {
        ParticlesAnnotation particles = standard();
        particles.turbulence = turbulence;
        particles.turbulenceRate = rate;
        EXPECT_EQ(encodeJSON(particles).object()->count("turbulenceRate"), written ? 1u : 0u)
            << turbulence << " " << rate;
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

TEST(ParticlesAnnotation, ReadingFailsWithAnUnknownSource) {
    JSONValue json = encodeJSON(standard());
    json.object()->insert_or_assign("source", JSONValue::parse(R"({"spiral":[0,0]})"));
    EXPECT_THROW(decodeJSON<ParticlesAnnotation>(json), DecodingError);
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
    particles.glyphs = "ab";
    EXPECT_EQ(particles.kept().glyphs, "ab");
}

} // namespace
} // namespace ovik
