#pragma once
// A video frame ready to draw: an upright premultiplied RGBA bitmap and the moment it starts
// to show, in the movie's own time.
#include <memory>
#include <optional>

#include "OvikPlatform/image/CGImage.h"
#include "OvikPlatform/media/MediaTime.h"

namespace ovik {

struct VideoFrame {
    /// Shared, so that asking again for a frame that still shows costs no copy.
    std::shared_ptr<const CGImage> image;
    MediaTime start;
    /// When it stops showing by its own duration; none when the movie doesn't say.
    std::optional<MediaTime> end;
};

} // namespace ovik
