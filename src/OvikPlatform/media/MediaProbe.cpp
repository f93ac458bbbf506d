#include "OvikPlatform/media/MediaProbe.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <algorithm>
#include <cmath>

#include "OvikPlatform/codecs/ImageDecoder.h"
#include "OvikPlatform/files/ReadFile.h"
#include "OvikPlatform/media/MediaError.h"
#include "OvikPlatform/media/MovieFile.h"

namespace ovik::MediaProbe {
namespace {

constexpr double defaultFrameRate = 30;
constexpr double highestFrameRate = 240;
constexpr double pointsPerInch = 72;
constexpr int highestScale = 3;

double nominalFrameRate(AVRational rate) {
    const double perSecond = rate.den == 0 ? 0 : av_q2d(rate);
    return perSecond > 0 ? std::min(perSecond, highestFrameRate) : defaultFrameRate;
}

MediaTime duration(const MovieFile& file) {
    const AVStream& video = file.video();
    if (video.duration != AV_NOPTS_VALUE) return MovieFile::time(video.duration, video);
    if (file.format().duration != AV_NOPTS_VALUE) return MediaTime::microseconds(file.format().duration);
    return {};
}

int scaleOf(double dotsPerInch) {
    return int(std::clamp(std::round(dotsPerInch / pointsPerInch), 1.0, double(highestScale)));
}

} // namespace

Movie movie(const std::filesystem::path& path) {
    const MovieFile file(path, MovieFile::Analysis::full);
    const AVStream& video = file.video();
    Movie found;
    found.turns = file.turns();
    const bool swapped = found.turns % 2 == 1;
    found.width = swapped ? video.codecpar->height : video.codecpar->width;
    found.height = swapped ? video.codecpar->width : video.codecpar->height;
    found.frameRate = nominalFrameRate(video.avg_frame_rate);
    found.duration = duration(file);
    found.videoTrackID = video.index;
    if (const AVStream* audio = file.audio()) {
        found.audioTrackID = audio->index;
        if (audio->start_time != AV_NOPTS_VALUE) found.audioOffset = MovieFile::time(audio->start_time, *audio);
    }
    return found;
}

Picture picture(const std::filesystem::path& path) {
    try {
        const ImageDecoder::Described described = ImageDecoder::describe(readFile(path));
        return {described.properties.width, described.properties.height, scaleOf(described.properties.dotsPerInch),
                described.format == ImageFormat::png};
    } catch (const Error& error) {
        throw MediaError(MediaError::Kind::unreadable, error.what(), path);
    }
}

} // namespace ovik::MediaProbe
