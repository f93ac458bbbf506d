#pragma once
// Reading and writing one property of a draft through the table. A write that changes
// nothing names no undo step and leaves the draft as it was; a refused write throws
// `PropertyError` and leaves it as it was too.
#include <optional>
#include <string>

#include "OvikModel/Draft.h"
#include "OvikModel/scene/PropertyPath.h"

namespace ovik {

/// The value at `path` in the property language; none where the target doesn't have it.
std::optional<JSONValue> propertyValue(const Draft& draft, const PropertyPath& path);

/// Writes `value` at `path`; answers the name of the undo step, none when nothing changed.
std::optional<std::string> setProperty(Draft& draft, const JSONValue& value, const PropertyPath& path);

} // namespace ovik
