#include "OvikCompositor/RecordingFrames.h"

#include "OvikCompositor/RenderError.h"
#include "OvikPlatform/media/MediaError.h"
#include "OvikPlatform/media/VideoFrames.h"

namespace ovik {
namespace {

// The segment that holds `time` and the moment within it; past the end, the last one's end.
std::optional<std::pair<const Segment*, std::int64_t>> place(const Recording& recording, SourceTime time) {
    std::int64_t left = std::max<std::int64_t>(time.microseconds, 0);
    for (const Segment& segment : recording.segments) {
        if (left < segment.duration.microseconds || &segment == &recording.segments.back())
            return std::pair{&segment, std::min(left, segment.duration.microseconds)};
        left -= segment.duration.microseconds;
    }
    return std::nullopt;
}

[[noreturn]] void fail(const MediaError& error, const PackagePath& movie) {
    const std::string text = movie.relative + ": " + error.what();
    switch (error.kind()) {
    case MediaError::Kind::cancelled: throw RenderFailure(RenderError::cancelled{});
    case MediaError::Kind::failed: throw RenderFailure(RenderError::failed{text});
    case MediaError::Kind::unreadable:
    case MediaError::Kind::empty: break;
    }
    throw RenderFailure(RenderError::sourceUnreadable{text});
}

} // namespace

Image RecordingFrames::frame(const DraftDocument& document, const Recording& recording, SourceTime time) {
    const auto at = place(recording, time);
    if (!at) throw RenderFailure(RenderError::sourceUnreadable{"the recording has no segments"});
    const auto& [segment, local] = *at;
    const std::filesystem::path movie = document.url(segment->movie);
    std::shared_ptr<VideoFrames>& frames = open_[movie];
    if (!frames) {
        VideoFrames::Options options;
        options.maxLongSide = maxLongSide;
        options.tolerance = MediaTime::microseconds(toleranceMicroseconds);
        if (!flags) flags = std::make_shared<ReadFlags>();
        frames = std::make_shared<VideoFrames>(movie, flags, options);
    }
    try {
        const auto shown = frames->frame(MediaTime::microseconds(local));
        return shown ? Image::fromCGImage(shown->image) : Image();
    } catch (const MediaError& error) {
        fail(error, segment->movie);
    }
}

} // namespace ovik
