#pragma once
// The blocking part of reading a movie: libavformat and libavcodec decoding the first video
// stream into frames in presentation order. Every call may wait on the file or the codec, so
// callers run it on a thread that they can abandon (`DecoderThread`); one thread at a time.
#include <filesystem>
#include <memory>
#include <optional>

#include "OvikPlatform/media/DecodedFrame.h"
#include "OvikPlatform/media/MediaTime.h"

namespace ovik {

class VideoDecoder {
public:
    /// Throws `MediaError` unreadable or empty, as `MovieFile` does, and unreadable when no
    /// decoder for the video's coding is installed.
    explicit VideoDecoder(const std::filesystem::path& path);
    ~VideoDecoder();
    VideoDecoder(const VideoDecoder&) = delete;
    VideoDecoder& operator=(const VideoDecoder&) = delete;

    /// Goes back (or forward) to the key frame at or before `target`, dropping what the codec
    /// holds. Throws `MediaError` unreadable when the file can't seek.
    void seek(MediaTime target);

    /// The next frame in presentation order, or none after the last. On the way to `target` it
    /// skips ahead by seeking when the file's index shows a key frame after the frames decoded
    /// so far and not after `target`: the frames before that key frame can't show at `target`.
    /// Throws `MediaError` unreadable when the file or the coded data is damaged.
    std::optional<DecodedFrame> next(MediaTime target);

private:
    struct Codec;
    std::unique_ptr<Codec> codec_;
};

} // namespace ovik
