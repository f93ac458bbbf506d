#pragma once
// A recording's video frame and the source moment from which it shows. The frame may start
// before the moment it was asked for: it is the one still showing then, or a key frame taken
// early so as not to decode up to the moment.
#include "OvikModel/values/Times.h"
#include "OvikPlatform/image/Image.h"

namespace ovik {

struct RecordingFrame {
    Image image;
    SourceTime start;
};

} // namespace ovik
