#pragma once
// A particles object stores no particles: it is a recipe from which every particle follows from
// its index, its age and the seed. Its parts, its limits and its JSON live here together.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "OvikModel/objects/BezierPath.h"
#include "OvikModel/objects/ImageSource.h"
#include "OvikModel/objects/VectorGradient.h"
#include "OvikModel/values/Identifier.h"
#include "OvikModel/values/RGBA.h"
#include "OvikPlatform/geometry/CGRect.h"

namespace ovik {

/// The constants of the whole feature.
namespace ParticleLimits {
inline constexpr int perObject = 100000;
inline constexpr int perDraft = 250000;
inline constexpr int preview = 25000;
inline constexpr std::size_t bursts = 64;
inline constexpr int perBurst = 100000;
inline constexpr double longestTrail = 2;
inline constexpr double brightest = 8;
inline constexpr double fastestFlip = 20;
inline constexpr double biggestLifeSize = 1000;
inline constexpr double turbulenceScale = 100000;
inline constexpr double burstSpread = 0.02;
inline constexpr double shortestLife = 0.05, longestLife = 60;
inline constexpr double highestRate = 100000;
inline constexpr double depth = 20000;
inline constexpr int shapeSamples = 4096;
inline constexpr int letters = 256;
inline constexpr std::size_t lifeStops = 8;
inline constexpr std::size_t drawnColors = 4;
inline constexpr std::size_t glyphs = 64;
inline constexpr std::size_t storedGlyphs = 128;
inline constexpr double letterDelay = 60;
} // namespace ParticleLimits

/// A double read back clamped to `Low`...`High`, a non-finite one as 0; written as it is.
template <double Low, double High>
struct ClampedOnRead {
    static JSONValue encode(double value) { return JSONValue(value); }
    static double decode(JSONNode node, const CodingPath& path) {
        const double value = JSONCoding<double>::decode(node, path);
        return std::isfinite(value) ? std::clamp(value, Low, High) : 0;
    }
};

/// Where particles are born: at a point, along a path, or anywhere in an area.
struct ParticleSource : Enumeration<ParticleSource> {
    struct point {
        static constexpr std::string_view name = "point";
        CGPoint value;
        bool operator==(const point&) const = default;
    };
    struct path {
        static constexpr std::string_view name = "path";
        BezierPath value;
        bool operator==(const path&) const = default;
    };
    struct area {
        static constexpr std::string_view name = "area";
        CGRect value;
        bool operator==(const area&) const = default;
    };
    std::variant<point, path, area> cases;

    bool operator==(const ParticleSource&) const = default;
};

struct ParticleRange {
    double low = 0;
    double high = 0;

    bool operator==(const ParticleRange&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("low", &ParticleRange::low), required("high", &ParticleRange::high)};
    }
};

struct ParticleBurst {
    double at = 0; // seconds from the object's start
    int count = 0;
    std::optional<OpaqueJSON> pin; // pending: PinnedMoment

    bool operator==(const ParticleBurst&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("at", &ParticleBurst::at), required("count", &ParticleBurst::count),
                          optional("pin", &ParticleBurst::pin)};
    }
};

/// A stop of a curve over a life: `at` 0 is birth, 1 death.
struct ParticleLifeStop {
    double at = 0;
    double value = 0;

    bool operator==(const ParticleLifeStop&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("at", &ParticleLifeStop::at), required("value", &ParticleLifeStop::value)};
    }
};

/// Another object whose outline (or, with `fill`, inside) the particles are born on.
struct ParticleShapeSource {
    ObjectID object;
    bool fill = false;
    double letterDelay = 0; // seconds each letter of a text starts after the one before

    bool operator==(const ParticleShapeSource&) const = default;
    static constexpr auto jsonFields() {
        using S = ParticleShapeSource;
        return std::tuple{required("object", &S::object), defaulted("fill", &S::fill),
                          defaulted<ClampedOnRead<0.0, ParticleLimits::letterDelay>>("letterDelay", &S::letterDelay)};
    }
};

enum class ParticleLook { dot, flake, texture, glyph };
constexpr auto enumCases(ParticleLook*) {
    using enum ParticleLook;
    return EnumCases<ParticleLook, 4>{"ParticleLook", {{dot, "dot"}, {flake, "flake"}, {texture, "texture"}, {glyph, "glyph"}}};
}

enum class ParticleBlend { normal, add, lighten };
constexpr auto enumCases(ParticleBlend*) {
    using enum ParticleBlend;
    return EnumCases<ParticleBlend, 3>{"ParticleBlend", {{normal, "normal"}, {add, "add"}, {lighten, "lighten"}}};
}

