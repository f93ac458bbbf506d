#pragma once
// One movie's video frames, read in presentation order through FFmpeg: the frame that shows
// at a moment, cheaply for moments that increase as a player's or an export's do.
//
// Times are the movie's own presentation times (`MediaTime`, exact fractions of a second), not
// shifted to start at 0; files written by common tools start at 0.
//
// Reading keeps the decoder open and two frames, `current` (the one showing) and `upcoming`
// (the next). A later moment decodes forward; when the file's index has a key frame between
// the frames already decoded and the moment, the decoder seeks to it instead. An earlier
// moment seeks back to the key frame before it. Only the frame returned is converted to RGBA,
// scaled by libswscale in the same pass (see `Options::maxLongSide`) and turned upright.
//
// Deadlines: every decoder step (opening, seeking, decoding one frame) runs on the reader's
// own thread (`DecoderThread`) and is waited for in slices of 100 ms against the flags'
// patience. A step that times out is abandoned with its decoder, and a fresh decoder takes up
// the reading from the last frame held; `patience.attempts` timeouts in a row (3 by default)
// end the read. The caller's cancel flag ends a wait within one slice.
//
// One thread at a time uses a `VideoFrames`; the `ReadFlags` may be shared by several.
#include <filesystem>
#include <memory>
#include <optional>

#include "OvikPlatform/media/DecodedFrame.h"
#include "OvikPlatform/media/DecoderThread.h"
#include "OvikPlatform/media/FrameConverter.h"
#include "OvikPlatform/media/MediaTime.h"
#include "OvikPlatform/media/ReadFlags.h"
#include "OvikPlatform/media/VideoFrame.h"

namespace ovik {

class VideoFrames {
public:
    struct Options {
        /// Frames come scaled down so that their shown long side is at most this many pixels;
        /// none are enlarged. None keeps the movie's own size.
        std::optional<std::int64_t> maxLongSide;
        /// How much earlier than the moment asked for the frame given may start. At 0 the
        /// frame is exact. A thumbnail may allow more: reading stops at the first frame close
        /// enough, so that a moment deep inside a group of pictures costs one key frame rather
        /// than decoding up to it.
        MediaTime tolerance;
    };

    /// Opens nothing yet: the movie is opened by the first `frame` call, under its deadline.
    VideoFrames(std::filesystem::path movie, std::shared_ptr<ReadFlags> flags, Options options = {});

    /// The frame that shows at `time`: the last one whose start is not after it (or, with a
    /// tolerance, the first one read that starts within it). The last frame goes on showing
    /// after the end; before the first frame there is none.
    ///
    /// Throws `MediaError`: unreadable (with the path and the decoder's text) for a missing,
    /// damaged or foreign file; empty for a movie without video; failed with "the video
    /// decoder stopped answering" after `patience.attempts` timeouts in a row; cancelled when
    /// `flags.cancelled` is set. After a throw the next call starts with a fresh decoder.
    std::optional<VideoFrame> frame(MediaTime time);

    /// Whether the last `frame` call read to the movie's end: then a moment past the end of the
    /// frame it gave (or any moment, when it gave none) is not in the movie, as in a cut-off file.
    bool reachedEnd() const { return finished_; }

private:
    struct Held {
        DecodedFrame decoded;
        std::shared_ptr<const CGImage> image;
    };

    std::optional<DecodedFrame> read(DecoderThread::Step step);
    bool closeEnough(MediaTime time) const;

    std::filesystem::path movie_;
    std::shared_ptr<ReadFlags> flags_;
    MediaTime tolerance_;
    FrameConverter converter_;
    std::unique_ptr<DecoderThread> reader_;
    int stuck_ = 0;
    std::optional<Held> current_;
    std::optional<Held> upcoming_;
    bool finished_ = false;
};

} // namespace ovik
