#pragma once
// The modifiers, and the tilt, that an object's pausing action holds while it is paused.
#include <optional>

#include "OvikModel/objects/Modifiers.h"

namespace ovik {

struct PausedMotion {
    std::optional<Split> split;
    std::optional<Repeat> repeating;
    std::optional<Arrange> arrange;
    std::optional<OpaqueJSON> perspective; // pending: Perspective

    bool operator==(const PausedMotion&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{optional("split", &PausedMotion::split), optional("repeating", &PausedMotion::repeating),
                          optional("arrange", &PausedMotion::arrange),
                          optional("perspective", &PausedMotion::perspective)};
    }
};

} // namespace ovik
