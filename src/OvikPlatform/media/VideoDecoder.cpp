#include "OvikPlatform/media/VideoDecoder.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <algorithm>
#include <limits>

#include "OvikPlatform/media/MediaError.h"
#include "OvikPlatform/media/MovieFile.h"

namespace ovik {
namespace {

struct ContextFree {
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
};
struct PacketFree {
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};
struct FrameFree {
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
};

[[noreturn]] void unreadable(const std::string& what, int code, const std::filesystem::path& path) {
    throw MediaError(MediaError::Kind::unreadable, what + ": " + MovieFile::errorText(code), path);
}

} // namespace

struct VideoDecoder::Codec {
    std::filesystem::path path;
    MovieFile file;
    AVStream& stream;
    std::unique_ptr<AVCodecContext, ContextFree> context;
    std::unique_ptr<AVPacket, PacketFree> packet{av_packet_alloc()};
    int turns;
    bool draining = false;
    // How far the reading has come, in stream ticks: the start of the last frame returned or
    // the last seek's target, whichever is later. Index entries beyond it are worth a seek.
    std::int64_t passed;
    // Index entries of many files carry decoding times, which come before presentation times
    // when frames are reordered: how much later a key frame shows than it decodes, learned from
    // the key frames read so far.
    std::int64_t keyDelay = 0;
    // The latest packet start read since the last seek that is not after the target: a frame
    // that starts before it can't be the one showing at the target.
    std::int64_t latestByTarget = std::numeric_limits<std::int64_t>::min();

    explicit Codec(const std::filesystem::path& moviePath)
        : path(moviePath), file(moviePath, MovieFile::Analysis::whenNeeded), stream(file.video()),
          turns(file.turns()), passed(firstIndexedTicks()) {
        const AVCodec* decoder = avcodec_find_decoder(stream.codecpar->codec_id);
        if (!decoder) throw MediaError(MediaError::Kind::unreadable, "No decoder for the movie's video coding", path);
        context.reset(avcodec_alloc_context3(decoder));
        if (!context || !packet)
            throw MediaError(MediaError::Kind::failed, "Out of memory for the video decoder", path);
        if (const int copied = avcodec_parameters_to_context(context.get(), stream.codecpar); copied < 0)
            unreadable("Unusable video parameters", copied, path);
        context->pkt_timebase = stream.time_base;
        // One thread per core decodes successive frames side by side.
        context->thread_count = 0;
        if (const int opened = avcodec_open2(context.get(), decoder, nullptr); opened < 0)
            unreadable("The video decoder can't start", opened, path);
    }

    std::int64_t firstIndexedTicks() {
        const AVIndexEntry* first = avformat_index_get_entry(&stream, 0);
        return first ? first->timestamp : std::numeric_limits<std::int64_t>::min();
    }

    std::int64_t ticks(MediaTime time) const {
        return av_rescale_rnd(time.value, stream.time_base.den, time.timescale * stream.time_base.num, AV_ROUND_DOWN);
    }

    void seek(MediaTime target) {
        const std::int64_t to = ticks(target);
        if (const int sought = av_seek_frame(&file.format(), stream.index, to, AVSEEK_FLAG_BACKWARD); sought < 0)
            unreadable("The movie can't seek", sought, path);
        avcodec_flush_buffers(context.get());
        draining = false;
        passed = to;
        latestByTarget = std::numeric_limits<std::int64_t>::min();
    }

    bool keyFrameAhead(MediaTime target) {
        const int index = av_index_search_timestamp(&stream, ticks(target) - keyDelay, AVSEEK_FLAG_BACKWARD);
        const AVIndexEntry* key = index >= 0 ? avformat_index_get_entry(&stream, index) : nullptr;
        return key && key->timestamp > passed;
    }

    // Hands the codec the next packet of the video, or the end of the stream.
    void feed(std::int64_t target) {
        const int read = av_read_frame(&file.format(), packet.get());
        if (read == AVERROR_EOF) {
            avcodec_send_packet(context.get(), nullptr);
            draining = true;
            return;
        }
        if (read < 0) unreadable("Damaged movie data", read, path);
        const int sent = packet->stream_index == stream.index ? send(target) : 0;
        av_packet_unref(packet.get());
        // A damaged packet is skipped as players do; the frames after the next key frame are sound.
        if (sent < 0 && sent != AVERROR_INVALIDDATA) unreadable("The video decoder failed", sent, path);
    }

    int send(std::int64_t target) {
        const std::int64_t start = packet->pts;
        if (start != AV_NOPTS_VALUE) {
            if ((packet->flags & AV_PKT_FLAG_KEY) && packet->dts != AV_NOPTS_VALUE)
                keyDelay = std::max(keyDelay, start - packet->dts);
            if (start <= target) latestByTarget = std::max(latestByTarget, start);
        }
        // On the way to the target, frames that no other frame refers to and that a later
        // frame hides are skipped rather than decoded.
        const bool hidden = start != AV_NOPTS_VALUE && start < latestByTarget;
        context->skip_frame = hidden ? AVDISCARD_NONREF : AVDISCARD_DEFAULT;
        return avcodec_send_packet(context.get(), packet.get());
    }

    std::optional<DecodedFrame> receive(MediaTime target) {
        std::unique_ptr<AVFrame, FrameFree> frame(av_frame_alloc());
        for (;;) {
            const int received = avcodec_receive_frame(context.get(), frame.get());
            if (received == AVERROR_EOF) return std::nullopt;
            if (received == AVERROR(EAGAIN)) {
                if (draining) return std::nullopt;
                feed(ticks(target));
                continue;
            }
            if (received < 0) unreadable("The video decoder failed", received, path);
            const std::int64_t start = frame->best_effort_timestamp;
            // A frame with no time can't be placed; the ones around it can.
            if (start == AV_NOPTS_VALUE) continue;
            passed = std::max(passed, start);
            const std::int64_t length = frame->pkt_duration;
            const std::optional<MediaTime> end =
                length > 0 ? std::optional(MovieFile::time(start + length, stream)) : std::nullopt;
            return DecodedFrame{std::shared_ptr<const AVFrame>(frame.release(), FrameFree()),
                                MovieFile::time(start, stream), end, turns};
        }
    }
};

VideoDecoder::VideoDecoder(const std::filesystem::path& path) : codec_(std::make_unique<Codec>(path)) {}

VideoDecoder::~VideoDecoder() = default;

void VideoDecoder::seek(MediaTime target) { codec_->seek(target); }

std::optional<DecodedFrame> VideoDecoder::next(MediaTime target) {
    if (codec_->keyFrameAhead(target)) codec_->seek(target);
    return codec_->receive(target);
}

} // namespace ovik
