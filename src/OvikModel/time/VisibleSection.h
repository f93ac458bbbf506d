#pragma once
// A section on screen at a moment: which source moment it shows, and its transition phase.
#include <optional>

#include "OvikModel/time/TransitionPhase.h"
#include "OvikModel/values/Identifier.h"

namespace ovik {

struct VisibleSection {
    SectionID section;
    MediaID media;
    SourceTime time;
    std::optional<TransitionPhase> transition;

    bool operator==(const VisibleSection&) const = default;
};

} // namespace ovik
