#pragma once
// A movie file opened by libavformat, with the facts both the probe and the frame reader
// need: its first video stream, its first audio stream and the video's quarter turns. Times
// are the file's own presentation times, not shifted to start at 0.
//
// The file is opened by us, without waiting, and must be a plain file; FFmpeg reads that same
// descriptor, so a FIFO or a device put where a movie should be is refused at once. Nothing
// else is opened: a playlist that names other files reads as a movie that can't be read.
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "OvikPlatform/media/MediaTime.h"

struct AVFormatContext;
struct AVStream;

namespace ovik {

class MovieFile {
public:
    enum class Analysis {
        /// Read packets to learn the streams only when the header leaves the video's coding or
        /// size unknown: opening stays quick for files that describe themselves.
        whenNeeded,
        /// Always read packets to complete what the header says, e.g. stream start times.
        full,
    };

    /// Throws `MediaError` unreadable, with the path, when the file can't be opened, isn't a
    /// plain file or can't be read as a movie, and empty when it has no video stream.
    MovieFile(const std::filesystem::path& path, Analysis analysis);
    ~MovieFile();
    MovieFile(const MovieFile&) = delete;
    MovieFile& operator=(const MovieFile&) = delete;

    AVFormatContext& format() const { return *format_; }
    /// The first video stream that isn't an attached cover picture.
    AVStream& video() const { return *video_; }
    /// The first audio stream, or null.
    AVStream* audio() const;
    /// Quarter turns clockwise that the video's display matrix asks for, 0 to 3.
    int turns() const;

    /// `ticks` of `stream`'s time base.
    static MediaTime time(std::int64_t ticks, const AVStream& stream);
    /// FFmpeg's text for an error code.
    static std::string errorText(int code);

private:
    // The descriptor and FFmpeg's reader over it; it outlives the format context.
    struct Input;
    struct Close {
        void operator()(AVFormatContext* format) const;
    };
    std::unique_ptr<Input> input_;
    std::unique_ptr<AVFormatContext, Close> format_;
    AVStream* video_ = nullptr;
};

} // namespace ovik
