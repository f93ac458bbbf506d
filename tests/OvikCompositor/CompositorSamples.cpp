#include "CompositorSamples.h"

#include <fstream>

#include "OvikCompositor/LiveRendering.h"
#include "OvikPlatform/media/FFmpegTool.h"

namespace ovik::testing {

namespace fs = std::filesystem;

Package::Package(const std::string& name) : root(fs::temp_directory_path() / ("ovik-frame-" + name)) {
    fs::remove_all(root);
    fs::create_directories(root / "media");
}

Package::~Package() { fs::remove_all(root); }

void Package::write(const std::string& path, const std::string& bytes) const {
    std::ofstream(root / path, std::ios::binary) << bytes;
}

std::set<std::string> Package::listing() const {
    std::set<std::string> out;
    for (const auto& entry : fs::recursive_directory_iterator(root)) out.insert(entry.path().lexically_relative(root));
    return out;
}

Draft oneMedia(MediaSource source) {
    Draft draft;
    draft.id = DraftID{*UUID::parse("0C0C0C0C-0000-4000-8000-000000000001")};
    Media media;
    media.id = MediaID{*UUID::parse("0C0C0C0C-0000-4000-8000-000000000002")};
    media.source = std::move(source);
    Section section;
    section.id = SectionID{*UUID::parse("0C0C0C0C-0000-4000-8000-000000000003")};
    section.media = media.id;
    section.length = Section::Length::makeStill(MediaDuration::fromSeconds(5));
    draft.media = CowList<Media>({media});
    draft.sections = CowList<Section>({section});
    return draft;
}

Draft canvasDraft(RGBA colour, bool transparent) {
    Canvas canvas;
    canvas.pixelSize = {100, 50};
    canvas.color = colour;
    canvas.isTransparent = transparent;
    return oneMedia(MediaSource::makeCanvas(canvas));
}

Draft screenshotDraft(PixelSize size, const char* path) {
    return oneMedia(MediaSource::makeScreenshot(Screenshot{PackagePath{path}, size, 1, "sRGB", {}, {}}));
}

CGImage halves(std::int64_t width, std::int64_t height) {
    std::vector<std::uint8_t> pixels(std::size_t(width * height * 4));
    for (std::int64_t y = 0; y < height; ++y)
        for (std::int64_t x = 0; x < width; ++x) {
            std::uint8_t* p = &pixels[std::size_t((y * width + x) * 4)];
            p[x < width / 2 ? 0 : 1] = 255;
            p[3] = 255;
        }
    return CGImage(width, height, width * 4, std::move(pixels));
}

KeptStretch kept(std::int64_t start, std::int64_t end, double rate) {
    KeptStretch stretch;
    stretch.range = {SourceTime{start}, SourceTime{end}};
    stretch.rate = rate;
    return stretch;
}

Draft keptRecording(const Package& package, const std::string& input, double seconds,
                    std::vector<KeptStretch> stretches) {
    EXPECT_TRUE(runFFmpeg(input + " -c:v libx264 -pix_fmt yuv420p " + (package.root / "media/movie.mp4").string()));
    Recording recording;
    recording.segments = {Segment{}};
    recording.segments[0].movie = PackagePath{"media/movie.mp4"};
    recording.segments[0].duration = MediaDuration::fromSeconds(seconds);
    recording.pixelSize = {64, 48};
    recording.frameRate = 30;
    Draft draft = oneMedia(MediaSource::makeRecording(recording));
    std::vector<Section> sections = draft.sections.items();
    sections[0].length = Section::Length::makeKept(std::move(stretches));
    draft.sections = CowList<Section>(sections);
    return draft;
}

Draft recordingDraft(const Package& package) {
    return keptRecording(package,
                         "-f lavfi -i color=red:s=64x48:r=30:d=1 -f lavfi -i color=blue:s=64x48:r=30:d=1 "
                         "-filter_complex concat=n=2:v=1 -g 15",
                         2, {kept(0, 2'000'000)});
}

CGImage still(const Draft& draft, const std::filesystem::path& root, std::optional<std::int64_t> at,
              std::optional<std::int64_t> maxPixel) {
    LiveRendering rendering;
    const auto moment = at ? std::optional(OutputTime{*at}) : std::nullopt;
    return *rendering.still(DraftDocument{draft, root}, moment, maxPixel).cgImage;
}

} // namespace ovik::testing
