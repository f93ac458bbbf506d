#include <cstring>
#include <thread>

#include "ImageTestSupport.h"
#include "OvikPlatform/image/FilterInputs.h"
#include "OvikPlatform/image/ImageColor.h"
#include "OvikPlatform/image/ImageError.h"
#include "OvikPlatform/image/ImageExtent.h"
#include "OvikPlatform/image/ImageRegistry.h"

namespace ovik {
namespace {

using Kind = ImageError::Kind;

Image filter(const std::string& name, const FilterInputs& inputs) {
    return ImageRegistry::shared().applyFilter(name, inputs);
}

// A small frame that goes through every kind of node: generators, a bitmap shrunk by
// Lanczos and turned, masks, a shadow, blurs exact and halved, motion and box blurs, clamps.
Image sampleFrame() {
    const CGRect canvas{{0, 0}, {700, 500}};
    const Image background = filter("CILinearGradient", {{"inputPoint0", CGPoint{0, 0}},
                                                         {"inputPoint1", CGPoint{700, 500}},
                                                         {"inputColor0", ImageColor{0.1, 0.2, 0.6, 1}},
                                                         {"inputColor1", ImageColor{0.9, 0.5, 0.2, 1}}});
    const Image soft = background.cropped(canvas).clampedToExtent().applyingGaussianBlur(25).cropped(canvas);
    const auto place = CGAffineTransform::scale(0.8, 0.8).concatenating(CGAffineTransform::translation(94.5, 90.25));
    const Image picture = Image::fromCGImage(test::pattern(640, 400)).transformed(place, ImageSampler::lanczos);
    const FilterInputs outline = {{"inputExtent", picture.extent()}, {"inputRadius", 18.0}};
    FilterInputs mask = outline, shadow = outline;
    mask.set("inputColor", ImageColor::white());
    shadow.set("inputSigma", 14.0);
    shadow.set("inputColor", ImageColor{1, 1, 1, 0.4});
    const Image below =
        filter("blurredRoundedRectangleGenerator", shadow).transformed(CGAffineTransform::translation(0, -8));
    const Image shaded = Image::fromColor(ImageColor::black())
                             .applyingFilter("CIBlendWithRedMask",
                                             {{"inputBackgroundImage", soft}, {"inputMaskImage", below}});
    const Image cut = picture.applyingFilter("CIBlendWithRedMask", {
        {"inputBackgroundImage", Image()}, {"inputMaskImage", filter("roundedRectangleGenerator", mask)}});
    const Image turned =
        Image::fromCGImage(test::pattern(60, 40))
            .transformed(CGAffineTransform::rotation(0.3).concatenating(CGAffineTransform::translation(600, 40)))
            .applyingFilter("CIMotionBlur", {{"inputRadius", 6.0}, {"inputAngle", 0.7}})
            .applyingFilter("CIBoxBlur", {{"inputRadius", 2.0}});
    return turned.composited(cut.composited(shaded)).applyingGaussianBlur(1.5).cropped(canvas);
}

bool sameBits(const BitmapFloat& a, const BitmapFloat& b) {
    return a.width == b.width && a.height == b.height && a.pixels.size() == b.pixels.size() &&
           std::memcmp(a.pixels.data(), b.pixels.data(), a.pixels.size() * sizeof(float)) == 0;
}

// However many threads a context has, however many callers share it, whichever part is asked
// for, and when a kept render is read back, a render comes out the same to the bit.
TEST(ImageRender, ThreadsPartsAndKeptRendersDoNotChangeABit) {
    const Image frame = sampleFrame();
    const CGRect rect{{0, 0}, {700, 500}};
    const BitmapFloat alone = RenderContext(1).renderFloat(frame, rect);
    EXPECT_TRUE(sameBits(alone, RenderContext(2).renderFloat(frame, rect)));
    BitmapFloat first, second;
    std::thread one([&] { first = test::context().renderFloat(frame, rect); });
    std::thread two([&] { second = test::context().renderFloat(frame, rect); });
    one.join(), two.join();
    EXPECT_TRUE(sameBits(first, alone) && sameBits(second, alone));
    const test::Rendered whole{{0, 0, 700, 500}, alone};
    for (const PixelRect part : {PixelRect{137, 91, 300, 200}, PixelRect{255, 255, 2, 2}, PixelRect{650, 1, 49, 499}})
        EXPECT_EQ(test::maxError(test::render(frame, part), [&](std::int64_t x, std::int64_t y) { return whole.at(x, y); }), 0)
            << part.x << ", " << part.y;
    // Part of a frame kept as working pixels and placed where it came from, as a cache keeps it.
    const CGRect part{{100, 50}, {300, 200}};
    auto kept = std::make_shared<const BitmapFloat>(RenderContext(2).renderFloat(frame, part));
    const Image back =
        Image::fromBitmap(kept).transformed(CGAffineTransform::translation(100, 50), ImageSampler::nearest);
    EXPECT_EQ(back.extent(), part);
    EXPECT_TRUE(sameBits(*kept, RenderContext(2).renderFloat(back, part)));
}

TEST(ImageRender, BadRectanglesAndHugeWorkThrowTypedErrors) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Image image = Image::fromCGImage(test::pattern(4, 4));
    const struct {
        const char* name;
        Image image;
        CGRect rect;
        Kind kind;
    } cases[] = {
        {"zero width", image, {{0, 0}, {0, 4}}, Kind::invalidRenderRect},
        {"NaN", image, {{nan, 0}, {4, 4}}, Kind::invalidRenderRect},
        {"infinite", image.clampedToExtent(), ImageExtent::infinite(), Kind::invalidRenderRect},
        {"far away", image, {{1e12, 0}, {4, 4}}, Kind::invalidRenderRect},
        {"too wide", image, {{0, 0}, {32769, 1}}, Kind::renderTooLarge},
        {"too many pixels", image, {{0, 0}, {20000, 20000}}, Kind::renderTooLarge},
        // A tiny reduction of an endless picture would read far too many of its pixels.
        {"huge intermediate",
         image.clampedToExtent().transformed(CGAffineTransform::scale(1e-4, 1e-4), ImageSampler::lanczos),
         {{0, 0}, {8, 8}}, Kind::renderTooLarge},
    };
    for (const auto& c : cases)
        EXPECT_TRUE(test::throwsKind([&] { (void)test::context().createCGImage(c.image, c.rect); }, c.kind)) << c.name;
    EXPECT_EQ(test::context().createCGImage(image, {{0, 0}, {32768, 1}}).width(), 32768); // the widest there is
}

} // namespace
} // namespace ovik
