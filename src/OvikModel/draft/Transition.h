#pragma once
// How a section comes in over the end of the one before it, as stored.
#include <optional>
#include <vector>

#include "OvikModel/animation/Action.h"
#include "OvikModel/values/Times.h"

namespace ovik {

struct Transition {
    MediaDuration duration;
    std::vector<Action> outgoing;
    std::vector<Action> incoming;
    bool motionBlur = false;
    std::optional<OpaqueJSON> pin; // pending: PinnedMoment

    /// The transition made `length` long. Actions counted from its start or end are stretched by
    /// the same factor; actions between fixed moments or over the whole are left alone.
    Transition retimed(MediaDuration length) const;

    bool operator==(const Transition&) const = default;
    static constexpr auto jsonFields() {
        using T = Transition;
        return std::tuple{required("duration", &T::duration), defaulted("outgoing", &T::outgoing),
                          defaulted("incoming", &T::incoming), defaulted("motionBlur", &T::motionBlur),
                          optional("pin", &T::pin)};
    }
};

} // namespace ovik
