#include <gtest/gtest.h>

#include "CompositorSamples.h"
#include "OvikCompositor/LiveRendering.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/media/PictureDifference.h"

namespace ovik {
namespace {

// Black and white cells of one pixel: reduced, they average to grey.
CGImage checkerboard(std::int64_t width, std::int64_t height) {
    std::vector<std::uint8_t> pixels(std::size_t(width * height * 4), 255);
    for (std::int64_t y = 0; y < height; ++y)
        for (std::int64_t x = 0; x < width; ++x)
            if ((x + y) % 2 == 1) std::fill_n(pixels.begin() + (y * width + x) * 4, 3, 0);
    return CGImage(width, height, width * 4, std::move(pixels));
}

// A small still decodes the screenshot reduced; a full-size still afterwards must read it
// again rather than take the reduced picture from the shared cache.
TEST(StillPictures, AreDecodedForTheSizeOfEachStill) {
    const testing::Package package("still-pictures");
    package.write("media/shot.png", PNGCodec::encode(checkerboard(400, 200)));
    const DraftDocument document{testing::screenshotDraft({400, 200}), package.root};
    LiveRendering rendering;
    const CGImage small = *rendering.still(document, std::nullopt, 100).cgImage;
    ASSERT_EQ(small.width(), 100);
    EXPECT_NEAR(testing::pixelAt(small, 50, 25)[0], 128, 8) << "reduced";
    const CGImage whole = *rendering.still(document, std::nullopt, std::nullopt).cgImage;
    ASSERT_EQ(whole.width(), 400);
    for (std::int64_t x : {200, 201})
        EXPECT_EQ(testing::pixelAt(whole, x, 100)[0], (x + 100) % 2 == 1 ? 0 : 255) << x;
}

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
