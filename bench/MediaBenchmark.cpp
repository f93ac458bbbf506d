// Reading one video frame at a moment the way a thumbnail does (open, seek, decode, convert
// and scale to a long side of 1400 pixels) from a 10-second 1080p H.264 movie made by the
// ffmpeg tool, against reading the movie file's bytes. Also the steady cost of the next frame
// when moments increase by one frame, as in playback and export.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <memory>

#include "OvikPlatform/files/ReadFile.h"
#include "OvikPlatform/media/VideoFrames.h"

namespace {

using namespace ovik;

constexpr std::int64_t thumbnailSide = 1400;
constexpr std::int64_t framesPerSecond = 30;

class BenchMovie {
public:
    BenchMovie() {
        std::string pattern = (std::filesystem::temp_directory_path() / "ovik-bench-media-XXXXXX").string();
        if (!::mkdtemp(pattern.data())) std::abort();
        folder_ = pattern;
        movie_ = folder_ / "testsrc2-1080p.mp4";
        const std::string command = "ffmpeg -nostdin -v error -y -f lavfi -i testsrc2=size=1920x1080:rate=30 -t 10 "
                                    "-c:v libx264 -pix_fmt yuv420p " + movie_.string() + " </dev/null";
        made_ = std::system(command.c_str()) == 0;
    }
    ~BenchMovie() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    const std::filesystem::path& path() const { return movie_; }
    bool made() const { return made_; }

private:
    std::filesystem::path folder_, movie_;
    bool made_ = false;
};

const BenchMovie& movie() {
    static const BenchMovie shared;
    return shared;
}

std::shared_ptr<ReadFlags> patientFlags() {
    auto flags = std::make_shared<ReadFlags>();
    flags->patience.wait = std::chrono::seconds(10);
    return flags;
}

void BaselineReadFileBytes(benchmark::State& state) {
    if (!movie().made()) return state.SkipWithError("ffmpeg could not make the movie");
    for (auto _ : state) benchmark::DoNotOptimize(readFile(movie().path()));
}
BENCHMARK(BaselineReadFileBytes)->Unit(benchmark::kMillisecond);

// A fresh reader per frame, as a thumbnail makes one: the argument is the moment in tenths of
// a second (the key frames of this movie stand at 0 and 8.33 s).
void readFreshFrame(benchmark::State& state, MediaTime tolerance) {
    if (!movie().made()) return state.SkipWithError("ffmpeg could not make the movie");
    const MediaTime time{state.range(0), 10};
    for (auto _ : state) {
        VideoFrames frames(movie().path(), patientFlags(), {.maxLongSide = thumbnailSide, .tolerance = tolerance});
        const std::optional<VideoFrame> frame = frames.frame(time);
        if (!frame) return state.SkipWithError("no frame");
        benchmark::DoNotOptimize(frame->image->pixels().data());
    }
}

// The exact frame: decoded from the key frame before the moment up to it.
void ThumbnailFrameAt(benchmark::State& state) { readFreshFrame(state, {}); }
BENCHMARK(ThumbnailFrameAt)->Arg(0)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond);

// Any earlier frame will do: the key frame before the moment.
void ThumbnailKeyFrameAt(benchmark::State& state) { readFreshFrame(state, {3600, 1}); }
BENCHMARK(ThumbnailKeyFrameAt)->Arg(50)->Unit(benchmark::kMillisecond);

// One reader kept open, asked for each frame in turn.
void NextFrame(benchmark::State& state) {
    if (!movie().made()) return state.SkipWithError("ffmpeg could not make the movie");
    VideoFrames frames(movie().path(), patientFlags(), {.maxLongSide = thumbnailSide, .tolerance = {}});
    std::int64_t index = 0;
    for (auto _ : state) {
        const std::optional<VideoFrame> frame = frames.frame({index++ % (10 * framesPerSecond), framesPerSecond});
        if (!frame) return state.SkipWithError("no frame");
        benchmark::DoNotOptimize(frame->image->pixels().data());
    }
}
BENCHMARK(NextFrame)->Unit(benchmark::kMillisecond);

} // namespace
