#pragma once
// The video frame a recording shows at a source moment: the segment that holds the moment,
// its movie read through a deadline-guarded reader. A stuck or broken movie becomes a
// `RenderFailure`, never a hang. A movie stays open between frames, so that later moments of
// it (a filmstrip's, an export's) decode on from where the last one stopped.
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>

#include "OvikCompositor/RecordingFrame.h"
#include "OvikModel/DraftDocument.h"
#include "OvikModel/draft/Recording.h"

namespace ovik {

struct ReadFlags;
class VideoFrames;

struct RecordingFrames {
    /// Frames come no larger than this on their long side; none keeps the movie's size.
    std::optional<std::int64_t> maxLongSide;
    /// How much earlier than the moment the frame may start: a thumbnail takes the key frame
    /// before it rather than decoding up to it.
    std::int64_t toleranceMicroseconds = 0;
    std::shared_ptr<ReadFlags> flags;

    /// The frame at `time`, placed with its corner at the origin, and the first whole
    /// microsecond from which it shows; the empty picture, starting at `time`, before the
    /// movie's first frame. Throws `RenderFailure`.
    RecordingFrame frame(const DraftDocument& document, const Recording& recording, SourceTime time);

private:
    std::map<std::filesystem::path, std::shared_ptr<VideoFrames>> open_;
};

} // namespace ovik