enum class ParticleColorPick { overLife, each };
constexpr auto enumCases(ParticleColorPick*) {
    using enum ParticleColorPick;
    return EnumCases<ParticleColorPick, 2>{"ParticleColorPick", {{overLife, "overLife"}, {each, "each"}}};
}

/// The recipe. A default-made one holds the values of absent keys; `standard` makes a new object.
struct ParticlesAnnotation {
    ParticleSource source;
    std::optional<OpaqueJSON> emitter; // pending: Driver.Source
    double rate = 0;                  // per second
    ParticleRange life;               // seconds
    ParticleRange speed;              // points per second
    double direction = 0;             // degrees, 0 up, 90 right
    double spread = 0;                // degrees
    CGVector gravity;                 // points per second squared, positive y down
    CGVector wind;
    double drag = 0;
    double turbulence = 0; // points
    double turbulenceRate = 0;
    double sizeStart = 0;
    double sizeEnd = 0;
    double sizeJitter = 0;
    std::vector<RGBA> colors;
    ParticleColorPick colorPick = ParticleColorPick::overLife;
    double brightness = 1;
    double softness = 0;
    double fadeIn = 0; // share of a life
    double fadeOut = 0;
    ParticleLook look = ParticleLook::dot;
    ParticleBlend blend = ParticleBlend::normal;
    double trail = 0; // seconds
    double spin = 0;  // degrees per second
    std::vector<ParticleBurst> bursts;
    bool prewarm = false;
    std::uint32_t seed = 0;
    std::optional<int> maxCount;
    double depth = 0; // points
    std::optional<ParticleShapeSource> from;
    std::optional<ImageSource> texture;
    std::optional<std::string> glyphs;
    std::optional<std::vector<VectorGradientStop>> colorOverLife;
    std::optional<std::vector<ParticleLifeStop>> sizeOverLife;
    std::optional<std::vector<ParticleLifeStop>> opacityOverLife;
    double flip = 0; // turns per second
    double turbulenceScale = 0;

    /// A new object: born at `source`, else at the middle of `canvas` (an empty one counts as
    /// 800 by 500 points).
    static ParticlesAnnotation standard(const CGRect& canvas, const std::optional<ParticleSource>& source,
                                        std::uint32_t seed);

    /// The copy with every value made sound: numbers in their ranges, lists cut to their limits.
    ParticlesAnnotation kept() const;

    bool operator==(const ParticlesAnnotation&) const = default;
    static constexpr auto jsonFields() {
        using P = ParticlesAnnotation;
        return std::tuple{required("source", &P::source),
                          optional("emitter", &P::emitter),
                          required("rate", &P::rate),
                          required("life", &P::life),
                          required("speed", &P::speed),
                          defaulted("direction", &P::direction),
                          defaulted("spread", &P::spread),
                          defaulted("gravity", &P::gravity),
                          defaulted("wind", &P::wind),
                          defaulted("drag", &P::drag),
                          defaulted("turbulence", &P::turbulence),
                          writtenAlways("turbulenceRate", &P::turbulenceRate),
                          required("sizeStart", &P::sizeStart),
                          required("sizeEnd", &P::sizeEnd),
                          defaulted("sizeJitter", &P::sizeJitter),
                          required("colors", &P::colors),
                          defaulted("colorPick", &P::colorPick),
                          defaulted("brightness", &P::brightness),
                          defaulted("softness", &P::softness),
                          defaulted("fadeIn", &P::fadeIn),
                          defaulted("fadeOut", &P::fadeOut),
                          defaulted("look", &P::look),
                          defaulted("overlap", &P::blend),
                          defaulted("trail", &P::trail),
                          defaulted("spin", &P::spin),
                          defaulted("bursts", &P::bursts),
                          defaulted("prewarm", &P::prewarm),
                          required("seed", &P::seed),
                          optional("maxCount", &P::maxCount),
                          defaulted<ClampedOnRead<0.0, ParticleLimits::depth>>("depth", &P::depth),
                          optional("from", &P::from),
                          optional("texture", &P::texture),
                          optional("glyphs", &P::glyphs),
                          optional("colorOverLife", &P::colorOverLife),
                          optional("sizeOverLife", &P::sizeOverLife),
                          optional("opacityOverLife", &P::opacityOverLife),
                          defaulted("flip", &P::flip),
                          defaulted("turbulenceScale", &P::turbulenceScale)};
    }
};

/// The declared fields, except that a turbulence rate is written only where there is turbulence.
template <>
struct JSONCoding<ParticlesAnnotation> {
    static JSONValue encode(const ParticlesAnnotation& particles);
    static ParticlesAnnotation decode(JSONNode node, const CodingPath& path);
};

} // namespace ovik
