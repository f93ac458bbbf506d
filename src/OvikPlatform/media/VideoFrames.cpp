#include "OvikPlatform/media/VideoFrames.h"

#include <algorithm>
#include <utility>

#include "OvikPlatform/media/MediaError.h"

namespace ovik {
namespace {

// start + tolerance >= time, exactly: with timescales of at most 2^31 every product fits.
bool reaches(MediaTime start, MediaTime tolerance, MediaTime time) {
    const __int128 sum = __int128(start.value) * tolerance.timescale + __int128(tolerance.value) * start.timescale;
    return sum * time.timescale >= __int128(time.value) * start.timescale * tolerance.timescale;
}

} // namespace

VideoFrames::VideoFrames(std::filesystem::path movie, std::shared_ptr<ReadFlags> flags, Options options)
    : movie_(std::move(movie)), flags_(std::move(flags)), tolerance_(options.tolerance),
      converter_(options.maxLongSide) {}

std::optional<VideoFrame> VideoFrames::frame(MediaTime time) {
    bool rewind = current_ && time < current_->decoded.start;
    if (rewind) {
        current_.reset();
        upcoming_.reset();
        finished_ = false;
    }
    if (upcoming_ && upcoming_->decoded.start <= time) current_ = std::exchange(upcoming_, std::nullopt);
    while (!upcoming_ && !finished_ && !closeEnough(time)) {
        std::optional<DecodedFrame> decoded = read({time, std::exchange(rewind, false)});
        if (!decoded) {
            finished_ = true;
            break;
        }
        // A fresh decoder starts again at a key frame: frames already passed come round again.
        if (current_ && decoded->start <= current_->decoded.start) continue;
        (decoded->start > time ? upcoming_ : current_) = Held{std::move(*decoded), nullptr};
    }
    if (!current_) return std::nullopt;
    if (!current_->image) current_->image = std::make_shared<const CGImage>(converter_.convert(current_->decoded));
    return VideoFrame{current_->image, current_->decoded.start, current_->decoded.end};
}

bool VideoFrames::closeEnough(MediaTime time) const {
    // A frame that starts exactly at the moment needs no look at the next one.
    return current_ && reaches(current_->decoded.start, tolerance_, time);
}

std::optional<DecodedFrame> VideoFrames::read(DecoderThread::Step step) {
    for (;;) {
        if (!reader_) reader_ = std::make_unique<DecoderThread>(movie_);
        DecoderThread::Answer answer;
        try {
            answer = reader_->next(step, *flags_);
        } catch (...) {
            // The step may still be running; the reader can't be asked again.
            reader_.reset();
            throw;
        }
        if (!answer.timedOut) {
            stuck_ = 0;
            return std::move(answer.frame);
        }
        reader_.reset();
        if (++stuck_ >= std::max(flags_->patience.attempts, 1)) {
            stuck_ = 0;
            throw MediaError(MediaError::Kind::failed, "the video decoder stopped answering", movie_);
        }
    }
}

} // namespace ovik
