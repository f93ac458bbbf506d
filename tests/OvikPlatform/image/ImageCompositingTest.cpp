#include "ImageTestSupport.h"
#include "OvikPlatform/image/FilterInputs.h"
#include "OvikPlatform/image/ImageColor.h"
#include "OvikPlatform/image/ImageRegistry.h"

namespace ovik {
namespace {

using test::near;
using test::render;
using test::Rendered;

// S covers pixels 0 and 1 of a row, D pixels 1 and 2: pixel 0 shows S alone, 1 both, 2 D
// alone, 3 neither.
const Pixel s{0.5f, 0, 0, 0.5f}, d{0, 0.25f, 0.5f, 1};
const Pixel mask{0.6f, 0.2f, 0.1f, 0.8f};
const float luminance = 0.27782f; // 0.2126 × 0.6 + 0.7152 × 0.2 + 0.0722 × 0.1

Pixel blend(const Pixel& a, const Pixel& b, float m) { return a * m + b * (1 - m); }

TEST(ImageCompositing, PairsOfKnownPixels) {
    const Image source = test::constant(s).cropped({{0, 0}, {2, 1}});
    const Image background = test::constant(d).cropped({{1, 0}, {2, 1}});
    struct Case {
        const char* filter;
        FilterInputs extra;
        Pixel expected[4];
    };
    const Pixel none{};
    const FilterInputs masked{{"inputMaskImage", test::constant(mask)}};
    const Case cases[] = {
        {"CISourceOverCompositing", {}, {s, {0.5f, 0.125f, 0.25f, 1}, d, none}},
        {"CIAdditionCompositing", {}, {s, {0.5f, 0.25f, 0.5f, 1}, d, none}},
        {"CISourceAtopCompositing", {}, {none, {0.5f, 0.125f, 0.25f, 1}, d, none}},
        {"CISourceOutCompositing", {}, {s, none, none, none}},
        {"CIMix", {{"inputAmount", 0.0}}, {none, d, d, none}},
        {"CIMix", {{"inputAmount", 0.5}}, {{0.25f, 0, 0, 0.25f}, {0.25f, 0.125f, 0.25f, 0.75f}, {0, 0.125f, 0.25f, 0.5f}, none}},
        {"CIMix", {{"inputAmount", 1.0}}, {s, s, none, none}},
        {"CIBlendWithRedMask", masked, {blend(s, {}, 0.6f), blend(s, d, 0.6f), blend({}, d, 0.6f), none}},
        {"CIBlendWithAlphaMask", masked, {blend(s, {}, 0.8f), blend(s, d, 0.8f), blend({}, d, 0.8f), none}},
        {"CIBlendWithMask", masked, {blend(s, {}, luminance), blend(s, d, luminance), blend({}, d, luminance), none}},
    };
    for (const Case& c : cases) {
        FilterInputs inputs = c.extra;
        inputs.set("inputBackgroundImage", background);
        const Rendered out = render(source.applyingFilter(c.filter, inputs), {0, 0, 4, 1});
        for (int x = 0; x < 4; ++x) EXPECT_TRUE(near(out.at(x, 0), c.expected[x], 2e-6f)) << c.filter << " at " << x;
    }
}

// As a card's corners are cut: over nothing, through a mask that covers only the card.
TEST(ImageCompositing, AMaskOverNothingCutsThePictureToTheMask) {
    const Image picture = Image::fromCGImage(test::pattern(8, 8));
    const Image mask = ImageRegistry::shared().applyFilter(
        "roundedRectangleGenerator",
        {{"inputExtent", CGRect{{0, 0}, {8, 8}}}, {"inputRadius", 3.0}, {"inputColor", ImageColor::white()}});
    const Image cut =
        picture.applyingFilter("CIBlendWithRedMask", {{"inputBackgroundImage", Image()}, {"inputMaskImage", mask}});
    EXPECT_EQ(cut.extent(), (CGRect{{0, 0}, {8, 8}}));
    const Rendered out = render(cut, {0, 0, 8, 8}), pixels = render(picture, {0, 0, 8, 8});
    EXPECT_EQ(out.at(0, 0), Pixel{});
    EXPECT_EQ(out.at(4, 4), pixels.at(4, 4));
}

} // namespace
} // namespace ovik
