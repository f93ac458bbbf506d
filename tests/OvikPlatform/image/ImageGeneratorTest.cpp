#include "ImageTestSupport.h"
#include "OvikPlatform/image/FilterInputs.h"
#include "OvikPlatform/image/ImageColor.h"
#include "OvikPlatform/image/ImageRegistry.h"

namespace ovik {
namespace {

using test::near;
using test::render;

Image generated(const std::string& name, const FilterInputs& inputs) {
    return ImageRegistry::shared().applyFilter(name, inputs);
}

Pixel grey(float level) { return {level, level, level, 1}; }

Image blackToWhite(CGPoint from, CGPoint to) {
    return generated("CILinearGradient", {{"inputPoint0", from}, {"inputPoint1", to},
                                          {"inputColor0", ImageColor::black()}, {"inputColor1", ImageColor::white()}});
}

TEST(ImageGenerator, LinearGradientHoldsItsEndsAndMixesBetween) {
    // Black at the centre of pixel 0, white at the centre of pixel 8; mixed in linear light.
    const Image across = blackToWhite({0.5, 0}, {8.5, 0});
    EXPECT_TRUE(across.isInfinite());
    const test::Rendered out = render(across, {-3, 0, 15, 6});
    const std::pair<std::int64_t, float> levels[] = {{-3, 0}, {0, 0}, {2, 0.25f}, {4, 0.5f}, {8, 1}, {11, 1}};
    for (const auto& [x, level] : levels) {
        EXPECT_TRUE(near(out.at(x, 0), grey(level), 1e-6f)) << x;
        EXPECT_TRUE(near(out.at(x, 5), grey(level), 1e-6f)) << x;
    }
    // Along a diagonal: pixel (2, 7) has its centre half way.
    EXPECT_TRUE(near(render(blackToWhite({0, 0}, {10, 10}), {2, 7, 1, 1}).at(2, 7), grey(0.5f), 1e-6f));
}

TEST(ImageGenerator, RadialGradientRunsBetweenItsRadii) {
    struct Case {
        double radius0, radius1;
        std::int64_t x;
        float level;
    };
    // Inside radius 0; centre (3.5, 0.5) lies √12.5 away; beyond radius 1; equal radii, a hard edge.
    const Case cases[] = {{2, 6, 0, 1}, {2, 6, 3, 1 - 0.38388348f}, {2, 6, 6, 0}, {3, 3, 2, 1}, {3, 3, 3, 0}};
    for (const Case& c : cases) {
        const Image ring = generated("CIRadialGradient", {{"inputCenter", CGPoint{0, 0}},
                                                          {"inputRadius0", c.radius0},
                                                          {"inputRadius1", c.radius1},
                                                          {"inputColor0", ImageColor::white()},
                                                          {"inputColor1", ImageColor::clear()}});
        EXPECT_TRUE(near(render(ring, {c.x, 0, 1, 1}).at(c.x, 0), Pixel{1, 1, 1, 1} * c.level, 1e-6f)) << c.x;
    }
}

Image rounded(CGRect rect, double radius) {
    return generated("roundedRectangleGenerator",
                     {{"inputExtent", rect}, {"inputRadius", radius}, {"inputColor", ImageColor{1, 0, 0, 0.5}}});
}

TEST(ImageGenerator, RoundedRectangleCoverage) {
    struct Case {
        CGRect rect;
        double radius;
        std::int64_t x, y;
        float coverage;
    };
    const CGRect square{{0, 0}, {10, 10}};
    const Case cases[] = {{square, 0, 9, 9, 1}, {square, 0, 10, 5, 0}, {square, 0, -1, 5, 0}, {square, 3, 0, 0, 0},
                          {square, 3, 1, 1, 1}, {square, 3, 0, 1, 0.58452405f}, {{{0.25, 0}, {9.5, 10}}, 0, 0, 5, 0.75f}};
    for (const Case& c : cases) {
        const Image shape = rounded(c.rect, c.radius);
        EXPECT_EQ(shape.extent(), c.rect);
        EXPECT_TRUE(near(render(shape, {c.x, c.y, 1, 1}).at(c.x, c.y), Pixel{0.5f, 0, 0, 0.5f} * c.coverage, 1e-6f))
            << c.radius << " at " << c.x << ", " << c.y;
    }
}

} // namespace
} // namespace ovik
