#include <gtest/gtest.h>

#include "CompositorSamples.h"
#include "OvikCompositor/LiveRendering.h"

namespace ovik {
namespace {

TEST(FrameStatistics, StillsFitWithoutEnlargingAndACacheHitCountsNothing) {
    const testing::Package package("statistics");
    LiveRendering rendering;
    const DraftDocument document{testing::canvasDraft(RGBA{1, 0, 0, 1}), package.root};
    const auto still = [&] { return rendering.statistics().totals(RenderPath::still); };
    // A 100 × 50 canvas fitted into 40 and into 5000 pixels, then 40 again from the cache.
    EXPECT_EQ(rendering.still(document, std::nullopt, 40).pixelSize(), (PixelSize{40, 20}));
    EXPECT_EQ(rendering.still(document, std::nullopt, 5000).pixelSize(), (PixelSize{100, 50}));
    rendering.still(document, std::nullopt, 40);
    EXPECT_EQ(still().frames, 2);
    EXPECT_GE(still().pixelsProcessed, 40 * 20 + 100 * 50);
    // Without a size a still isn't kept, so each is rendered.
    rendering.stills(document, {std::nullopt, OutputTime{}}, StillSize::fitting(std::nullopt));
    EXPECT_EQ(still().frames, 4);
    EXPECT_EQ(rendering.statistics().totals(RenderPath::preview).frames, 0);
}

} // namespace
} // namespace ovik
