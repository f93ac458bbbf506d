#pragma once
// An object that spans every section of the draft instead of belonging to one.
#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct ObjectSpan {
    /// Painted under the lens of a zoom instead of over it.
    bool underLens = false;

    bool operator==(const ObjectSpan&) const = default;
    static constexpr auto jsonFields() { return std::tuple{defaulted("underLens", &ObjectSpan::underLens)}; }
};

} // namespace ovik
