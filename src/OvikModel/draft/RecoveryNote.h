#pragma once
// Set on a draft saved by the recovery route.
#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct RecoveryNote {
    /// The recording was salvaged and its end may be missing.
    bool mayMissTail = false;

    bool operator==(const RecoveryNote&) const = default;
    static constexpr auto jsonFields() { return std::tuple{required("mayMissTail", &RecoveryNote::mayMissTail)}; }
};

} // namespace ovik
