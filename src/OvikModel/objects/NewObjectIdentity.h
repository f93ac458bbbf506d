#pragma once
// What a new object is given by whoever makes it: its id and the seed of its ink grain.
#include <cstdint>

#include "OvikModel/values/Identifier.h"

namespace ovik {

struct NewObjectIdentity {
    ObjectID id;
    std::uint32_t inkSeed = 0;

    bool operator==(const NewObjectIdentity&) const = default;
};

} // namespace ovik
