#include <gtest/gtest.h>

#include "CompositorSamples.h"
#include "OvikCompositor/FrameScene.h"
#include "OvikCompositor/LiveRendering.h"

namespace ovik {
namespace {

using testing::kept;
using testing::Package;

// Three seconds at 30 frames a second, with key frames at the whole seconds only, kept as
// `stretches` of its one segment.
Draft keyFramedRecording(const Package& package, std::vector<KeptStretch> stretches) {
    return testing::keptRecording(package, "-f lavfi -i testsrc2=s=64x48:r=30:d=3 -g 30 -sc_threshold 0 -bf 0", 3,
                                  std::move(stretches));
}

// A poster takes the key frame before its moment rather than decoding up to it; what is drawn
// over that frame (objects, cursor, zoom) must then be drawn at the frame's own moment.
TEST(StillMoment, APosterIsDrawnAtTheMomentOfItsFrame) {
    struct Case {
        const char* what;
        std::vector<KeptStretch> stretches;
        std::optional<std::int64_t> at;
        std::int64_t output, source, frame;
    };
    const std::vector<KeptStretch> keyFrameKept{kept(0, 100'000), kept(900'000, 3'000'000, 0.5)};
    const Case cases[] = {
        // The poster, film 430 ms, shows source 1.065 s: the key frame at 1 s is at film 300 ms.
        {"key frame kept", keyFrameKept, std::nullopt, 300'000, 1'000'000, 1'000'000},
        // The key frame at 1 s is cut away: the poster (370 ms, source 1.335 s) reads its own
        // frame, 40 / 30 s.
        {"key frame cut", {kept(0, 100'000), kept(1'200'000, 3'000'000, 0.5)}, std::nullopt, 370'000, 1'335'000,
         1'333'334},
        // A moment asked for shows the frame of that moment, 31 / 30 s.
        {"moment asked", keyFrameKept, 430'000, 430'000, 1'065'000, 1'033'334},
    };
    for (const Case& c : cases) {
        const Package package("still-moment");
        const Draft draft = keyFramedRecording(package, c.stretches);
        const DraftDocument document{draft, package.root};
        LiveRendering rendering;
        const PreparedDraft prepared = rendering.prepare(document);
        const FrameScene scene(rendering.graph(), prepared, 1, FrameColors::pictures);
        const FrameMoment moment =
            rendering.stillMoment(document, scene, c.at ? std::optional(OutputTime{*c.at}) : std::nullopt);
        const SectionID section = draft.sections[0].id;
        EXPECT_EQ(moment.output, OutputTime{c.output}) << c.what;
        EXPECT_EQ(moment.sources.at(section), SourceTime{c.source}) << c.what;
        EXPECT_EQ(moment.frameStarts.at(section), SourceTime{c.frame}) << c.what;
        EXPECT_TRUE(moment.frames.contains(section)) << c.what;
    }
}

} // namespace
} // namespace ovik
