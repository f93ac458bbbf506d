#pragma once
// Accesses to the records a node holds beside its annotation: its own clock, the grain of its
// ink, its pivot, whether it spans sections, and the thickness that makes it solid. Setting a
// detail of a record that a node doesn't hold yet starts it from its plain form.
#include <memory>

#include "OvikModel/scene/PropertyAccess.h"

namespace ovik {

/// The clock rows, over a node's own clock; an absent clock reads as the plain one.
enum class ClockPart { speed, loop, offset, bounce, hold, freeze, timeCurve };
std::shared_ptr<const ObjectAccess> clockAccess(ClockPart part);

/// The ink rows, on leaves drawn with strokes.
enum class InkPart { kind, amount, grain, seed, cell };
std::shared_ptr<const ObjectAccess> inkAccess(InkPart part);

/// The point a node turns about, as [x, y] from its centre, or "none".
std::shared_ptr<const ObjectAccess> pivotAccess();

/// Whether a node spans sections and, when it does, whether it moves with the lens.
std::shared_ptr<const ObjectAccess> spanAccess(bool underLens);

/// The bevel of a node's thickness: its size, its steps and its profile.
enum class BevelPart { size, segments, profile };
std::shared_ptr<const ObjectAccess> bevelAccess(BevelPart part);

/// The material of a solid's sides, or with `back` of its back: material JSON, or "none" for
/// the front's.
std::shared_ptr<const ObjectAccess> faceMaterialAccess(bool back);

} // namespace ovik
