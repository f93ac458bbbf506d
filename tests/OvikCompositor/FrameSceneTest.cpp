#include <gtest/gtest.h>

#include "CompositorSamples.h"
#include "OvikCompositor/FrameGraph.h"
#include "OvikCompositor/FrameScene.h"
#include "OvikCompositor/LiveRendering.h"
#include "OvikPlatform/image/RenderContext.h"
#include "OvikPlatform/media/PictureDifference.h"

namespace ovik {
namespace {

using testing::canvasDraft;
using testing::Package;
using testing::pixelAt;

CGImage rendered(const FrameScene& scene, const FrameMoment& moment) {
    const PixelSize size = scene.size();
    return FrameGraph::context().createCGImage(scene.picture(moment),
                                               CGRect{{0, 0}, {double(size.width), double(size.height)}});
}

TEST(FrameScene, VideoWithoutAlphaShowsTheFrameOverBlack) {
    const Package package("scene-colors");
    // Red at half opacity on a clear canvas: premultiplied, half of linear red.
    Draft draft = canvasDraft(RGBA{1, 0, 0, 0.5});
    LiveRendering rendering;
    const PreparedDraft prepared = rendering.prepare(DraftDocument{draft, package.root});
    struct Case {
        FrameColors colors;
        testing::RGBA expected;
    };
    // Linear 0.5 is 188 in sRGB; kept alpha is 128 with the colour premultiplied by it.
    const Case cases[] = {{FrameColors::video, {188, 0, 0, 255}}, {FrameColors::videoWithAlpha, {128, 0, 0, 128}},
                          {FrameColors::pictures, {128, 0, 0, 128}}};
    for (const Case& c : cases) {
        const FrameScene scene(rendering.graph(), prepared, 1, c.colors);
        const CGImage image = rendered(scene, FrameMoment{});
        ASSERT_EQ(image.width(), 100);
        EXPECT_LE(testing::maxErrorFrom(image, c.expected), 1) << int(c.colors);
    }
}

TEST(FrameScene, TheMomentListsTheSectionsOnScreenBackToFront) {
    const Package package("scene-moment");
    Draft draft = canvasDraft(RGBA{0, 0, 1, 1});
    draft.isAnimation = true;
    Section second = draft.sections[0];
    second.id = SectionID{*UUID::parse("0C0C0C0C-0000-4000-8000-000000000004")};
    // A transition plays only when it moves something: one action on the incoming side.
    second.transitionIn = Transition{MediaDuration::fromSeconds(1), {}, {Action{}}, false, std::nullopt};
    const SectionID first = draft.sections[0].id;
    draft.sections = CowList<Section>({draft.sections[0], second});
    LiveRendering rendering;
    const PreparedDraft prepared = rendering.prepare(DraftDocument{draft, package.root});
    const FrameScene scene(rendering.graph(), prepared, 1, FrameColors::pictures);

    // The second section comes in over the last second of the first: 4 s to 5 s of the film.
    const FrameMoment crossing = scene.moment(OutputTime{4'500'000});
    EXPECT_EQ(crossing.sections, (std::vector<SectionID>{first, second.id}));
    EXPECT_EQ(crossing.sources.at(first), SourceTime{4'500'000});
    EXPECT_EQ(crossing.sources.at(second.id), SourceTime{500'000});
    ASSERT_EQ(crossing.phases.size(), 2u);
    EXPECT_FALSE(crossing.phases.at(first).isIncoming);
    EXPECT_TRUE(crossing.phases.at(second.id).isIncoming);
    EXPECT_DOUBLE_EQ(crossing.phases.at(second.id).progress, 0.5);
    EXPECT_EQ(*scene.moment(OutputTime{7'000'000}).sections, std::vector<SectionID>{second.id});
}

} // namespace
} // namespace ovik
