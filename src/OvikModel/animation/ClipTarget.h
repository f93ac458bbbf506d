#pragma once
// Whose clip shape a list of actions moves: a clip stands on an object or on a media.
#include "OvikModel/values/Identifier.h"
#include "OvikPlatform/Enumeration.h"

namespace ovik {

struct ClipTarget : Enumeration<ClipTarget> {
    struct object {
        static constexpr std::string_view name = "object";
        ObjectID value;
        bool operator==(const object&) const = default;
    };
    struct media {
        static constexpr std::string_view name = "media";
        MediaID value;
        bool operator==(const media&) const = default;
    };
    std::variant<object, media> cases;

    bool operator==(const ClipTarget&) const = default;
};

} // namespace ovik
