#pragma once
// What one frame is drawn from: the film moment, the sections on screen (back to front) with
// their source moments and transitions, the decoded video frame of each section that shows a
// recording with the source moment it starts at, and the frame of the camera track over each
// section.
#include <map>
#include <optional>
#include <vector>

#include "OvikModel/time/TransitionPhase.h"
#include "OvikModel/values/Identifier.h"
#include "OvikModel/values/Times.h"
#include "OvikPlatform/image/Image.h"

namespace ovik {

struct FrameMoment {
    OutputTime output;
    /// None for a draft of one capture without timing.
    std::optional<std::vector<SectionID>> sections;
    std::map<SectionID, SourceTime> sources;
    std::map<SectionID, Image> frames;
    /// Where each of `frames` starts to show on its section's source time.
    std::map<SectionID, SourceTime> frameStarts;
    std::map<SectionID, Image> cameras;
    std::map<SectionID, TransitionPhase> phases;
};

} // namespace ovik
