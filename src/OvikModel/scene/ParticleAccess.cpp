#include "OvikModel/scene/ParticleAccess.h"

#include <cmath>

#include "OvikL10n/L10n.h"
#include "OvikModel/scene/PropertyError.h"

namespace ovik {
namespace {

using Stops = std::optional<std::vector<ParticleLifeStop>>;
using Array = JSONValue::Array;

// A refusal's message: the property's title, and for a list the form it is written in.
struct Refusal {
    std::string_view key;
    std::string_view form = {};

    [[noreturn]] void operator()(const PropertyValue& value) const {
        throw PropertyError(PropertyError::Kind::invalid,
                            form.empty() ? L10n::format(key, {value.name})
                                         : L10n::format(key, {value.name, std::string(form)}));
    }
};

[[noreturn]] void invalid(std::string_view key, const PropertyValue& value) { Refusal{key}(value); }

constexpr Refusal badBursts{"model.property.value.listInvalid", "[[at, count], …]"};
constexpr Refusal badRange{"model.property.particleRange.invalid"};
constexpr Refusal badStops{"model.property.particleLife.positions"};
constexpr Refusal badColors{"model.property.particleColors.invalid"};

bool isNone(const PropertyValue& value) {
    const std::string* text = value.json.string();
    return text && *text == "none";
}

// One part of a compound value, read under the property's own title.
PropertyValue part(const PropertyValue& value, const JSONValue& json) { return PropertyValue{value.name, json}; }

// The elements of a list value; "none" is the empty list, and anything else that isn't a list
// is refused with `key`.
const Array& listOrNone(const PropertyValue& value, const Refusal& refuse) {
    static const Array empty;
    if (isNone(value)) return empty;
    const Array* array = value.json.array();
    if (!array) refuse(value);
    return *array;
}

// The two parts of an [a, b] element, or a refusal.
std::pair<PropertyValue, PropertyValue> pairOf(const PropertyValue& value, const JSONValue& element,
                                               const Refusal& refuse) {
    const Array* array = element.array();
    if (!array || array->size() != 2) refuse(value);
    return {part(value, (*array)[0]), part(value, (*array)[1])};
}

CGPoint point(const PropertyValue& value) {
    const auto point = value.pointOrNone();
    if (!point) invalid("model.property.value.pointInvalid", value);
    return *point;
}

JSONValue pairJSON(JSONValue a, JSONValue b) { return JSONValue(Array{std::move(a), std::move(b)}); }

std::int64_t wholeNumber(const PropertyValue& value, const PropertySpec& spec) {
    return std::llround(value.number(spec.range));
}

// Writes that need the recipe to take its shape from another object.
ParticleShapeSource& shapeSource(ParticlesAnnotation& particles, const PropertyValue& value) {
    if (!particles.from) invalid("model.property.particleFrom.required", value);
    return *particles.from;
}

ParticleSource sourceFrom(const PropertyValue& value) {
    if (value.json.object()) {
        try {
            return ParticleSource{{}, ParticleSource::path{decodeJSON<BezierPath>(value.json)}};
        } catch (const DecodingError&) {
            invalid("model.property.value.pointInvalid", value);
        }
    }
    const Array* array = value.json.array();
    if (array && array->size() == 4) {
        const auto rect = value.rectOrNone();
        if (!rect) invalid("model.property.value.rectInvalid", value);
        return ParticleSource{{}, ParticleSource::area{*rect}};
    }
    return ParticleSource{{}, ParticleSource::point{point(value)}};
}

JSONValue sourceJSON(const ParticleSource& source) {
    if (const auto* area = std::get_if<ParticleSource::area>(&source.cases)) {
        const CGRect& r = area->value;
        return JSONValue(Array{r.origin.x, r.origin.y, r.size.width, r.size.height});
    }
    if (const auto* at = std::get_if<ParticleSource::point>(&source.cases)) return encodeJSON(at->value);
    return encodeJSON(source.as<ParticleSource::path>().value);
}

// A curve's stops, each [at, value] with `at` in 0...1 and up to the limit of stops.
template <class Stop, class Take>
std::optional<std::vector<Stop>> stopsFrom(const PropertyValue& value, Take take) {
    if (isNone(value)) return std::nullopt;
    const Array& elements = listOrNone(value, badStops);
    if (elements.empty()) return std::nullopt;
    if (elements.size() > ParticleLimits::lifeStops) invalid("model.property.particleLife.count", value);
    std::vector<Stop> stops;
    for (const JSONValue& element : elements) {
        const auto [at, stopValue] = pairOf(value, element, badStops);
        double position = 0;
        if (!at.json.number(position) || !std::isfinite(position)) badStops(value);
        if (position < 0 || position > 1) invalid("model.property.particleLife.positionRange", value);
        stops.push_back(Stop{position, take(stopValue)});
    }
    return stops;
}

template <class Stop, class Show>
JSONValue stopsJSON(const std::optional<std::vector<Stop>>& stops, double Stop::*position, Show show) {
    if (!stops) return JSONValue("none");
    Array out;
    for (const Stop& stop : *stops) out.push_back(pairJSON(JSONValue(stop.*position), show(stop)));
    return JSONValue(std::move(out));
}

using RecipeWrite = std::function<void(ParticlesAnnotation&, const PropertyValue&, const PropertySpec&, ObjectID self)>;

// The boxed recipe of a particles object, const as the node is; none on any other node.
template <class Node>
auto* recipeOf(Node& node) {
    auto* leaf = std::get_if<ObjectContent::annotation>(&node.content.cases);
    auto* particles = leaf ? std::get_if<Annotation::particles>(&leaf->value.cases) : nullptr;
    return particles ? &particles->value : nullptr;
}

// The write gets the id of the object written, for values that must not name the object itself.
std::shared_ptr<const ObjectAccess> recipeAccess(ParticleRead read, RecipeWrite write) {
    return std::make_shared<const ObjectAccess>(ObjectAccess{
        ofKinds({AnnotationKind::particles}),
        [read](const ObjectNode& node) -> std::optional<JSONValue> {
            const auto* particles = recipeOf(node);
            return particles ? read(**particles) : std::nullopt;
        },
        [write](ObjectNode& node, const PropertyValue& value, const PropertySpec& spec) {
            auto* particles = recipeOf(node);
            if (!particles) return;
            ParticlesAnnotation changed = **particles;
            write(changed, value, spec, node.id);
            particles->mutate() = changed.kept();
        }});
}

} // namespace

std::shared_ptr<const ObjectAccess> particleAccess(ParticleRead read, ParticleWrite write) {
    return recipeAccess(std::move(read), [write](ParticlesAnnotation& particles, const PropertyValue& value,
                                                 const PropertySpec& spec, ObjectID) { write(particles, value, spec); });
}

std::shared_ptr<const ObjectAccess> particleRangeAccess(ParticleRange ParticlesAnnotation::*field) {
    return particleAccess(
        [field](const ParticlesAnnotation& particles) {
            return pairJSON(JSONValue((particles.*field).low), JSONValue((particles.*field).high));
        },
        [field](ParticlesAnnotation& particles, const PropertyValue& value, const PropertySpec& spec) {
            const auto [low, high] = pairOf(value, value.json, badRange);
            const ParticleRange range{low.number(spec.range), high.number(spec.range)};
            if (range.low > range.high) badRange(value);
            particles.*field = range;
        });
}

std::shared_ptr<const ObjectAccess> particleRangeMiddleAccess(ParticleRange ParticlesAnnotation::*field) {
    return particleAccess(
        [field](const ParticlesAnnotation& particles) {
            return JSONValue(((particles.*field).low + (particles.*field).high) / 2);
        },
        [field](ParticlesAnnotation& particles, const PropertyValue& value, const PropertySpec& spec) {
            const double number = value.number(spec.range);
            particles.*field = ParticleRange{number, number};
        });
}

std::shared_ptr<const ObjectAccess> particleVectorAccess(CGVector ParticlesAnnotation::*field) {
    return particleAccess(
        [field](const ParticlesAnnotation& particles) { return encodeJSON(particles.*field); },
        [field](ParticlesAnnotation& particles, const PropertyValue& value, const PropertySpec&) {
            const CGPoint at = point(value);
            particles.*field = CGVector{at.x, at.y};
        });
}

std::shared_ptr<const ObjectAccess> particleSeedAccess() {
    return particleAccess(
        [](const ParticlesAnnotation& particles) { return JSONValue(std::int64_t(particles.seed)); },
        [](ParticlesAnnotation& particles, const PropertyValue& value, const PropertySpec& spec) {
            particles.seed = std::uint32_t(wholeNumber(value, spec));
        });
}

std::shared_ptr<const ObjectAccess> particleMaxAccess() {
    return particleAccess(
        [](const ParticlesAnnotation& particles) {
            return particles.maxCount ? JSONValue(std::int64_t(*particles.maxCount)) : JSONValue("none");
        },
        [](ParticlesAnnotation& particles, const PropertyValue& value, const PropertySpec& spec) {
            if (isNone(value)) particles.maxCount.reset();
            else particles.maxCount = int(wholeNumber(value, spec));
        });
}

std::shared_ptr<const ObjectAccess> particleBurstAccess() {
    return particleAccess(
        [](const ParticlesAnnotation& particles) {
            Array out;
            for (const ParticleBurst& burst : particles.bursts)
                out.push_back(pairJSON(JSONValue(burst.at), JSONValue(std::int64_t(burst.count))));
            return JSONValue(std::move(out));
        },
        [](ParticlesAnnotation& particles, const PropertyValue& value, const PropertySpec&) {
            const Array& elements = listOrNone(value, badBursts);
            if (elements.size() > ParticleLimits::bursts) badBursts(value);
            std::vector<ParticleBurst> bursts;
            for (const JSONValue& element : elements) {
                const auto [at, count] = pairOf(value, element, badBursts);
                const double counted = count.number(std::pair{1.0, double(ParticleLimits::perBurst)});
                bursts.push_back(ParticleBurst{at.number(), int(std::llround(counted)), std::nullopt});
            }
            particles.bursts = std::move(bursts);
        });
}

std::shared_ptr<const ObjectAccess> particleColorsAccess() {
    return particleAccess(
        [](const ParticlesAnnotation& particles) {
            Array out;
            for (const RGBA& color : particles.colors) out.emplace_back(color.hexText());
            return JSONValue(std::move(out));
        },
        [](ParticlesAnnotation& particles, const PropertyValue& value, const PropertySpec&) {
            const Array& elements = listOrNone(value, badColors);
            if (elements.size() > ParticleLimits::drawnColors) badColors(value);
            std::vector<RGBA> colors;
            for (const JSONValue& element : elements) colors.push_back(part(value, element).color());
            particles.colors = std::move(colors);
        });
}

std::shared_ptr<const ObjectAccess> particleCurveAccess(Stops ParticlesAnnotation::*field) {
    return particleAccess(
        [field](const ParticlesAnnotation& particles) {
            return stopsJSON(particles.*field, &ParticleLifeStop::at,
                             [](const ParticleLifeStop& stop) { return JSONValue(stop.value); });
        },
        [field](ParticlesAnnotation& particles, const PropertyValue& value, const PropertySpec& spec) {
            particles.*field = stopsFrom<ParticleLifeStop>(value, [&](const PropertyValue& stopValue) {
                double number = 0;
                if (!stopValue.json.number(number) || !std::isfinite(number) ||
                    (spec.range && (number < spec.range->first || number > spec.range->second)))
                    invalid("model.property.particleLife.valueRange", value);
                return number;
            });
        });
}

std::shared_ptr<const ObjectAccess> particleColorOverLifeAccess() {
    return particleAccess(
        [](const ParticlesAnnotation& particles) {
            return stopsJSON(particles.colorOverLife, &VectorGradientStop::offset,
                             [](const VectorGradientStop& stop) { return JSONValue(stop.color.hexText()); });
        },
        [](ParticlesAnnotation& particles, const PropertyValue& value, const PropertySpec&) {
            particles.colorOverLife =
                stopsFrom<VectorGradientStop>(value, [](const PropertyValue& color) { return color.color(); });
        });
}

std::shared_ptr<const ObjectAccess> particleGlyphsAccess() {
    return particleAccess(
        [](const ParticlesAnnotation& particles) { return JSONValue(particles.glyphs.value_or("none")); },
        [](ParticlesAnnotation& particles, const PropertyValue& value, const PropertySpec&) {
            const std::string text = value.text();
            if (text == "none") return particles.glyphs.reset();
            if (text.find_first_not_of(" \t\n\r\f\v") == std::string::npos)
                invalid("model.property.particleGlyphs.empty", value);
            particles.glyphs = text;
        });
}

std::shared_ptr<const ObjectAccess> particleSourceAccess() {
    return particleAccess([](const ParticlesAnnotation& particles) { return sourceJSON(particles.source); },
                          [](ParticlesAnnotation& particles, const PropertyValue& value, const PropertySpec&) {
                              particles.source = sourceFrom(value);
                          });
}

std::shared_ptr<const ObjectAccess> particleFromAccess() {
    return recipeAccess(
        [](const ParticlesAnnotation& particles) {
            return JSONValue(particles.from ? particles.from->object.description() : "none");
        },
        [](ParticlesAnnotation& particles, const PropertyValue& value, const PropertySpec&, ObjectID self) {
            const std::string text = value.text();
            if (text == "none") return particles.from.reset();
            const std::optional<UUID> id = UUID::parse(text);
            if (!id) invalid("model.property.particleFrom.required", value);
            if (ObjectID{*id} == self) invalid("model.property.particleFrom.self", value);
            if (particles.from) particles.from->object = ObjectID{*id};
            else particles.from = ParticleShapeSource{ObjectID{*id}};
        });
}

std::shared_ptr<const ObjectAccess> particleInsideAccess() {
    return particleAccess(
        [](const ParticlesAnnotation& particles) { return JSONValue(particles.from && particles.from->fill); },
        [](ParticlesAnnotation& particles, const PropertyValue& value, const PropertySpec&) {
            const bool fill = value.boolean();
            shapeSource(particles, value).fill = fill;
        });
}

std::shared_ptr<const ObjectAccess> particleLetterDelayAccess() {
    return particleAccess(
        [](const ParticlesAnnotation& particles) { return JSONValue(particles.from ? particles.from->letterDelay : 0.0); },
        [](ParticlesAnnotation& particles, const PropertyValue& value, const PropertySpec& spec) {
            const double delay = value.number(spec.range);
            shapeSource(particles, value).letterDelay = delay;
        });
}

std::shared_ptr<const ObjectAccess> particleTextureAccess() {
    return particleAccess(
        [](const ParticlesAnnotation& particles) {
            return particles.texture ? encodeJSON(*particles.texture) : JSONValue("none");
        },
        [](ParticlesAnnotation& particles, const PropertyValue& value, const PropertySpec&) {
            if (isNone(value)) return particles.texture.reset();
            if (!value.json.object()) invalid("model.property.particleTexture.problem", value);
            try {
                particles.texture = decodeJSON<ImageSource>(value.json);
            } catch (const DecodingError&) {
                invalid("model.property.particleTexture.problem", value);
            }
        });
}

} // namespace ovik
