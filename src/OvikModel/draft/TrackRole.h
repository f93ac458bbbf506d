#pragma once
// The part a track of a recording plays. JSON form: the bare case name.
#include "OvikPlatform/Enumeration.h"

namespace ovik {

enum class TrackRole { screen, system, microphone, camera };

constexpr auto enumCases(TrackRole*) {
    return EnumCases<TrackRole, 4>{"TrackRole",
                                   {{TrackRole::screen, "screen"},
                                    {TrackRole::system, "system"},
                                    {TrackRole::microphone, "microphone"},
                                    {TrackRole::camera, "camera"}}};
}

} // namespace ovik
