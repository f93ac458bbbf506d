#include <functional>

#include "ImageTestSupport.h"
#include "OvikPlatform/image/FilterInputs.h"
#include "OvikPlatform/image/ImageColor.h"
#include "OvikPlatform/image/ImageError.h"
#include "OvikPlatform/image/ImageExtent.h"
#include "OvikPlatform/image/ImageRegistry.h"

namespace ovik {
namespace {

using Kind = ImageError::Kind;
using test::render;

const Image picture = Image::fromCGImage(test::pattern(4, 4));

Image filter(const std::string& name, const FilterInputs& inputs) {
    return ImageRegistry::shared().applyFilter(name, inputs);
}

TEST(ImageRegistry, BadRecipesThrowTypedErrors) {
    const double nan = std::numeric_limits<double>::quiet_NaN(), infinity = std::numeric_limits<double>::infinity();
    const ImageKernel darken = ImageRegistry::shared().kernel("ovikDarken");
    struct Case {
        const char* name;
        std::function<void()> make;
        Kind kind;
    };
    const Case cases[] = {
        {"unknown filter",
         [] {
             filter("CIGaussianBlurr", {{"inputImage", picture}});
         },
         Kind::unknownFilter},
        {"no image",
         [] {
             filter("CIGaussianBlur", {{"inputRadius", 2.0}});
         },
         Kind::missingInput},
        {"no radius", [] { picture.applyingFilter("CIGaussianBlur", {}); }, Kind::missingInput},
        {"no mask",
         [] {
             picture.applyingFilter("CIBlendWithRedMask", {{"inputBackgroundImage", Image()}});
         },
         Kind::missingInput},
        {"misspelt input",
         [] {
             picture.applyingFilter("CIGaussianBlur", {{"inputRadious", 2.0}});
         },
         Kind::unknownInput},
        {"point for a number",
         [] {
             picture.applyingFilter("CIGaussianBlur", {{"inputRadius", CGPoint{1, 2}}});
         },
         Kind::wrongInputType},
        {"number for an image",
         [] {
             filter("CIColorInvert", {{"inputImage", 1.0}});
         },
         Kind::wrongInputType},
        {"NaN radius",
         [=] {
             picture.applyingFilter("CIGaussianBlur", {{"inputRadius", nan}});
         },
         Kind::invalidParameter},
        {"infinite radius",
         [=] {
             picture.applyingFilter("CIGaussianBlur", {{"inputRadius", infinity}});
         },
         Kind::invalidParameter},
        {"negative radius",
         [] {
             picture.applyingFilter("CIGaussianBlur", {{"inputRadius", -1.0}});
         },
         Kind::invalidParameter},
        {"negative sigma", [] { picture.applyingGaussianBlur(-0.5); }, Kind::invalidParameter},
        {"huge sigma", [] { picture.applyingGaussianBlur(1e300); }, Kind::invalidParameter},
        {"huge box",
         [] {
             picture.applyingFilter("CIBoxBlur", {{"inputRadius", 1e9}});
         },
         Kind::invalidParameter},
        {"NaN point",
         [=] {
             filter("CILinearGradient", {{"inputPoint0", CGPoint{nan, 0}},
                                         {"inputPoint1", CGPoint{1, 0}},
                                         {"inputColor0", ImageColor::black()},
                                         {"inputColor1", ImageColor::white()}});
         },
         Kind::invalidParameter},
        {"NaN colour",
         [=] {
             filter("CIConstantColorGenerator", {{"inputColor", ImageColor{nan, 0, 0, 1}}});
         },
         Kind::invalidParameter},
        {"crossed clamp",
         [] {
             picture.applyingFilter("CIColorClamp", {{"inputMinComponents", Vector4{0.5, 0, 0, 0}},
                                                     {"inputMaxComponents", Vector4{0.4, 1, 1, 1}}});
         },
         Kind::invalidParameter},
        {"zero scale",
         [] {
             picture.applyingFilter("CILanczosScaleTransform", {{"inputScale", 0.0}});
         },
         Kind::invalidParameter},
        {"overexposed",
         [] {
             picture.applyingFilter("CIExposureAdjust", {{"inputEV", 5000.0}});
         },
         Kind::invalidParameter},
        {"singular transform", [] { picture.transformed(CGAffineTransform::scale(0, 1)); }, Kind::invalidParameter},
        {"NaN transform", [=] { picture.transformed(CGAffineTransform::translation(nan, 0)); }, Kind::invalidParameter},
        {"NaN crop",
         [=] {
             picture.cropped({{0, 0}, {nan, 2}});
         },
         Kind::invalidParameter},
        {"NaN colour image",
         [=] {
             Image::fromColor({0, 0, 0, nan});
         },
         Kind::invalidParameter},
        {"unknown kernel", [] { ImageRegistry::shared().kernel("ovikNothing"); }, Kind::unknownKernel},
        {"kernel numbers",
         [=] {
             darken.apply({{0, 0}, {1, 1}}, {picture}, {0.5, 0.5});
         },
         Kind::invalidParameter},
        {"kernel images",
         [=] {
             darken.apply({{0, 0}, {1, 1}}, {}, {0.5});
         },
         Kind::invalidParameter},
        {"kernel NaN",
         [=] {
             darken.apply({{0, 0}, {1, 1}}, {picture}, {nan});
         },
         Kind::invalidParameter},
        {"kernel NaN extent",
         [=] {
             darken.apply({{nan, 0}, {1, 1}}, {picture}, {0.5});
         },
         Kind::invalidParameter},
        {"kernel of nine images",
         [] { ImageKernel::perPixel("nine", 9, 0, [](const KernelPixel&) { return Pixel{}; }); },
         Kind::invalidParameter},
        {"same name twice",
         [] {
             ImageRegistry().add(
                 FilterDefinition{"CIGaussianBlur", {}, [](const FilterArguments&) { return Image(); }});
         },
         Kind::duplicateName},
    };
    for (const Case& c : cases) {
        try {
            c.make();
            ADD_FAILURE() << c.name << ": no error";
        } catch (const ImageError& error) {
            EXPECT_EQ(error.kind(), c.kind) << c.name << ": " << error.what();
        }
    }
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
        EXPECT_EQ(
            test::maxError(out, [&](std::int64_t x, std::int64_t y) { return original.at(x - std::int64_t(by), y); }),
            0)
            << by;
    }
}

} // namespace
} // namespace ovik
