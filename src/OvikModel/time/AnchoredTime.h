#pragma once
// A moment of one section's source time: it keeps its meaning when other parts are cut.
#include <string>

#include "OvikModel/values/Identifier.h"
#include "OvikModel/values/Times.h"

namespace ovik {

struct AnchoredTime {
    SectionID section;
    SourceTime time;

    /// "<section id> src:<µs>µs".
    std::string description() const { return section.description() + " " + time.description(); }

    bool operator==(const AnchoredTime&) const = default;
};

} // namespace ovik
