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

} // namespace
} // namespace ovik
