#include "OvikModel/objects/ParticlesAnnotation.h"

#include <limits>

namespace ovik {
namespace {

constexpr double unbounded = std::numeric_limits<double>::infinity();

// A stored number made sound: `fallback` when it isn't finite, else clamped.
double sound(double value, double fallback, double low, double high = unbounded) {
    return std::isfinite(value) ? std::clamp(value, low, high) : fallback;
}

ParticleRange ordered(double a, double b) { return a <= b ? ParticleRange{a, b} : ParticleRange{b, a}; }

// Stops with their positions in 0...1, sorted, cut to the limit; none when nothing is left.
template <class Stop>
std::optional<std::vector<Stop>> keptStops(const std::optional<std::vector<Stop>>& stops, double Stop::*position) {
    if (!stops || stops->empty()) return std::nullopt;
    std::vector<Stop> out = *stops;
    for (Stop& stop : out) stop.*position = sound(stop.*position, 0, 0, 1);
    std::stable_sort(out.begin(), out.end(), [position](const Stop& a, const Stop& b) { return a.*position < b.*position; });
    if (out.size() > ParticleLimits::lifeStops) out.resize(ParticleLimits::lifeStops);
    return out;
}

std::optional<std::vector<ParticleLifeStop>> keptValues(const std::optional<std::vector<ParticleLifeStop>>& stops,
                                                        double highest) {
    auto out = keptStops(stops, &ParticleLifeStop::at);
    if (out)
        for (ParticleLifeStop& stop : *out) stop.value = sound(stop.value, 0, 0, highest);
    return out;
}

// Bursts that can leave, the first of them up to the limit, each capped, in the order they leave.
std::vector<ParticleBurst> keptBursts(const std::vector<ParticleBurst>& bursts) {
    std::vector<ParticleBurst> out;
    for (const ParticleBurst& burst : bursts)
        if (std::isfinite(burst.at) && burst.count > 0 && out.size() < ParticleLimits::bursts)
            out.push_back({burst.at, std::min(burst.count, ParticleLimits::perBurst), burst.pin});
    std::stable_sort(out.begin(), out.end(), [](const ParticleBurst& a, const ParticleBurst& b) { return a.at < b.at; });
    return out;
}

// The first `limit` characters of UTF-8 text, a character being one code point.
std::string firstCharacters(const std::string& text, std::size_t limit) {
    std::size_t characters = 0;
    for (std::size_t at = 0; at < text.size(); ++at)
        if ((static_cast<unsigned char>(text[at]) & 0xC0) != 0x80 && characters++ == limit) return text.substr(0, at);
    return text;
}

} // namespace

ParticlesAnnotation ParticlesAnnotation::standard(const CGRect& canvas, const std::optional<ParticleSource>& source,
                                                  std::uint32_t seed) {
    CGRect frame = canvas.standardized();
    if (frame.width() <= 0 || frame.height() <= 0) frame = CGRect{{0, 0}, {800, 500}};
    ParticlesAnnotation out;
    out.source = source.value_or(ParticleSource{{},
        ParticleSource::point{{(frame.minX() + frame.maxX()) / 2, (frame.minY() + frame.maxY()) / 2}}});
    out.rate = 40;
    out.life = {1, 2};
    out.speed = {60, 160};
    out.spread = 360;
    out.sizeStart = 4;
    out.sizeEnd = 4;
    out.colors = {RGBA{1, 1, 1, 1}};
    out.fadeOut = 0.3;
    out.seed = seed;
    return out;
}

ParticlesAnnotation ParticlesAnnotation::kept() const {
    namespace L = ParticleLimits;
    ParticlesAnnotation out = *this;
    out.rate = sound(rate, 0, 0, L::highestRate);
    out.life = ordered(sound(life.low, 1, L::shortestLife, L::longestLife),
                       sound(life.high, 1, L::shortestLife, L::longestLife));
    out.speed = ordered(sound(speed.low, 0, 0), sound(speed.high, 0, 0));
    out.direction = sound(direction, 0, -unbounded);
    out.spread = sound(spread, 0, 0, 360);
    out.drag = sound(drag, 0, 0);
    out.turbulence = sound(turbulence, 0, 0);
    out.turbulenceRate = sound(turbulenceRate, 0, 0);
    out.sizeStart = sound(sizeStart, 1, 0);
    out.sizeEnd = sound(sizeEnd, 1, 0);
    out.sizeJitter = sound(sizeJitter, 0, 0, 1);
    if (out.colors.size() > L::drawnColors) out.colors.resize(L::drawnColors);
    out.brightness = sound(brightness, 1, 0, L::brightest);
    out.softness = sound(softness, 0, 0, 1);
    out.fadeIn = sound(fadeIn, 0, 0, 1);
    out.fadeOut = sound(fadeOut, 0, 0, 1);
    out.trail = sound(trail, 0, 0, L::longestTrail);
    out.spin = sound(spin, 0, -unbounded);
    out.bursts = keptBursts(bursts);
    if (maxCount) out.maxCount = std::clamp(*maxCount, 1, L::perObject);
    out.depth = sound(depth, 0, 0, L::depth);
    if (out.from) out.from->letterDelay = sound(from->letterDelay, 0, 0, L::letterDelay);
    if (glyphs) out.glyphs = firstCharacters(*glyphs, L::storedGlyphs);
    out.colorOverLife = keptStops(colorOverLife, &VectorGradientStop::offset);
    out.sizeOverLife = keptValues(sizeOverLife, L::biggestLifeSize);
    out.opacityOverLife = keptValues(opacityOverLife, 1);
    out.flip = sound(flip, 0, -L::fastestFlip, L::fastestFlip);
    out.turbulenceScale = sound(turbulenceScale, 0, 0, L::turbulenceScale);
    return out;
}

JSONValue JSONCoding<ParticlesAnnotation>::encode(const ParticlesAnnotation& particles) {
    JSONValue out = RecordCoding<ParticlesAnnotation>::encode(particles);
    if (particles.turbulence == 0) out.object()->erase("turbulenceRate");
    return out;
}

ParticlesAnnotation JSONCoding<ParticlesAnnotation>::decode(JSONNode node, const CodingPath& path) {
    return RecordCoding<ParticlesAnnotation>::decode(node, path);
}

} // namespace ovik
