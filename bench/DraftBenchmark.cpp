// Decoding and re-encoding a large draft, and one whose opaque music is a big array, against a
// plain simdjson parse of the same bytes; and the hit path of a thumbnail request (open, decode, key, find the kept file).
#include <benchmark/benchmark.h>
#include "SimdjsonBaseline.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <unistd.h>

#include "OvikDrafts/FileDraftStore.h"
#include "OvikModel/DraftJSON.h"
#include "OvikModel/animation/Action.h"
#include "OvikModel/keys/DraftRenderKey.h"
#include "OvikModel/objects/AnnotationDefaults.h"
#include "OvikPlatform/files/AtomicFile.h"
#include "OvikQuickLook/QuickLookDraft.h"

namespace {

using namespace ovik;

template <class ID>
ID numberedID(std::uint64_t n) {
    char text[40];
    std::snprintf(text, sizeof text, "B0B0B0B0-0000-4000-8000-%012llu", static_cast<unsigned long long>(n));
    return ID{*UUID::parse(text)};
}

// Objects of every common kind, each with two animation actions.
Draft syntheticDraft(int objectCount, bool withActions = true) {
    const AnnotationDefaults defaults = AnnotationDefaults::standard();
    Draft draft;
    draft.id = numberedID<DraftID>(1);
    draft.name = "bench";
    Media media;
    media.id = numberedID<MediaID>(2);
    media.source = MediaSource::makeScreenshot(Screenshot{PackagePath{"media/screenshot.png"}, {2880, 1800}, 2, "sRGB", {}, {}});
    draft.media = CowList<Media>{media};
    Section section;
    section.id = numberedID<SectionID>(3);
    section.media = media.id;
    section.length = Section::Length::makeStill(MediaDuration{5000000});
    draft.sections = CowList<Section>{section};
    const auto action = decodeJSON<Action>(std::string_view(
        R"({"curve":"smooth","mode":{"to":{"to":{"number":0.25}}},"property":"opacity","range":{"opening":{"length":500000}}})"));
    std::vector<ObjectNode> nodes;
    for (int i = 0; i < objectCount; ++i) {
        ObjectNode node;
        node.id = numberedID<ObjectID>(100 + std::uint64_t(i));
        node.name = "对象 " + std::to_string(i);
        const double x = (i % 40) * 30.5, y = (i / 40) * 20.25;
        switch (i % 4) {
        case 0: node.content = ObjectContent::makeAnnotation(defaults.rectangle({{x, y}, {120, 80}})); break;
        case 1: node.content = ObjectContent::makeAnnotation(defaults.arrow({x, y}, {x + 90, y + 45})); break;
        case 2: node.content = ObjectContent::makeAnnotation(defaults.text({x, y}, "Step " + std::to_string(i))); break;
        default: node.content = ObjectContent::makeAnnotation(defaults.counter({x, y})); break;
        }
        if (withActions) node.actions = {action, action};
        nodes.push_back(std::move(node));
    }
    draft.objects = CowList<ObjectNode>(std::move(nodes));
    return draft;
}

const std::string& largeDraftText() {
    static const std::string text = DraftJSON::encode(syntheticDraft(5000), true);
    return text;
}

// The same objects without their actions: what the records themselves cost.
const std::string& plainDraftText() {
    static const std::string text = DraftJSON::encode(syntheticDraft(5000, false), true);
    return text;
}

void DecodeDraftWithoutActions(benchmark::State& state) {
    const std::string& text = plainDraftText();
    for (auto _ : state) benchmark::DoNotOptimize(decodeJSON<Draft>(std::string_view(text)));
    state.SetBytesProcessed(std::int64_t(state.iterations() * text.size()));
}
BENCHMARK(DecodeDraftWithoutActions)->Unit(benchmark::kMillisecond);

void BaselineSimdjsonDOMParse(benchmark::State& state) { runSimdjsonParse(state, largeDraftText()); }
BENCHMARK(BaselineSimdjsonDOMParse)->Unit(benchmark::kMillisecond);

void DecodeDraft(benchmark::State& state) {
    const std::string& text = largeDraftText();
    for (auto _ : state) benchmark::DoNotOptimize(decodeJSON<Draft>(std::string_view(text)));
    state.SetBytesProcessed(std::int64_t(state.iterations() * text.size()));
}
BENCHMARK(DecodeDraft)->Unit(benchmark::kMillisecond);

// A draft whose music, kept as opaque JSON, holds ten million one-digit numbers: the densest
// JSON there is, and the worst case for a generic value per number.
const std::string& bigSongDraftText() {
    static const std::string text = [] {
        std::string song = R"({"schema":8,"id":"6F1C2B9A-0D4E-4B7A-9C3E-2A1B0C9D8E7F","name":"n","createdAt":0,"kept":false,)"
                           R"("edited":false,)"
                           R"("media":[{"id":"00000000-0000-0000-0000-00000000000A","source":{"canvas":)"
                           R"({"pixelSize":{"height":9,"width":16}}}}],"sections":[{"id":)"
                           R"("00000000-0000-0000-0000-00000000000C","media":"00000000-0000-0000-0000-00000000000A",)"
                           R"("stillDuration":1000000}],"style":{"aspect":"free","background":"none",)"
                           R"("cornerRadius":0,"deviceFrame":"none","padding":0,"shadow":0},"music":{"samples":[)";
        for (int i = 0; i < 10'000'000; ++i) song += i > 0 ? "," + std::to_string(i % 10) : "0";
        return song + "]}}";
    }();
    return text;
}

// Seconds to parse `text` with a kept parser: the baseline of the paired benchmarks below.
double timedParse(simdjson::dom::parser& parser, const std::string& text, benchmark::State& state) {
    const auto start = std::chrono::steady_clock::now();
    simdjson::dom::element root;
    if (parser.parse(text.data(), text.size(), true).get(root)) state.SkipWithError("parse failed");
    benchmark::DoNotOptimize(root);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Parse and decode of `text` measured in turn within each iteration, so that a slow spell of a
// shared machine weighs on both alike. "decode/parse" is the time to have the draft over the
// parse's; freeing the draft afterwards is timed apart and shown with it in "decode+free/parse".
void decodeOverParse(benchmark::State& state, const std::string& text) {
    simdjson::dom::parser parser;
    double parseSeconds = 0, decodeSeconds = 0, freeSeconds = 0;
    for (auto _ : state) {
        parseSeconds += timedParse(parser, text, state);
        const auto parsed = std::chrono::steady_clock::now();
        auto draft = std::make_optional(decodeJSON<Draft>(std::string_view(text)));
        benchmark::DoNotOptimize(*draft);
        const auto decoded = std::chrono::steady_clock::now();
        draft.reset();
        const auto freed = std::chrono::steady_clock::now();
        decodeSeconds += std::chrono::duration<double>(decoded - parsed).count();
        freeSeconds += std::chrono::duration<double>(freed - decoded).count();
    }
    state.counters["decode/parse"] = decodeSeconds / parseSeconds;
    state.counters["decode+free/parse"] = (decodeSeconds + freeSeconds) / parseSeconds;
}

void DecodeOverParsePaired(benchmark::State& state) { decodeOverParse(state, largeDraftText()); }
BENCHMARK(DecodeOverParsePaired)->Unit(benchmark::kMillisecond)->MinTime(2);

void BigSongDecodeOverParsePaired(benchmark::State& state) { decodeOverParse(state, bigSongDraftText()); }
BENCHMARK(BigSongDecodeOverParsePaired)->Unit(benchmark::kMillisecond)->MinTime(2);

// Writing the big song's draft back, as the store does, over a parse of it.
void BigSongWriteOverParsePaired(benchmark::State& state) {
    const std::string& text = bigSongDraftText();
    const Draft draft = decodeJSON<Draft>(std::string_view(text));
    simdjson::dom::parser parser;
    double parseSeconds = 0, writeSeconds = 0;
    for (auto _ : state) {
        parseSeconds += timedParse(parser, text, state);
        const auto parsed = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(DraftJSON::encode(draft, true));
        const auto written = std::chrono::steady_clock::now();
        writeSeconds += std::chrono::duration<double>(written - parsed).count();
    }
    state.counters["write/parse"] = writeSeconds / parseSeconds;
}
BENCHMARK(BigSongWriteOverParsePaired)->Unit(benchmark::kMillisecond)->MinTime(2);

void DecodeAndEncodeDraft(benchmark::State& state) {
    const std::string& text = largeDraftText();
    for (auto _ : state) benchmark::DoNotOptimize(DraftJSON::encode(decodeJSON<Draft>(std::string_view(text)), true));
    state.SetBytesProcessed(std::int64_t(state.iterations() * text.size()));
}
BENCHMARK(DecodeAndEncodeDraft)->Unit(benchmark::kMillisecond);

// A typical draft: 40 objects, kept thumbnails at every size.
class KeptPackage {
public:
    KeptPackage() {
        root_ = std::filesystem::temp_directory_path() / ("ovik-bench-" + std::to_string(getpid()) + ".ovikwork");
        std::filesystem::create_directories(root_);
        const Draft draft = syntheticDraft(40);
        FileDraftStore::writeDraft(draft, root_);
        for (std::int64_t size : QuickLookDraft::keptThumbnailPixels) {
            const auto folder = root_ / "renders" / thumbnailKey(draft, size).rawValue;
            std::filesystem::create_directories(folder);
            AtomicFile::write(std::string(1024, 'x'), folder / RenderKey::thumbnailFileName(size));
        }
    }
    ~KeptPackage() { std::filesystem::remove_all(root_); }
    const std::filesystem::path& root() const { return root_; }

private:
    std::filesystem::path root_;
};

void ThumbnailHitPath(benchmark::State& state) {
    const KeptPackage package;
    for (auto _ : state) benchmark::DoNotOptimize(QuickLookDraft::thumbnail(package.root(), 256));
}
BENCHMARK(ThumbnailHitPath)->Unit(benchmark::kMicrosecond);

} // namespace
