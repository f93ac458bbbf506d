// Composed thumbnails and frames.
//
// ThumbnailOverPeerPaired: the thumbnail a file browser asks of a draft that holds one 1080p
// movie (no kept renders, so it is composed), as `ovik thumbnail --size 1400`, against
// `ffmpegthumbnailer -s 1400` on the same movie, both run as programs in turn inside each
// iteration; the counter is the median of the quotients.
//
// FrameWithBlur: a 1920x1080 frame of a blurred background picture, a 1080p capture with
// padding, round corners and a shadow, rendered to pixels; caches are emptied each time
// (a new frame graph), so every bake counts.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "OvikCompositor/LiveRendering.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/files/AtomicFile.h"
#include "OvikPlatform/image/CGImage.h"
#include "OvikPlatform/image/RenderContext.h"

namespace {

using namespace ovik;
namespace fs = std::filesystem;

const fs::path workFolder = fs::temp_directory_path() / "ovik-bench-thumbnail";

bool run(const std::string& command) { return std::system((command + " >/dev/null 2>&1 </dev/null").c_str()) == 0; }

Draft recordingDraft() {
    Recording recording;
    Segment segment;
    segment.movie = PackagePath{"media/movie.mp4"};
    segment.duration = MediaDuration::fromSeconds(10);
    recording.segments = {segment};
    recording.pixelSize = {1920, 1080};
    recording.frameRate = 30;
    recording.area.scale = 2;
    Draft draft;
    draft.id = DraftID::random();
    Media media;
    media.id = MediaID::random();
    media.source = MediaSource::makeRecording(recording);
    Section section;
    section.id = SectionID::random();
    section.media = media.id;
    KeptStretch whole;
    whole.range = SourceRange{SourceTime{0}, SourceTime{10'000'000}};
    section.length = Section::Length::makeKept({whole});
    draft.media = CowList<Media>({media});
    draft.sections = CowList<Section>({section});
    draft.style.background = Background::makeGradient({RGBA{0.2, 0.3, 0.6, 1}, RGBA{0.9, 0.6, 0.4, 1}, 45});
    draft.style.padding = 40;
    draft.style.cornerRadius = 12;
    draft.style.shadow = 60;
    return draft;
}

// A package with a ten-second 1080p H.264 movie, made once per run.
const fs::path& moviePackage() {
    static const fs::path package = [] {
        const fs::path root = workFolder / "movie.ovikwork";
        fs::remove_all(root);
        fs::create_directories(root / "media");
        if (!run("ffmpeg -nostdin -y -f lavfi -i testsrc2=size=1920x1080:rate=30:duration=10 -c:v libx264 "
                 "-preset veryfast -pix_fmt yuv420p " + (root / "media/movie.mp4").string()))
            std::abort();
        FileDraftStore::writeDraft(recordingDraft(), root);
        return root;
    }();
    return package;
}

double secondsOf(const std::string& command) {
    const auto start = std::chrono::steady_clock::now();
    if (!run(command)) std::abort();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void ThumbnailOverPeerPaired(benchmark::State& state) {
    const fs::path& package = moviePackage();
    const std::string ours = std::string(OVIK_COMMAND) + " thumbnail " + package.string() + " --size 1400 --output " +
                             (workFolder / "ours.png").string();
    const std::string peer = "ffmpegthumbnailer -s 1400 -i " + (package / "media/movie.mp4").string() + " -o " +
                             (workFolder / "peer.png").string();
    std::vector<double> quotients;
    double oursTotal = 0, peerTotal = 0;
    for (auto _ : state) {
        const double a = secondsOf(ours), b = secondsOf(peer);
        quotients.push_back(a / b);
        oursTotal += a;
        peerTotal += b;
    }
    std::sort(quotients.begin(), quotients.end());
    state.counters["ours/peer"] = quotients[quotients.size() / 2];
    state.counters["ours ms"] = 1000 * oursTotal / double(quotients.size());
    state.counters["peer ms"] = 1000 * peerTotal / double(quotients.size());
}
BENCHMARK(ThumbnailOverPeerPaired)->Iterations(15)->Unit(benchmark::kMillisecond);

// A 1080p capture on a blurred picture background.
DraftDocument stillDocument() {
    const fs::path root = workFolder / "still.ovikwork";
    fs::remove_all(root);
    fs::create_directories(root / "media");
    std::vector<std::uint8_t> pixels(1920 * 1080 * 4);
    for (std::size_t i = 0; i < pixels.size(); i += 4) {
        const std::size_t p = i / 4;
        pixels[i] = std::uint8_t(p % 1920 / 8), pixels[i + 1] = std::uint8_t(p / 1920 / 5), pixels[i + 2] = 128;
        pixels[i + 3] = 255;
    }
    const CGImage picture(1920, 1080, 1920 * 4, std::move(pixels));
    AtomicFile::write(PNGCodec::encode(picture), root / "media/shot.png");
    AtomicFile::write(PNGCodec::encode(picture), root / "media/back.png");
    Draft draft = recordingDraft();
    std::vector<Media> media = draft.media.items();
    media[0].source = MediaSource::makeScreenshot(Screenshot{PackagePath{"media/shot.png"}, {1920, 1080}, 1, "sRGB", {}, {}});
    draft.media = CowList<Media>(media);
    draft.style.background = Background{{}, Background::image{PackagePath{"media/back.png"}}};
    draft.style.backgroundBlur = 30;
    draft.style.aspect = AspectRatio::makeRatio(16, 9);
    return DraftDocument{draft, root};
}

void BaselineFrameFill(benchmark::State& state) {
    // Writing every byte of a 1080p bitmap once: the least a frame can cost.
    std::vector<std::uint8_t> pixels(1920 * 1080 * 4);
    std::uint8_t value = 0;
    for (auto _ : state) {
        std::fill(pixels.begin(), pixels.end(), ++value);
        benchmark::DoNotOptimize(pixels.data());
    }
}
BENCHMARK(BaselineFrameFill)->Unit(benchmark::kMillisecond);

void FrameWithBlur(benchmark::State& state) {
    LiveRendering rendering;
    const PreparedDraft prepared = rendering.prepare(stillDocument());
    const double scale = LiveRendering::canvasScale(prepared.layout, StillSize::longSide(1920));
    const PixelSize size = prepared.layout.pixelSize(scale, false);
    for (auto _ : state) {
        FrameGraph graph({}, LiveRendering::cacheBudgetBytes);
        const Image frame = graph.render(prepared, FrameMoment{}, scale, size);
        const CGImage pixels = FrameGraph::context().createCGImage(frame, CGRect{{0, 0}, {double(size.width), double(size.height)}});
        benchmark::DoNotOptimize(pixels.pixels().data());
    }
    state.counters["threads"] = FrameGraph::context().threadCount();
    state.counters["width"] = double(size.width);
    state.counters["height"] = double(size.height);
}
BENCHMARK(FrameWithBlur)->Unit(benchmark::kMillisecond);

} // namespace
