#pragma once
// Reading and writing one parameter of one effect, on an object's or a media's effects, a
// section's look or the style's look. In the property language a parameter is a number, a
// colour "#RRGGBB" ("#RRGGBBAA" when not opaque), a text or a flag, as the primitive has it.
// A parameter the primitive knows but that isn't stored reads as its default; writing it
// stores it with the primitive's bounds.
#include <optional>
#include <string>

#include "OvikModel/Draft.h"
#include "OvikModel/scene/PropertyPath.h"

namespace ovik {

/// The value of the parameter that `path.effect` names. Throws `PropertyError` when the
/// target, the effect or the parameter isn't there.
JSONValue effectValue(const Draft& draft, const PropertyPath& path);

/// Writes `value` into that parameter; answers the undo name, none when it already holds it.
/// A number outside both of the parameter's bounds, or of another form than the parameter's,
/// is refused and the draft stays as it was.
std::optional<std::string> setEffect(Draft& draft, const JSONValue& value, const PropertyPath& path);

} // namespace ovik
