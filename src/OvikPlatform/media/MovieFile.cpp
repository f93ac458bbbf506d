#include "OvikPlatform/media/MovieFile.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <cmath>
#include <mutex>
#include <numbers>

#include "OvikPlatform/media/MediaError.h"

namespace ovik {
namespace {

// FFmpeg writes its own diagnostics to the console; a library keeps quiet and reports errors
// through what its calls return.
void silenceLibraries() {
    static std::once_flag once;
    std::call_once(once, [] { av_log_set_level(AV_LOG_QUIET); });
}

bool isVideo(const AVStream& stream) {
    return stream.codecpar->codec_type == AVMEDIA_TYPE_VIDEO && !(stream.disposition & AV_DISPOSITION_ATTACHED_PIC);
}

AVStream* firstStream(const AVFormatContext& format, bool (*matches)(const AVStream&)) {
    for (unsigned i = 0; i < format.nb_streams; ++i)
        if (matches(*format.streams[i])) return format.streams[i];
    return nullptr;
}

bool describesItself(const AVStream* video) {
    return video && video->codecpar->codec_id != AV_CODEC_ID_NONE && video->codecpar->width > 0 &&
           video->codecpar->height > 0;
}

} // namespace

void MovieFile::Close::operator()(AVFormatContext* format) const { avformat_close_input(&format); }

MovieFile::MovieFile(const std::filesystem::path& path, Analysis analysis) {
    silenceLibraries();
    AVFormatContext* opened = nullptr;
    if (const int code = avformat_open_input(&opened, path.c_str(), nullptr, nullptr); code < 0)
        throw MediaError(MediaError::Kind::unreadable, errorText(code), path);
    format_.reset(opened);
    video_ = firstStream(*format_, isVideo);
    if (analysis == Analysis::full || !describesItself(video_)) {
        if (const int code = avformat_find_stream_info(format_.get(), nullptr); code < 0)
            throw MediaError(MediaError::Kind::unreadable, errorText(code), path);
        video_ = firstStream(*format_, isVideo);
    }
    if (!video_) throw MediaError(MediaError::Kind::empty, "The movie has no video", path);
}

AVStream* MovieFile::audio() const {
    return firstStream(*format_, [](const AVStream& s) { return s.codecpar->codec_type == AVMEDIA_TYPE_AUDIO; });
}

int MovieFile::turns() const {
    const auto* matrix =
        reinterpret_cast<const std::int32_t*>(av_stream_get_side_data(video_, AV_PKT_DATA_DISPLAYMATRIX, nullptr));
    if (!matrix) return 0;
    // The matrix is laid out as the file's track header: a and b are its first two entries,
    // and atan2(b, a) is the clockwise angle on a picture whose y axis points down.
    const double quarterTurns = std::atan2(double(matrix[1]), double(matrix[0])) / (std::numbers::pi / 2);
    return ((int(std::lround(quarterTurns)) % 4) + 4) % 4;
}

MediaTime MovieFile::time(std::int64_t ticks, const AVStream& stream) {
    return {ticks * stream.time_base.num, stream.time_base.den};
}

std::string MovieFile::errorText(int code) {
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(code, text, sizeof text);
    return text;
}

} // namespace ovik
