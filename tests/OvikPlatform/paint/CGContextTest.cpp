#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <vector>

#include "OvikPlatform/media/PictureDifference.h"
#include "OvikPlatform/paint/CGContext.h"

namespace ovik {
namespace {

using testing::RGBA;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr ImageColor red{1, 0, 0, 1};
constexpr ImageColor blue{0, 0, 1, 1};
constexpr RGBA opaqueRed{255, 0, 0, 255};
constexpr RGBA opaqueBlue{0, 0, 255, 255};
constexpr RGBA clear{0, 0, 0, 0};

CGRect rect(double x, double y, double w, double h) { return CGRect{{x, y}, {w, h}}; }

// Pixel (x, y) counted from the bottom left.
RGBA at(const CGImage& image, std::int64_t x, std::int64_t y) {
    return testing::pixelAt(image, x, image.height() - 1 - y);
}

struct Point {
    std::int64_t x;
    std::int64_t y;
};

TEST(CGContextPaint, ShapesCoverTheirPixelsCountedFromTheBottomLeft) {
    struct Case {
        const char* what;
        CGContext::Path path;
        std::vector<Point> inside;
        std::vector<Point> outside;
    };
    const Case cases[] = {
        {"a rectangle", CGContext::rectPath(rect(0, 0, 3, 2)), {{0, 0}, {2, 1}}, {{3, 0}, {0, 2}, {0, 19}}},
        {"top corners round, bottom ones stay square", CGContext::roundedPath(rect(0, 0, 20, 20), 10, 0),
         {{0, 0}, {19, 0}, {10, 18}}, {{0, 19}, {19, 19}}},
        {"radii are limited to half the smaller side", CGContext::roundedPath(rect(0, 0, 40, 10), 100, 100),
         {{20, 9}, {20, 0}, {5, 5}, {35, 5}}, {{0, 9}, {0, 0}, {39, 9}, {39, 0}}},
        {"a negative or non-finite radius is square", CGContext::roundedPath(rect(0, 0, 20, 20), -5, nan),
         {{0, 0}, {0, 19}, {19, 19}, {19, 0}}, {{20, 0}}},
        {"an ellipse", CGContext::ellipsePath(rect(0, 0, 20, 10)), {{10, 5}, {1, 5}, {10, 8}}, {{0, 0}, {19, 9}, {0, 9}}},
    };
    for (const Case& c : cases) {
        CGContext context(40, 20);
        context.fill(c.path, red);
        const CGImage image = context.makeImage();
        for (const Point& p : c.inside) EXPECT_LE(testing::channelError(at(image, p.x, p.y), opaqueRed), 1) << c.what;
        for (const Point& p : c.outside) EXPECT_LE(testing::channelError(at(image, p.x, p.y), clear), 1) << c.what;
    }
}

TEST(CGContextPaint, ColoursAreSRGBComponentsStoredPremultiplied) {
    const std::pair<ImageColor, RGBA> cases[] = {
        {{0.5, 0.25, 1, 1}, {128, 64, 255, 255}},
        {{1, 0, 0, 0.5}, {128, 0, 0, 128}},
        {{2, -1, 0.5, 1}, {255, 0, 128, 255}},
    };
    for (const auto& [colour, expected] : cases) {
        CGContext context(2, 2);
        context.fill(CGContext::rectPath(rect(0, 0, 2, 2)), colour);
        EXPECT_LE(testing::maxErrorFrom(context.makeImage(), expected), 1) << expected[0];
    }
}

TEST(CGContextPaint, SavedStateBracketsTranslationAndClip) {
    CGContext context(10, 10);
    context.saveGState();
    context.translateBy(5, 5);
    context.clip(CGContext::rectPath(rect(0, 0, 5, 5)));
    context.fill(CGContext::rectPath(rect(-5, -5, 10, 10)), red);
    context.restoreGState();
    // An empty clip hides everything until the state is restored.
    context.saveGState();
    context.clip(CGContext::rectPath(rect(1, 1, 0, 2)));
    context.fill(CGContext::rectPath(rect(0, 0, 10, 10)), blue);
    context.restoreGState();
    context.fill(CGContext::rectPath(rect(0, 0, 1, 10)), blue);
    const CGImage image = context.makeImage();
    const std::pair<Point, RGBA> checks[] = {
        {{7, 7}, opaqueRed}, {{2, 7}, clear}, {{7, 2}, clear}, {{0, 0}, opaqueBlue}, {{0, 9}, opaqueBlue}};
    for (const auto& [p, expected] : checks) EXPECT_EQ(at(image, p.x, p.y), expected) << p.x << "," << p.y;
}

TEST(CGContextPaint, ImagesAreDrawnUprightWhereTheTransformPutsThem) {
    // Red, green over blue, white, drawn a pixel a pixel at (2, 1).
    const CGImage quadrants(2, 2, 8, {255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 255, 255, 255, 255});
    CGContext context(4, 4);
    context.setInterpolationQuality(CGContext::InterpolationQuality::none);
    context.translateBy(2, 1);
    context.draw(quadrants, rect(0, 0, 2, 2));
    const CGImage image = context.makeImage();
    EXPECT_EQ(at(image, 3, 2), (RGBA{0, 255, 0, 255}));
    EXPECT_EQ(at(image, 2, 1), opaqueBlue);
    EXPECT_EQ(at(image, 1, 1), clear);
    // Drawn small at high quality, the four average.
    CGContext small(1, 1);
    small.setInterpolationQuality(CGContext::InterpolationQuality::high);
    small.draw(quadrants, rect(0, 0, 1, 1));
    EXPECT_LE(testing::maxErrorFrom(small.makeImage(), {128, 128, 128, 255}), 3);
}

TEST(CGContextPaint, GradientsReachTheirStopsAndCarryTheEndsOn) {
    const std::vector<CGContext::GradientStop> blackToWhite = {{{0, 0, 0, 1}, 0}, {{1, 1, 1, 1}, 1}};
    const std::vector<CGContext::GradientStop> threeStops = {{red, 0}, {{0, 1, 0, 1}, 0.25}, {blue, 1}};
    struct Case {
        const char* what;
        std::function<void(CGContext&)> paint;
        std::vector<std::pair<Point, RGBA>> expected;
    };
    const Case cases[] = {
        {"vertical runs from the top down",
         [&](CGContext& c) { c.fillVerticalGradient(CGContext::rectPath(rect(0, 0, 1, 100)), blackToWhite); },
         {{{0, 99}, {0, 0, 0, 255}}, {{0, 0}, {255, 255, 255, 255}}, {{0, 50}, {126, 126, 126, 255}}}},
        {"vertical spans the path's own rectangle",
         [&](CGContext& c) { c.fillVerticalGradient(CGContext::rectPath(rect(0, 20, 1, 60)), blackToWhite); },
         {{{0, 79}, {0, 0, 0, 255}}, {{0, 20}, {255, 255, 255, 255}}, {{0, 19}, clear}, {{0, 80}, clear}}},
        // The points sit on pixel centres, so that pixel y reads location y / 100.
        {"two points with a stop between",
         [&](CGContext& c) {
             c.fillLinearGradient(CGContext::rectPath(rect(0, 0, 1, 100)), threeStops, {0, 0.5}, {0, 100.5});
         },
         {{{0, 0}, opaqueRed}, {{0, 25}, {0, 255, 0, 255}}, {{0, 62}, {0, 129, 126, 255}}}},
        {"ends carried past the points",
         [&](CGContext& c) {
             c.fillLinearGradient(CGContext::rectPath(rect(0, 0, 1, 100)), blackToWhite, {0, 40}, {0, 60});
         },
         {{{0, 10}, {0, 0, 0, 255}}, {{0, 90}, {255, 255, 255, 255}}}},
    };
    for (const Case& c : cases) {
        CGContext context(1, 100);
        c.paint(context);
        const CGImage image = context.makeImage();
        for (const auto& [p, colour] : c.expected)
            EXPECT_LE(testing::channelError(at(image, p.x, p.y), colour), 3) << c.what << " at " << p.y;
    }
}

TEST(CGContextPaint, AStrokedLineCoversItsWidthAndStopsSquare) {
    CGContext context(10, 10);
    context.strokeLine({2, 5}, {8, 5}, 2, red);
    const CGImage image = context.makeImage();
    for (const Point p : {Point{2, 4}, Point{2, 5}, Point{7, 4}, Point{7, 5}}) EXPECT_EQ(at(image, p.x, p.y), opaqueRed);
    for (const Point p : {Point{5, 3}, Point{5, 6}, Point{1, 5}, Point{8, 5}}) EXPECT_EQ(at(image, p.x, p.y), clear);
}

TEST(CGContextPaint, InputThatCantBeDrawnLeavesTheContextUsable) {
    const CGImage pixel(1, 1, 4, {0, 0, 255, 255});
    const std::vector<CGContext::GradientStop> stops = {{red, 0}, {blue, 1}};
    const CGContext::Path all = CGContext::rectPath(rect(0, 0, 4, 4));
    const struct {
        const char* what;
        std::function<void(CGContext&)> paint;
    } cases[] = {
        {"non-finite rectangle", [&](CGContext& c) { c.fill(CGContext::rectPath(rect(nan, 0, 2, 2)), red); }},
        {"rectangle without area", [&](CGContext& c) { c.fill(CGContext::rectPath(rect(0, 0, 0, 4)), red); }},
        {"non-finite colour", [&](CGContext& c) { c.fill(all, ImageColor{nan, 0, 0, 1}); }},
        {"non-finite translation", [&](CGContext& c) { c.translateBy(nan, 1); }},
        {"restore without save", [&](CGContext& c) { c.restoreGState(); }},
        {"gradient of one point", [&](CGContext& c) { c.fillLinearGradient(all, stops, {1, 1}, {1, 1}); }},
        {"gradient without stops", [&](CGContext& c) { c.fillLinearGradient(all, {}, {0, 0}, {0, 4}); }},
        {"gradient stop at NaN", [&](CGContext& c) { c.fillVerticalGradient(all, {{red, nan}}); }},
        {"line of NaN width", [&](CGContext& c) { c.strokeLine({0, 1}, {4, 1}, nan, red); }},
        {"image into a NaN rectangle", [&](CGContext& c) { c.draw(pixel, rect(0, 0, nan, 4)); }},
    };
    for (const auto& c : cases) {
        CGContext context(4, 4);
        c.paint(context);
        EXPECT_EQ(testing::maxErrorFrom(context.makeImage(), clear), 0) << c.what;
        context.fill(CGContext::rectPath(rect(0, 0, 1, 1)), red);
        EXPECT_EQ(at(context.makeImage(), 0, 0), opaqueRed) << c.what;
    }
}

} // namespace
} // namespace ovik
