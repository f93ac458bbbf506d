#pragma once
// The whole time map of a draft as a readable table: each section's place on the film, its
// pieces (output range, source range, speed or freeze) and its speed curve.
#include <string>

#include "OvikModel/Draft.h"
#include "OvikModel/time/DraftTimeline.h"

namespace ovik::cli {

struct TimeTable {
    static std::string text(const Draft& draft, const DraftTimeline& timeline);
};

} // namespace ovik::cli
