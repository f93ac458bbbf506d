#pragma once
// A moment of the film told on the played timeline (the film without its sections' speed
// curves), with what is on screen then.
#include <map>
#include <vector>

#include "OvikModel/time/TransitionPhase.h"
#include "OvikModel/values/Identifier.h"

namespace ovik {

struct PlayedMoment {
    OutputTime output;
    std::vector<SectionID> sections;
    std::map<SectionID, SourceTime> sources;
    std::map<SectionID, TransitionPhase> phases;
    /// Played microseconds per output microsecond there.
    double rate = 1;

    bool operator==(const PlayedMoment&) const = default;
};

} // namespace ovik
