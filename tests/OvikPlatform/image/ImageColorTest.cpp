#include <cmath>

#include "ImageTestSupport.h"
#include "OvikPlatform/image/ColorMatrix.h"
#include "OvikPlatform/image/FilterInputs.h"
#include "OvikPlatform/image/ImageRegistry.h"
#include "OvikPlatform/image/SRGBTransfer.h"

namespace ovik {
namespace {

using test::near;
using test::render;

TEST(ImageColor, EightBitPixelsSurviveDecodeAndEncode) {
    // Every alpha, and under it colours across the whole range, opaque row included.
    std::vector<std::uint8_t> rgba;
    for (int a = 255; a >= 0; --a)
        for (int x = 0; x < 256; ++x)
            rgba.insert(rgba.end(), {std::uint8_t(std::min(x, a)), std::uint8_t(std::min(255 - x, a)),
                                     std::uint8_t(std::min(x / 2, a)), std::uint8_t(a)});
    const auto source = test::bitmap(256, 256, rgba);
    const CGImage out = test::context().createCGImage(Image::fromCGImage(source), {{0, 0}, {256, 256}});
    EXPECT_EQ(out.pixels(), source->pixels());
}

TEST(ImageColor, OpaqueEncodingGivesTheNearestCode) {
    // The standard curve, written out here, against the table the renderer uses.
    const auto code = [](double x) {
        const double encoded = x <= 0.0031308 ? 12.92 * x : 1.055 * std::pow(x, 1 / 2.4) - 0.055;
        return int(std::lround(255 * encoded));
    };
    int mismatches = 0;
    for (int i = 0; i <= 1 << 20; ++i) {
        const float x = float(i) / float(1 << 20);
        for (const float probe : {std::nextafter(x, 0.0f), x, std::nextafter(x, 1.0f)})
            mismatches += SRGBTransfer::encodeOpaque8(probe) != code(probe);
    }
    EXPECT_EQ(mismatches, 0);
    // The curve in doubles, extended past 0 and 1 with odd symmetry.
    EXPECT_NEAR(SRGBTransfer::toLinear(-0.5), -0.21404114048223255, 1e-15);
    EXPECT_NEAR(SRGBTransfer::toEncoded(0.21404114048223255), 0.5, 1e-15);
    EXPECT_NEAR(SRGBTransfer::toEncoded(2), 1.055 * std::pow(2, 1 / 2.4) - 0.055, 1e-15);
    EXPECT_EQ(SRGBTransfer::encodeOpaque8(-0.5f), 0);
    EXPECT_EQ(SRGBTransfer::encodeOpaque8(NAN), 0);
    EXPECT_EQ(SRGBTransfer::encodeOpaque8(7), 255);
}

TEST(ImageColor, OutputFormatsEncodeTheSamePixels) {
    // Linear 0.5 encodes to 0.7353569830524495; premultiplication happens on encoded values.
    const Image opaque = test::constant({0.5f, 0.5f, 0.5f, 1}).cropped({{0, 0}, {1, 1}});
    const Image half = test::constant({0.25f, 0.25f, 0.25f, 0.5f}).cropped({{1, 0}, {1, 1}});
    const Image both = half.composited(opaque);
    const CGRect rect{{0, 0}, {2, 1}};
    const CGImage eight = test::context().createCGImage(both, rect);
    EXPECT_EQ(eight.pixels(), (std::vector<std::uint8_t>{188, 188, 188, 255, 94, 94, 94, 128}));
    const Bitmap16 sixteen = test::context().render16(both, rect);
    EXPECT_EQ(sixteen.pixels, (std::vector<std::uint16_t>{48192, 48192, 48192, 65535, 24096, 24096, 24096, 32768}));
    const BitmapFloat working = test::context().renderFloat(both, rect);
    EXPECT_EQ(working.pixels, (std::vector<float>{0.5f, 0.5f, 0.5f, 1, 0.25f, 0.25f, 0.25f, 0.5f}));
}

// Premultiplied (0.2, 0.1, 0.05, 0.5): straight (0.4, 0.2, 0.1) at half alpha.
const Pixel sample{0.2f, 0.1f, 0.05f, 0.5f};

TEST(ImageColor, MatrixWorksOnStraightColour) {
    // r' = g, g' = r, b' = 0.5 b + 0.2 a, a' = 0.5 a, then the bias (0.1, 0, 0, 0.5):
    // straight (0.3, 0.4, 0.15, 0.75).
    const ColorMatrix matrix{{0, 1, 0, 0}, {1, 0, 0, 0}, {0, 0, 0.5, 0.2}, {0, 0, 0, 0.5}, {0.1, 0, 0, 0.5}};
    const Image image = test::constant(sample).cropped({{0, 0}, {1, 1}}).applyingColorMatrix(matrix);
    EXPECT_TRUE(image.isInfinite()); // alpha bias shows clear pixels
    const test::Rendered out = render(image, {0, 0, 2, 1});
    EXPECT_TRUE(near(out.at(0, 0), {0.225f, 0.3f, 0.1125f, 0.75f}, 1e-6f));
    EXPECT_TRUE(near(out.at(1, 0), {0.05f, 0, 0, 0.5f}, 1e-6f));
}

TEST(ImageColor, AdjustmentsOfAKnownPixel) {
    struct Case {
        const char* filter;
        FilterInputs inputs;
        Pixel expected;
    };
    const Case cases[] = {
        {"CIColorInvert", {}, {0.3f, 0.4f, 0.45f, 0.5f}},
        {"CIExposureAdjust", {{"inputEV", 1.0}}, {0.4f, 0.2f, 0.1f, 0.5f}},
        {"CIColorClamp",
         {{"inputMinComponents", Vector4{0.25, 0, 0, 0}}, {"inputMaxComponents", Vector4{1, 0.15, 1, 0.4}}},
         {0.16f, 0.06f, 0.04f, 0.4f}},
        {"CIColorMatrix",
         {{"inputRVector", Vector4{0, 0, 1, 0}}, {"inputBVector", Vector4{1, 0, 0, 0}}},
         {0.05f, 0.1f, 0.2f, 0.5f}},
    };
    for (const Case& c : cases) {
        const test::Rendered out = render(test::constant(sample).applyingFilter(c.filter, c.inputs), {0, 0, 1, 1});
        EXPECT_TRUE(near(out.at(0, 0), c.expected, 1e-6f)) << c.filter;
    }
    const Image darker =
        ImageRegistry::shared().kernel("ovikDarken").apply({{0, 0}, {1, 1}}, {test::constant(sample)}, {0.5});
    EXPECT_TRUE(near(render(darker, {0, 0, 1, 1}).at(0, 0), {0.1f, 0.05f, 0.025f, 0.5f}, 1e-7f));
}

} // namespace
} // namespace ovik
