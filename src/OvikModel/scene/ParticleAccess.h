#pragma once
// Accesses to the recipe of particles objects. Every write works on a copy and stores it made
// sound, so a refused value leaves the object as it was, and lists come back sorted and cut.
#include <functional>
#include <memory>

#include "OvikModel/scene/AnnotationAccess.h"

namespace ovik {

using ParticleRead = std::function<std::optional<JSONValue>(const ParticlesAnnotation&)>;
using ParticleWrite = std::function<void(ParticlesAnnotation&, const PropertyValue&, const PropertySpec&)>;

/// An access to particles objects, read and written on their recipe.
std::shared_ptr<const ObjectAccess> particleAccess(ParticleRead read, ParticleWrite write);

/// A row over a plain field of the recipe, in the form its type decides.
template <class T>
std::shared_ptr<const ObjectAccess> particleField(T ParticlesAnnotation::*field) {
    return particleAccess([field](const ParticlesAnnotation& particles) -> std::optional<JSONValue> {
                              return PropertyFieldForm<T>::read(particles.*field);
                          },
                          [field](ParticlesAnnotation& particles, const PropertyValue& value, const PropertySpec& spec) {
                              particles.*field = PropertyFieldForm<T>::take(value, spec);
                          });
}

/// A range as [low, high], each end in the row's range and the low one first.
std::shared_ptr<const ObjectAccess> particleRangeAccess(ParticleRange ParticlesAnnotation::*field);
/// A range as one number: reads its middle, and a write sets both ends to the value.
std::shared_ptr<const ObjectAccess> particleRangeMiddleAccess(ParticleRange ParticlesAnnotation::*field);
/// A steady pull as [x, y].
std::shared_ptr<const ObjectAccess> particleVectorAccess(CGVector ParticlesAnnotation::*field);
/// A whole number in the row's range, or "none" where the field is optional.
std::shared_ptr<const ObjectAccess> particleSeedAccess();
std::shared_ptr<const ObjectAccess> particleMaxAccess();

/// Bursts as [[at, count], …], or "none".
std::shared_ptr<const ObjectAccess> particleBurstAccess();
/// Colours as ["#RRGGBB", …]; "none" or [] draws white.
std::shared_ptr<const ObjectAccess> particleColorsAccess();
/// A curve over a life as [[at, value], …] with values in the row's range, or "none".
std::shared_ptr<const ObjectAccess> particleCurveAccess(std::optional<std::vector<ParticleLifeStop>> ParticlesAnnotation::*field);
/// A gradient over a life as [[at, "#RRGGBB"], …], or "none".
std::shared_ptr<const ObjectAccess> particleColorOverLifeAccess();
/// The characters of the glyph look, or "none".
std::shared_ptr<const ObjectAccess> particleGlyphsAccess();

/// The birth place: [x, y] a point, [x, y, width, height] an area, or a path in its stored form
/// ({"anchors": […]}).
std::shared_ptr<const ObjectAccess> particleSourceAccess();
/// The object whose shape the particles come from, by id, never the object itself; or "none".
std::shared_ptr<const ObjectAccess> particleFromAccess();
/// Whether a shape source fills its inside; and the delay between letters of a text.
std::shared_ptr<const ObjectAccess> particleInsideAccess();
std::shared_ptr<const ObjectAccess> particleLetterDelayAccess();
/// The picture of the texture look in its stored form ({"object": id}, {"media": id},
/// {"section": id}), or "none".
std::shared_ptr<const ObjectAccess> particleTextureAccess();

} // namespace ovik
