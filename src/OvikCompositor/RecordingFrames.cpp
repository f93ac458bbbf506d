#include "OvikCompositor/RecordingFrames.h"

#include "OvikCompositor/RenderError.h"
#include "OvikL10n/L10n.h"
#include "OvikCompositor/SourceProblem.h"
#include "OvikPlatform/media/MediaError.h"
#include "OvikPlatform/media/VideoFrames.h"

namespace ovik {
namespace {

// Where a source moment lies in a recording's movies.
struct Place {
    const Segment* segment;
    /// Where the segment begins on the recording's source time.
    std::int64_t begins;
    std::int64_t local;
};

// The segment that holds `time` and the moment within it; past the end, the last one's end.
std::optional<Place> place(const Recording& recording, SourceTime time) {
    const std::int64_t at = std::max<std::int64_t>(time.microseconds, 0);
    std::int64_t begins = 0;
    for (const Segment& segment : recording.segments) {
        const std::int64_t length = segment.duration.microseconds;
        if (at - begins < length || &segment == &recording.segments.back())
            return Place{&segment, begins, std::min(at - begins, length)};
        begins += length;
    }
    return std::nullopt;
}

// The first whole microsecond at or after a movie time: from there on the frame shows.
std::int64_t microsecondsFrom(MediaTime time) {
    const __int128 scaled = __int128(time.value) * 1'000'000;
    const __int128 whole = scaled / time.timescale;
    return std::int64_t(whole * time.timescale < scaled ? whole + 1 : whole);
}

// A moment this far past the end of a movie's last frame is not in the movie: the file was
// cut off. The slack lets a stored length run a little past the last frame (its sound's tail).
constexpr std::int64_t endSlackMicroseconds = 100'000;

bool pastTheEnd(const VideoFrames& frames, const std::optional<VideoFrame>& shown, std::int64_t local) {
    if (!frames.reachedEnd()) return false;
    // A frame of unknown length may show on to the end of the stretch.
    return !shown || (shown->end && MediaTime::microseconds(local - endSlackMicroseconds) > *shown->end);
}

[[noreturn]] void fail(const MediaError& error, const PackagePath& movie) {
    const std::string text = sourceProblem(movie, error);
    switch (error.kind()) {
    case MediaError::Kind::cancelled: throw RenderFailure(RenderError::cancelled{});
    case MediaError::Kind::failed: throw RenderFailure(RenderError::failed{text});
    case MediaError::Kind::unreadable:
    case MediaError::Kind::empty: break;
    }
    throw RenderFailure(RenderError::sourceUnreadable{text});
}

} // namespace

RecordingFrame RecordingFrames::frame(const DraftDocument& document, const Recording& recording, SourceTime time) {
    const auto at = place(recording, time);
    if (!at) throw RenderFailure(RenderError::sourceUnreadable{"the recording has no segments"});
    const std::filesystem::path movie = document.url(at->segment->movie);
    std::shared_ptr<VideoFrames>& frames = open_[movie];
    if (!frames) {
        VideoFrames::Options options;
        options.maxLongSide = maxLongSide;
        options.tolerance = MediaTime::microseconds(toleranceMicroseconds);
        if (!flags) flags = std::make_shared<ReadFlags>();
        frames = std::make_shared<VideoFrames>(movie, flags, options);
    }
    try {
        const auto shown = frames->frame(MediaTime::microseconds(at->local));
        if (pastTheEnd(*frames, shown, at->local))
            throw RenderFailure(RenderError::sourceUnreadable{
                L10n::format("compositor.recording.endsEarly", {at->segment->movie.relative})});
        if (!shown) return {Image(), time};
        return {Image::fromCGImage(shown->image), SourceTime{at->begins + microsecondsFrom(shown->start)}};
    } catch (const MediaError& error) {
        fail(error, at->segment->movie);
    }
}

} // namespace ovik
