#pragma once
// Where a node stands in the tree: the group whose list holds it (none for the top level) and
// its index in that list. Never stored.
#include <cstddef>
#include <optional>

#include "OvikModel/values/Identifier.h"

namespace ovik {

struct ObjectLocation {
    std::optional<ObjectID> parent;
    std::size_t index = 0;

    bool operator==(const ObjectLocation&) const = default;
};

} // namespace ovik
