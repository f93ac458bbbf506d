#include <cmath>
#include <numbers>

#include "ImageTestSupport.h"
#include "OvikPlatform/image/FilterInputs.h"
#include "OvikPlatform/image/ImageExtent.h"

namespace ovik {
namespace {

using test::bitmap;
using test::maxError;
using test::near;
using test::render;
using test::Rendered;

constexpr Pixel red{1, 0, 0, 1}, green{0, 1, 0, 1}, blue{0, 0, 1, 1}, white{1, 1, 1, 1}, clear{};

// Red, green over blue, white: the top row comes first in the bitmap.
Image quad() {
    return Image::fromCGImage(bitmap(2, 2, {255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 255, 255, 255, 255}));
}

Pixel quadAt(std::int64_t x, std::int64_t y) {
    const Pixel rows[2][2] = {{blue, white}, {red, green}};
    return rows[y][x];
}

long positiveModulo(long v, long n) { return ((v % n) + n) % n; }

TEST(ImageGeometry, NearestTransformsApplyInTheOrderGiven) {
    // Scaled by 2 first, each pixel repeated, then moved 3 to the right: the blue corner lands
    // at (3, 0).
    const Image moved = quad()
                            .transformed(CGAffineTransform::scale(2, 2), ImageSampler::nearest)
                            .transformed(CGAffineTransform::translation(3, 0), ImageSampler::nearest);
    EXPECT_EQ(moved.extent(), (CGRect{{3, 0}, {4, 4}}));
    const Rendered out = render(moved, {0, 0, 8, 4});
    EXPECT_EQ(maxError(out, [](std::int64_t x,
                               std::int64_t y) { return x >= 3 && x < 7 ? quadAt((x - 3) / 2, y / 2) : clear; }),
              0);
}

TEST(ImageGeometry, LinearHalfPixelMoveBlendsNeighboursAndEdges) {
    // Black, white; moved half a pixel right, each pixel centre falls between two sources.
    const Image pair = Image::fromCGImage(bitmap(2, 1, {0, 0, 0, 255, 255, 255, 255, 255}));
    const Image moved = pair.transformed(CGAffineTransform::translation(0.5, 0));
    EXPECT_EQ(moved.extent(), (CGRect{{0.5, 0}, {2, 1}}));
    const Rendered out = render(moved, {0, 0, 4, 1});
    const Pixel expected[] = {{0, 0, 0, 0.5f}, {0.5f, 0.5f, 0.5f, 1}, {0.5f, 0.5f, 0.5f, 0.5f}, clear};
    for (int x = 0; x < 4; ++x) EXPECT_TRUE(near(out.at(x, 0), expected[x], 1e-6f)) << x;
}

TEST(ImageGeometry, CropKeepsTheCoveredShareOfEachPixel) {
    const auto overlap = [](double a0, double a1, double b0, double b1) {
        return std::max(0.0, std::min(a1, b1) - std::max(a0, b0));
    };
    for (const CGRect rect :
         {CGRect{{1, 1}, {2, 2}}, CGRect{{0.5, 0}, {1, 1}}, CGRect{{0.25, 0.5}, {0.5, 0.25}}, CGRect{{2, 2}, {-2, -2}}}) {
        const Image cropped = test::constant(white).cropped(rect);
        const CGRect r = rect.standardized();
        EXPECT_EQ(cropped.extent(), r);
        const Rendered out = render(cropped, {-1, -1, 5, 5});
        EXPECT_LT(maxError(out,
                           [&](std::int64_t x, std::int64_t y) {
                               return white * float(overlap(double(x), double(x + 1), r.minX(), r.maxX()) *
                                                    overlap(double(y), double(y + 1), r.minY(), r.maxY()));
                           }),
                  1e-7f)
            << r.minX() << ", " << r.minY();
    }
    EXPECT_TRUE(quad().cropped({{5, 5}, {2, 2}}).isEmpty());
}

TEST(ImageGeometry, ClampRepeatsTheNearestEdgePixel) {
    const Image clamped = quad().clampedToExtent();
    EXPECT_TRUE(clamped.isInfinite());
    const Rendered out = render(clamped, {-6, -9, 17, 17});
    EXPECT_EQ(maxError(out,
                       [](std::int64_t x, std::int64_t y) {
                           return quadAt(std::clamp<std::int64_t>(x, 0, 1), std::clamp<std::int64_t>(y, 0, 1));
                       }),
              0);
}

TEST(ImageGeometry, TileRepeatsTheExtentEverywhere) {
    const Image source = Image::fromCGImage(test::pattern(3, 2));
    const Rendered original = render(source, {0, 0, 3, 2});
    struct Case {
        Image image;
        long shift;
    };
    const Case cases[] = {
        {source.tiled(), 0},
        {source.applyingFilter("CIAffineTile", {{"inputTransform", CGAffineTransform::translation(1, 0)}}), 1},
    };
    for (const Case& c : cases) {
        const Rendered out = render(c.image, {-7, -5, 20, 12});
        EXPECT_EQ(maxError(out,
                           [&](std::int64_t x, std::int64_t y) {
                               return original.at(positiveModulo(x - c.shift, 3), positiveModulo(y, 2));
                           }),
                  0)
            << c.shift;
    }
}

// Lanczos-3 straight from its definition, in doubles: every source pixel weighs
// L(dx × fx) L(dy × fy), where f is the reduction along that source axis (at most 1), and the
// weights are normalised. Alpha is held within 0...1.
Pixel naiveLanczos(const Rendered& source, const CGAffineTransform& backward, double fx, double fy, std::int64_t x,
                   std::int64_t y) {
    const auto kernel = [](double t) {
        if (t == 0) return 1.0;
        if (std::fabs(t) >= 3) return 0.0;
        const double p = std::numbers::pi * t;
        return 3 * std::sin(p) * std::sin(p / 3) / (p * p);
    };
    const CGPoint q = backward.apply({double(x) + 0.5, double(y) + 0.5});
    double sum[4] = {}, weights = 0;
    for (std::int64_t j = source.rect.y - 20; j < source.rect.maxY() + 20; ++j)
        for (std::int64_t i = source.rect.x - 20; i < source.rect.maxX() + 20; ++i) {
            const double w = kernel((double(i) + 0.5 - q.x) * fx) * kernel((double(j) + 0.5 - q.y) * fy);
            const Pixel p = source.rect.contains({i, j, 1, 1}) ? source.at(i, j) : clear;
            sum[0] += w * p.r, sum[1] += w * p.g, sum[2] += w * p.b, sum[3] += w * p.a;
            weights += w;
        }
    return {float(sum[0] / weights), float(sum[1] / weights), float(sum[2] / weights),
            float(std::clamp(sum[3] / weights, 0.0, 1.0))};
}

TEST(ImageGeometry, LanczosMatchesItsDefinition) {
    const Image source = Image::fromCGImage(test::pattern(40, 30));
    const Rendered original = render(source, {0, 0, 40, 30});
    const double turn = std::numbers::pi / 6;
    struct Case {
        const char* name;
        CGAffineTransform forward, backward;
        double fx, fy;
    };
    const Case cases[] = {
        {"shrink", CGAffineTransform::scale(0.37, 0.37), CGAffineTransform::scale(1 / 0.37, 1 / 0.37), 0.37, 0.37},
        {"uneven shrink and move",
         CGAffineTransform::scale(0.5, 0.8).concatenating(CGAffineTransform::translation(3.25, -1.5)),
         CGAffineTransform::translation(-3.25, 1.5).concatenating(CGAffineTransform::scale(2, 1.25)), 0.5, 0.8},
        {"enlarge", CGAffineTransform::scale(1.7, 1.7), CGAffineTransform::scale(1 / 1.7, 1 / 1.7), 1, 1},
        {"turned", CGAffineTransform::scale(0.6, 0.6).concatenating(CGAffineTransform::rotation(turn)),
         CGAffineTransform::rotation(-turn).concatenating(CGAffineTransform::scale(1 / 0.6, 1 / 0.6)), 0.6, 0.6},
    };
    for (const Case& c : cases) {
        const Image scaled = source.transformed(c.forward, ImageSampler::lanczos);
        const PixelRect rect = PixelRect::covering(scaled.extent());
        const Rendered out = render(scaled, rect);
        EXPECT_LT(maxError(out, [&](std::int64_t x,
                                    std::int64_t y) { return naiveLanczos(original, c.backward, c.fx, c.fy, x, y); }),
                  2e-5f)
            << c.name;
    }
}

TEST(ImageGeometry, ExtentsFollowTheOperations) {
    const Image four = Image::fromCGImage(test::pattern(4, 2));
    const std::pair<Image, CGRect> cases[] = {
        {four.transformed(CGAffineTransform::rotation(std::numbers::pi / 2)), {{-2, 0}, {2, 4}}},
        {four.composited(four.transformed(CGAffineTransform::translation(10, 10))), {{0, 0}, {14, 12}}},
        {Image().composited(four), {{0, 0}, {4, 2}}},
    };
    for (const auto& [image, extent] : cases) {
        const CGRect e = image.extent();
        EXPECT_NEAR(std::max({std::fabs(e.minX() - extent.minX()), std::fabs(e.minY() - extent.minY()),
                              std::fabs(e.maxX() - extent.maxX()), std::fabs(e.maxY() - extent.maxY())}),
                    0, 1e-12);
    }
    EXPECT_TRUE(Image().transformed(CGAffineTransform::scale(2, 2)).isEmpty());
}

} // namespace
} // namespace ovik
