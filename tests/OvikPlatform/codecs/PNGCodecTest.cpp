#include <gtest/gtest.h>

#include <cstdlib>

#include "OvikPlatform/codecs/ImageCodecError.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/paint/CGContext.h"

namespace ovik {
namespace {

CGImage solid(std::int64_t w, std::int64_t h, std::array<std::uint8_t, 4> rgba) {
    std::vector<std::uint8_t> pixels;
    for (std::int64_t i = 0; i < w * h; ++i) pixels.insert(pixels.end(), rgba.begin(), rgba.end());
    return CGImage(w, h, w * 4, std::move(pixels));
}

// Four quadrants, top row first: red, green / blue, white.
CGImage quadrants() {
    std::vector<std::uint8_t> pixels = {255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 255, 255, 255, 255};
    return CGImage(2, 2, 8, std::move(pixels));
}

std::array<int, 4> pixel(const CGImage& image, std::int64_t x, std::int64_t y) {
    const std::uint8_t* p = image.pixels().data() + y * image.bytesPerRow() + x * 4;
    return {p[0], p[1], p[2], p[3]};
}

TEST(PNGCodec, RoundTripKeepsPremultipliedPixels) {
    // Premultiplied values of a half-transparent orange, an opaque grey and a clear pixel.
    std::vector<std::uint8_t> pixels = {128, 64, 0, 128, 90, 90, 90, 255, 0, 0, 0, 0};
    const CGImage image(3, 1, 12, pixels);
    const std::string bytes = PNGCodec::encode(image);
    ASSERT_TRUE(PNGCodec::hasSignature(bytes));
    const CGImage back = PNGCodec::decode(bytes);
    ASSERT_EQ(back.width(), 3);
    for (std::int64_t x = 0; x < 3; ++x)
        for (int c = 0; c < 4; ++c) EXPECT_LE(std::abs(pixel(back, x, 0)[c] - pixels[x * 4 + c]), 1) << x << "," << c;
}

TEST(PNGCodec, RefusesWhatIsNotAWholePNGWithinLimits) {
    const std::string good = PNGCodec::encode(solid(4, 4, {10, 20, 30, 255}));
    const std::string wide = PNGCodec::encode(solid(PNGCodec::maximumSide + 1, 1, {0, 0, 0, 255}));
    const std::string bad[] = {"", "GIF89a", good.substr(0, 8), good.substr(0, good.size() / 2), wide};
    for (const std::string& bytes : bad) EXPECT_THROW(PNGCodec::decode(bytes), ImageCodecError) << bytes.size();
    EXPECT_THROW(PNGCodec::encode(CGImage(0, 0, 0, {})), ImageCodecError);
}

TEST(CGContext, DrawsUprightWithTheOriginAtTheBottomLeft) {
    CGContext context(4, 4);
    context.setInterpolationQuality(CGContext::InterpolationQuality::none);
    context.draw(quadrants(), CGRect{{0, 0}, {2, 2}});
    const CGImage out = context.makeImage();
    // The drawing lands in the lower left: bitmap rows 2 and 3, columns 0 and 1, still upright.
    EXPECT_EQ(pixel(out, 0, 2), (std::array<int, 4>{255, 0, 0, 255}));
    EXPECT_EQ(pixel(out, 1, 2), (std::array<int, 4>{0, 255, 0, 255}));
    EXPECT_EQ(pixel(out, 0, 3), (std::array<int, 4>{0, 0, 255, 255}));
    EXPECT_EQ(pixel(out, 1, 3), (std::array<int, 4>{255, 255, 255, 255}));
    EXPECT_EQ(pixel(out, 3, 0), (std::array<int, 4>{0, 0, 0, 0}));
}

TEST(CGContext, HighQualityDownscaleAverages) {
    CGContext context(1, 1);
    context.setInterpolationQuality(CGContext::InterpolationQuality::high);
    context.draw(quadrants(), CGRect{{0, 0}, {1, 1}});
    // The mean of the four quadrants: red (255+0+0+255)/4, green and blue alike.
    const auto p = pixel(context.makeImage(), 0, 0);
    for (int c = 0; c < 3; ++c) EXPECT_NEAR(p[c], 127.5, 3) << c;
    EXPECT_EQ(p[3], 255);
}

} // namespace
} // namespace ovik
