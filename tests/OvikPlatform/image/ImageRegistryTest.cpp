#include <functional>
#include <limits>

#include "ImageTestSupport.h"
#include "OvikPlatform/image/FilterInputs.h"
#include "OvikPlatform/image/ImageColor.h"
#include "OvikPlatform/image/ImageExtent.h"
#include "OvikPlatform/image/ImageRegistry.h"

namespace ovik {
namespace {

using Kind = ImageError::Kind;
using test::render;

TEST(ImageRegistry, BadRecipesThrowTypedErrors) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Image picture = Image::fromCGImage(test::pattern(4, 4));
    const ImageColor black = ImageColor::black(), white = ImageColor::white();
    const struct {
        const char* name;
        const char* filter;
        FilterInputs inputs;
        Kind kind;
    } filters[] = {
        {"unknown filter", "CIGaussianBlurr", {{"inputImage", picture}}, Kind::unknownFilter},
        {"no image", "CIGaussianBlur", {{"inputRadius", 2.0}}, Kind::missingInput},
        {"no mask", "CIBlendWithRedMask", {{"inputImage", picture}, {"inputBackgroundImage", Image()}},
         Kind::missingInput},
        {"misspelt input", "CIGaussianBlur", {{"inputImage", picture}, {"inputRadious", 2.0}}, Kind::unknownInput},
        {"point for a number", "CIGaussianBlur", {{"inputImage", picture}, {"inputRadius", CGPoint{1, 2}}},
         Kind::wrongInputType},
        {"number for an image", "CIColorInvert", {{"inputImage", 1.0}}, Kind::wrongInputType},
        {"NaN radius", "CIGaussianBlur", {{"inputImage", picture}, {"inputRadius", nan}}, Kind::invalidParameter},
        {"negative radius", "CIGaussianBlur", {{"inputImage", picture}, {"inputRadius", -1.0}}, Kind::invalidParameter},
        {"huge box", "CIBoxBlur", {{"inputImage", picture}, {"inputRadius", 1e9}}, Kind::invalidParameter},
        {"NaN point", "CILinearGradient",
         {{"inputPoint0", CGPoint{nan, 0}}, {"inputPoint1", CGPoint{1, 0}},
          {"inputColor0", black}, {"inputColor1", white}},
         Kind::invalidParameter},
        {"NaN colour", "CIConstantColorGenerator", {{"inputColor", ImageColor{nan, 0, 0, 1}}}, Kind::invalidParameter},
        {"crossed clamp", "CIColorClamp",
         {{"inputImage", picture},
          {"inputMinComponents", Vector4{0.5, 0, 0, 0}},
          {"inputMaxComponents", Vector4{0.4, 1, 1, 1}}},
         Kind::invalidParameter},
        {"zero scale", "CILanczosScaleTransform", {{"inputImage", picture}, {"inputScale", 0.0}}, Kind::invalidParameter},
        {"overexposed", "CIExposureAdjust", {{"inputImage", picture}, {"inputEV", 5000.0}}, Kind::invalidParameter},
    };
    for (const auto& c : filters)
        EXPECT_TRUE(test::throwsKind([&] { ImageRegistry::shared().applyFilter(c.filter, c.inputs); }, c.kind)) << c.name;

    const ImageKernel darken = ImageRegistry::shared().kernel("ovikDarken");
    const CGRect one{{0, 0}, {1, 1}};
    const std::tuple<const char*, std::function<void()>, Kind> others[] = {
        {"negative sigma", [&] { picture.applyingGaussianBlur(-0.5); }, Kind::invalidParameter},
        {"huge sigma", [&] { picture.applyingGaussianBlur(1e300); }, Kind::invalidParameter},
        {"singular transform", [&] { picture.transformed(CGAffineTransform::scale(0, 1)); }, Kind::invalidParameter},
        {"NaN crop", [&] { picture.cropped({{0, 0}, {nan, 2}}); }, Kind::invalidParameter},
        {"NaN colour image", [&] { Image::fromColor({0, 0, 0, nan}); }, Kind::invalidParameter},
        {"unknown kernel", [] { ImageRegistry::shared().kernel("ovikNothing"); }, Kind::unknownKernel},
        {"kernel numbers", [&] { darken.apply(one, {picture}, {0.5, 0.5}); }, Kind::invalidParameter},
        {"kernel images", [&] { darken.apply(one, {}, {0.5}); }, Kind::invalidParameter},
        {"kernel NaN extent", [&] { darken.apply({{nan, 0}, {1, 1}}, {picture}, {0.5}); }, Kind::invalidParameter},
        {"kernel of nine images",
         [] { ImageKernel::perPixel("nine", 9, 0, [](const KernelPixel&) { return Pixel{}; }); }, Kind::invalidParameter},
        {"same name twice",
         [] {
             ImageRegistry().add(FilterDefinition{"CIGaussianBlur", {}, [](const FilterArguments&) { return Image(); }});
         },
         Kind::duplicateName},
    };
    for (const auto& [name, make, kind] : others) EXPECT_TRUE(test::throwsKind(make, kind)) << name;
}

TEST(ImageRegistry, ColourKernelSeesPixelCentresAndItsNumbers) {
    ImageRegistry registry;
    registry.add(ImageKernel::perPixel("testPlace", 1, 1, [](const KernelPixel& p) {
        return Pixel{float(p.position.x), float(p.position.y), p.inputs[0].a * float(p.values[0]), 1};
    }));
    const Image placed = registry.kernel("testPlace").apply({{0, 0}, {8, 8}}, {test::constant({0, 0, 0, 0.5f})}, {3});
    const test::Rendered out = render(placed, {0, 0, 9, 9});
    EXPECT_EQ(out.at(3, 4), (Pixel{3.5f, 4.5f, 1.5f, 1}));
    EXPECT_EQ(out.at(8, 8), Pixel{}); // outside the extent given
}

TEST(ImageRegistry, SamplingKernelReadsAcrossTiles) {
    // Moves its input right by the number given, reading through its region of interest.
    const ImageKernel shift = ImageKernel::sampling(
        "testShift", 1, 1,
        [](const KernelSampler& in, CGPoint p, std::span<const double> v) {
            return in.pixel(0, std::int64_t(p.x - 0.5 - v[0]), std::int64_t(p.y - 0.5));
        },
        [](std::size_t, const CGRect& output, std::span<const double> v) {
            return CGRect{{output.origin.x - v[0], output.origin.y}, output.size};
        });
    const Image source = Image::fromCGImage(test::pattern(600, 3));
    const test::Rendered original = render(source, {0, 0, 600, 3});
    for (const double by : {5.0, 300.0}) {
        const CGRect moved = {{by, 0}, {600, 3}};
        const test::Rendered out = render(shift.apply(moved, {source}, {by}), PixelRect::covering(moved));
        const auto expected = [&](std::int64_t x, std::int64_t y) { return original.at(x - std::int64_t(by), y); };
        EXPECT_EQ(test::maxError(out, expected), 0) << by;
    }
}

} // namespace
} // namespace ovik
