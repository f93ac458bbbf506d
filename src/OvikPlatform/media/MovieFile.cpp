#include "OvikPlatform/media/MovieFile.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <cerrno>
#include <cmath>
#include <mutex>
#include <numbers>
#include <sys/stat.h>
#include <unistd.h>

#include "OvikPlatform/files/PlainFile.h"
#include "OvikPlatform/files/PosixError.h"
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

constexpr int bufferBytes = 1 << 16;

int readPacket(void* opaque, std::uint8_t* buffer, int size) {
    const int fd = *static_cast<const int*>(opaque);
    ssize_t count;
    do count = ::read(fd, buffer, std::size_t(size));
    while (count < 0 && errno == EINTR);
    if (count < 0) return AVERROR(errno);
    return count == 0 ? AVERROR_EOF : int(count);
}

std::int64_t seekTo(void* opaque, std::int64_t offset, int whence) {
    const int fd = *static_cast<const int*>(opaque);
    if (whence & AVSEEK_SIZE) {
        struct stat info {};
        return ::fstat(fd, &info) == 0 ? std::int64_t(info.st_size) : AVERROR(errno);
    }
    const off_t at = ::lseek(fd, off_t(offset), whence & ~AVSEEK_FORCE);
    return at < 0 ? AVERROR(errno) : std::int64_t(at);
}

// A movie is read from its one file: a playlist or a reference inside it that names another
// file or an address is refused rather than opened, since that file escapes every check.
int refuseOtherFiles(AVFormatContext*, AVIOContext**, const char*, int, AVDictionary**) { return AVERROR(EPERM); }

} // namespace

struct MovieFile::Input {
    FileDescriptor file;
    int fd;
    AVIOContext* io = nullptr;

    explicit Input(FileDescriptor opened) : file(std::move(opened)), fd(file.get()) {
        auto* buffer = static_cast<unsigned char*>(av_malloc(bufferBytes));
        if (buffer) io = avio_alloc_context(buffer, bufferBytes, 0, &fd, readPacket, nullptr, seekTo);
        if (!io) av_free(buffer);
    }
    ~Input() {
        // FFmpeg may have swapped the buffer for one of its own: free the one it holds now.
        if (!io) return;
        av_freep(&io->buffer);
        avio_context_free(&io);
    }
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;
};

void MovieFile::Close::operator()(AVFormatContext* format) const { avformat_close_input(&format); }

MovieFile::MovieFile(const std::filesystem::path& path, Analysis analysis) {
    silenceLibraries();
    try {
        input_ = std::make_unique<Input>(PlainFile::open(path).descriptor);
    } catch (const PosixError& error) {
        throw MediaError(MediaError::Kind::unreadable, error.what(), path);
    }
    AVFormatContext* opened = avformat_alloc_context();
    if (!opened || !input_->io) {
        avformat_free_context(opened);
        throw MediaError(MediaError::Kind::failed, "Out of memory for the movie reader", path);
    }
    opened->pb = input_->io;
    opened->flags |= AVFMT_FLAG_CUSTOM_IO;
    opened->io_open = refuseOtherFiles;
    // The path still names the input: its extension helps guess the container.
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

MovieFile::~MovieFile() = default;

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
