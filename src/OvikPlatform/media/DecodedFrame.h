#pragma once
// One decoded video frame as the decoder left it (its own pixel format and size), with the
// moment it starts to show. The pixels are reference-counted by FFmpeg, so a frame outlives
// the decoder that made it and may be converted on another thread.
#include <memory>
#include <optional>

#include "OvikPlatform/media/MediaTime.h"

struct AVFrame;

namespace ovik {

struct DecodedFrame {
    std::shared_ptr<const AVFrame> picture;
    MediaTime start;
    /// When it stops showing by its own duration; none when the movie doesn't say.
    std::optional<MediaTime> end;
    /// Quarter turns clockwise that showing it takes, from the movie's display matrix.
    int turns = 0;
};

} // namespace ovik
