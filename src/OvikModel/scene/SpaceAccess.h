#pragma once
// Reading and writing the space rows on a section's space. The space stays the JSON it was read
// as: a row's field says where in it a value lives (the whole space or a node, a sub-object such
// as "fog" or "material", a key), and a write changes that one key, so everything else in the
// space is written back byte for byte.
#include <optional>
#include <string>

#include "OvikModel/Draft.h"
#include "OvikModel/scene/PropertyPath.h"

namespace ovik {

/// The value at a `space` or `spaceNode` path: the stored one, else the field's fallback, else
/// "none"; nothing when the node's type doesn't have the field. Throws `PropertyError` when the
/// path names no place in the section's space.
std::optional<JSONValue> spaceValue(const Draft& draft, const PropertyPath& path);

/// Writes `value` at a `space` or `spaceNode` path, checked against the row's form, range and
/// words; "none" clears a field that has no fallback. Answers the undo name, none when the value
/// is the one there already. A refusal leaves the draft as it was.
std::optional<std::string> setSpace(Draft& draft, const JSONValue& value, const PropertyPath& path);

} // namespace ovik
