#pragma once
// What a draft makes when it is exported: a picture, an animation, or a recording.
#include "OvikPlatform/Enumeration.h"

namespace ovik {

enum class OutputKind { screenshot, animation, recording };

constexpr auto enumCases(OutputKind*) {
    return EnumCases<OutputKind, 3>{"OutputKind",
                                    {{OutputKind::screenshot, "screenshot"},
                                     {OutputKind::animation, "animation"},
                                     {OutputKind::recording, "recording"}}};
}

} // namespace ovik
