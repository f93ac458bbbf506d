#pragma once
// What a list of actions belongs to: an object, a media, one side of a section's transition,
// a clip shape, a section's lens or its look.
#include "OvikModel/animation/ClipTarget.h"
#include "OvikModel/animation/TransitionSide.h"

namespace ovik {

struct ActionTarget : Enumeration<ActionTarget> {
    // The same cases as a clip's owner.
    using object = ClipTarget::object;
    using media = ClipTarget::media;
    /// The transition into `section`.
    struct transition {
        static constexpr std::string_view name = "transition";
        SectionID section;
        TransitionSide side = TransitionSide::outgoing;
        bool operator==(const transition&) const = default;
    };
    struct clip {
        static constexpr std::string_view name = "clip";
        ClipTarget value;
        bool operator==(const clip&) const = default;
    };
    struct lens {
        static constexpr std::string_view name = "lens";
        SectionID value;
        bool operator==(const lens&) const = default;
    };
    struct look {
        static constexpr std::string_view name = "look";
        SectionID value;
        bool operator==(const look&) const = default;
    };
    std::variant<object, media, transition, clip, lens, look> cases;

    bool operator==(const ActionTarget&) const = default;
};

} // namespace ovik
