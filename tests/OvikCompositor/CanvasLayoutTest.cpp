#include <gtest/gtest.h>

#include "OvikCompositor/CanvasLayout.h"

namespace ovik {
namespace {

CGRect rect(double x, double y, double w, double h) { return CGRect{{x, y}, {w, h}}; }

Style styled(double padding, AspectRatio aspect = AspectRatio::makeFree(), DeviceFrame device = DeviceFrame::none,
             double cornerRadius = 0) {
    Style style;
    style.padding = padding;
    style.aspect = aspect;
    style.deviceFrame = device;
    style.cornerRadius = cornerRadius;
    return style;
}

TEST(CanvasLayout, CanvasAndContentByStyle) {
    const std::optional<CGRect> none;
    const struct {
        const char* what;
        PixelSize capture;
        double scale;
        Style style;
        std::optional<CGRect> crop, frame;
        CGSize canvas;
        CGRect content, source;
        CGVector offCentre = {};
    } cases[] = {
        {"padding in points", {100, 50}, 2, styled(10), none, none, {140, 90}, rect(20, 20, 100, 50), rect(0, 0, 100, 50)},
        {"square aspect heightens", {1600, 900}, 1, styled(0, AspectRatio::makeRatio(1, 1)), none, none, {1600, 1600},
         rect(0, 350, 1600, 900), rect(0, 0, 1600, 900)},
        {"a wide aspect widens", {100, 100}, 1, styled(0, AspectRatio::makeRatio(2, 1)), none, none, {200, 100},
         rect(50, 0, 100, 100), rect(0, 0, 100, 100)},
        {"a crop that misses shows all", {100, 50}, 1, Style{}, rect(500, 500, 10, 10), none, {100, 50},
         rect(0, 0, 100, 50), rect(0, 0, 100, 50)},
        {"a crop in points, made whole outward", {100, 50}, 2, Style{}, rect(10.2, 5, 20, 10), none, {41, 20},
         rect(0, 0, 41, 20), rect(20, 10, 41, 20)},
        {"the draft's frame", {100, 100}, 1, Style{}, none, rect(-10, -10, 200, 120), {200, 120},
         rect(10, 10, 100, 100), rect(0, 0, 100, 100), {-40, 0}},
        // Edges round half away from zero: 10.5 to 11, 60.5 to 61, -2.5 to -3, 37.5 to 38.
        {"a frame on half pixels", {100, 100}, 1, Style{}, none, rect(10.5, -2.5, 50, 40), {50, 41},
         rect(-11, -62, 100, 100), rect(0, 0, 100, 100), {14, -32.5}},
    };
    for (const auto& c : cases) {
        const CanvasLayout layout(c.capture, c.scale, c.style, c.crop, c.frame, std::nullopt);
        EXPECT_EQ(layout.canvasSize, c.canvas) << c.what;
        EXPECT_EQ(layout.contentRect, c.content) << c.what;
        EXPECT_EQ(layout.sourceRect, c.source) << c.what;
        EXPECT_EQ(layout.offCentre, c.offCentre) << c.what;
        EXPECT_FALSE(layout.backdrop) << c.what;
    }
}

TEST(CanvasLayout, WhatLiesOutsideTheFrameEnlargesTheCanvas) {
    // The frame is the capture; something stands 50 points to its right and 20 above it.
    const CanvasLayout layout({100, 100}, 1, Style{}, std::nullopt, rect(0, 0, 100, 100), rect(100, -20, 50, 10));
    EXPECT_EQ(layout.canvasSize, (CGSize{150, 120}));
    // Measured from the bottom of the whole canvas: the frame sits at its bottom left.
    EXPECT_EQ(layout.backdrop, rect(0, 0, 100, 100));
    EXPECT_EQ(layout.contentRect, rect(0, 0, 100, 100));
    EXPECT_EQ(layout.offCentre, (CGVector{-25, -10}));
    EXPECT_EQ(layout.frameBounds(), rect(0, 0, 100, 100));
}

TEST(CanvasLayout, DevicesReachPastTheContentAndShapeItsCorners) {
    const CanvasLayout browser({200, 100}, 2, styled(0, AspectRatio::makeFree(), DeviceFrame::browser, 400),
                               std::nullopt, std::nullopt, std::nullopt);
    EXPECT_EQ(browser.frameInsets, (FrameInsets{80, 0, 0, 0}));
    EXPECT_EQ(browser.frameRect(), rect(0, 0, 200, 180));
    EXPECT_EQ(browser.cornerRadius, 50); // the window's radius is held to half its smaller side
    const auto radius = [](DeviceFrame device) {
        return CanvasLayout({1000, 600}, 1, styled(0, AspectRatio::makeFree(), device, 20), std::nullopt, std::nullopt,
                            std::nullopt).cornerRadius;
    };
    EXPECT_TRUE(radius(DeviceFrame::none) == 20 && radius(DeviceFrame::macBook) == 0);
    EXPECT_DOUBLE_EQ(radius(DeviceFrame::iPhone), 0.14 * 600);
}

TEST(CanvasLayout, OutputSizesRoundHalvesUp) {
    const CanvasLayout layout({5, 7}, 1, Style{}, std::nullopt, std::nullopt, std::nullopt);
    // 2.5 and 3.5 both round away from zero; even sizes then drop their lowest bit.
    // A scale of 0 or below counts as 1.
    const std::tuple<double, bool, PixelSize> cases[] = {{0.5, false, {3, 4}}, {0.5, true, {2, 4}}, {1, true, {4, 6}},
                                                         {0.1, true, {2, 2}}, {0.01, false, {1, 1}}, {0, false, {5, 7}}};
    for (const auto& [scale, even, size] : cases) EXPECT_EQ(layout.pixelSize(scale, even), size) << scale;
    EXPECT_EQ(layout.renderedContentRect(-2), layout.renderedContentRect(1));
}

TEST(CanvasLayout, ContentLandsOnWholePixels) {
    const CanvasLayout layout({100, 50}, 1, styled(3), std::nullopt, std::nullopt, std::nullopt);
    EXPECT_EQ(layout.renderedContentRect(0.5), rect(1, 1, 50, 25));
    // 1.1 × 100 is a hair over 110, yet the content still starts on pixel 0, not on -1.
    const CanvasLayout plain({100, 50}, 1, Style{}, std::nullopt, std::nullopt, std::nullopt);
    EXPECT_EQ(plain.renderedContentRect(1.1).origin, (CGPoint{0, 0}));
    // Into a wider output the content stays in the middle.
    EXPECT_EQ(layout.renderedContentRect(1, PixelSize{206, 56}).origin, (CGPoint{53, 3}));
}

TEST(CanvasLayout, CapturePointsMapToOutputPixelsAndToTheCanvasAndBack) {
    // A 2x capture cropped to its right half, with 10 points of padding, at half size.
    const CanvasLayout cropped({200, 100}, 2, styled(10), rect(50, 0, 50, 50), std::nullopt, std::nullopt);
    const CGAffineTransform t = cropped.objectTransform(0.5);
    const CGRect rendered = cropped.renderedContentRect(0.5);
    // The crop's top left corner lands on the rendered content's top left, y down.
    const double outputHeight = double(cropped.pixelSize(0.5, false).height);
    EXPECT_EQ(t.apply({50, 0}), (CGPoint{rendered.minX(), outputHeight - rendered.maxY()}));
    EXPECT_DOUBLE_EQ(t.apply({100, 50}).x, rendered.maxX());

    const CanvasLayout layout({300, 200}, 2, styled(12, AspectRatio::makeRatio(16, 9)), rect(10, 10, 100, 60),
                              std::nullopt, std::nullopt);
    for (const CGPoint p : {CGPoint{110, 70}, CGPoint{33.5, 47.25}}) {
        const CGPoint back = layout.capturePoint(layout.canvasPoint(p));
        EXPECT_NEAR(back.x, p.x, 1e-9);
        EXPECT_NEAR(back.y, p.y, 1e-9);
    }
    // The crop's top left is the content's top left corner, measured from the canvas's top.
    EXPECT_EQ(layout.canvasPoint({10, 10}),
              (CGPoint{layout.contentRect.minX(), layout.canvasSize.height - layout.contentRect.maxY()}));
}

} // namespace
} // namespace ovik
