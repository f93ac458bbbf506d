#include <gtest/gtest.h>

#include "OvikCompositor/CanvasLayout.h"
#include "OvikCompositor/DeviceGeometry.h"

namespace ovik {
namespace {

CGRect rect(double x, double y, double w, double h) { return CGRect{{x, y}, {w, h}}; }

Style padded(double padding, AspectRatio aspect = AspectRatio::makeFree()) {
    Style style;
    style.padding = padding;
    style.aspect = aspect;
    return style;
}

TEST(CanvasLayout, CanvasAndContentByStyle) {
    struct Case {
        const char* what;
        PixelSize capture;
        double scale;
        Style style;
        std::optional<CGRect> crop;
        std::optional<CGRect> frame;
        CGSize canvas;
        CGRect content;
        CGVector offCentre = {};
    };
    const Case cases[] = {
        {"plain", {100, 50}, 1, Style{}, std::nullopt, std::nullopt, {100, 50}, rect(0, 0, 100, 50)},
        {"padding in points", {100, 50}, 2, padded(10), std::nullopt, std::nullopt, {140, 90}, rect(20, 20, 100, 50)},
        {"square aspect widens nothing, heightens the rest", {1600, 900}, 1, padded(0, AspectRatio::makeRatio(1, 1)),
         std::nullopt, std::nullopt, {1600, 1600}, rect(0, 350, 1600, 900)},
        {"a wide aspect widens", {100, 100}, 1, padded(0, AspectRatio::makeRatio(2, 1)), std::nullopt, std::nullopt,
         {200, 100}, rect(50, 0, 100, 100)},
        {"a crop that misses shows all", {100, 50}, 1, Style{}, rect(500, 500, 10, 10), std::nullopt, {100, 50},
         rect(0, 0, 100, 50)},
        {"a crop in points, made whole outward", {100, 50}, 2, Style{}, rect(10.2, 5, 20, 10), std::nullopt, {41, 20},
         rect(0, 0, 41, 20)},
        {"the draft's frame", {100, 100}, 1, Style{}, std::nullopt, rect(-10, -10, 200, 120), {200, 120},
         rect(10, 10, 100, 100), {-40, 0}},
    };
    for (const Case& c : cases) {
        const CanvasLayout layout(c.capture, c.scale, c.style, c.crop, c.frame, std::nullopt);
        EXPECT_EQ(layout.canvasSize, c.canvas) << c.what;
        EXPECT_EQ(layout.contentRect, c.content) << c.what;
        EXPECT_EQ(layout.offCentre, c.offCentre) << c.what;
        EXPECT_FALSE(layout.backdrop) << c.what;
    }
}

TEST(CanvasLayout, ACropOfAScaledCaptureShowsItsPixels) {
    const CanvasLayout layout({100, 50}, 2, Style{}, rect(10, 5, 20, 10), std::nullopt, std::nullopt);
    EXPECT_EQ(layout.sourceRect, rect(20, 10, 40, 20));
    EXPECT_EQ(layout.contentPixels, (PixelSize{40, 20}));
}

TEST(CanvasLayout, WhatLiesOutsideTheFrameEnlargesTheCanvas) {
    // The frame is the capture; something stands 50 points to its right and 20 above it.
    const CanvasLayout layout({100, 100}, 1, Style{}, std::nullopt, rect(0, 0, 100, 100), rect(100, -20, 50, 10));
    EXPECT_EQ(layout.canvasSize, (CGSize{150, 120}));
    ASSERT_TRUE(layout.backdrop);
    // Measured from the bottom of the whole canvas: the frame sits at its bottom left.
    EXPECT_EQ(*layout.backdrop, rect(0, 0, 100, 100));
    EXPECT_EQ(layout.contentRect, rect(0, 0, 100, 100));
    EXPECT_EQ(layout.offCentre, (CGVector{-25, -10}));
    EXPECT_EQ(layout.frameBounds(), rect(0, 0, 100, 100));
}

TEST(CanvasLayout, DevicesReachPastTheContent) {
    Style browser;
    browser.deviceFrame = DeviceFrame::browser;
    browser.cornerRadius = 400;
    const CanvasLayout layout({200, 100}, 2, browser, std::nullopt, std::nullopt, std::nullopt);
    EXPECT_EQ(layout.frameInsets, (FrameInsets{80, 0, 0, 0}));
    EXPECT_EQ(layout.canvasSize, (CGSize{200, 180}));
    EXPECT_EQ(layout.frameRect(), rect(0, 0, 200, 180));
    // The window's radius is held to half its smaller side.
    EXPECT_EQ(layout.cornerRadius, 50);

    Style laptop;
    laptop.deviceFrame = DeviceFrame::macBook;
    laptop.cornerRadius = 20;
    EXPECT_EQ(CanvasLayout({1000, 600}, 1, laptop, std::nullopt, std::nullopt, std::nullopt).cornerRadius, 0);
}

TEST(CanvasLayout, OutputSizes) {
    const CanvasLayout layout({7, 7}, 1, Style{}, std::nullopt, std::nullopt, std::nullopt);
    EXPECT_EQ(layout.pixelSize(1, false), (PixelSize{7, 7}));
    EXPECT_EQ(layout.pixelSize(1, true), (PixelSize{6, 6}));
    EXPECT_EQ(layout.pixelSize(0.1, true), (PixelSize{2, 2}));
    EXPECT_EQ(layout.pixelSize(0.01, false), (PixelSize{1, 1}));
    // A scale of 0 or below counts as 1.
    EXPECT_EQ(layout.pixelSize(0, false), layout.pixelSize(1, false));
    EXPECT_EQ(layout.renderedContentRect(-2), layout.renderedContentRect(1));
}

TEST(CanvasLayout, ContentLandsOnWholePixels) {
    const CanvasLayout layout({100, 50}, 1, padded(3), std::nullopt, std::nullopt, std::nullopt);
    const CGRect rendered = layout.renderedContentRect(0.5);
    EXPECT_EQ(rendered.origin, (CGPoint{1, 1}));
    EXPECT_EQ(rendered.size, (CGSize{50, 25}));
    // Into a wider output the content stays in the middle.
    EXPECT_EQ(layout.renderedContentRect(1, PixelSize{206, 56}).origin, (CGPoint{53, 3}));
}

TEST(CanvasLayout, ObjectsMapFromCapturePointsToOutputPixels) {
    // A 2x capture cropped to its right half, with 10 points of padding, at half size.
    const CanvasLayout layout({200, 100}, 2, padded(10), rect(50, 0, 50, 50), std::nullopt, std::nullopt);
    const CGAffineTransform t = layout.objectTransform(0.5);
    const CGRect rendered = layout.renderedContentRect(0.5);
    const PixelSize out = layout.pixelSize(0.5, false);
    // The crop's top left corner lands on the rendered content's top left, y down.
    const CGPoint corner = t.apply({50, 0});
    EXPECT_DOUBLE_EQ(corner.x, rendered.minX());
    EXPECT_DOUBLE_EQ(corner.y, double(out.height) - rendered.maxY());
    EXPECT_DOUBLE_EQ(t.apply({100, 50}).x, rendered.maxX());
}

TEST(CanvasLayout, CanvasAndCapturePointsAreInverse) {
    const CanvasLayout layout({300, 200}, 2, padded(12, AspectRatio::makeRatio(16, 9)), rect(10, 10, 100, 60),
                              std::nullopt, std::nullopt);
    for (const CGPoint p : {CGPoint{10, 10}, CGPoint{110, 70}, CGPoint{33.5, 47.25}}) {
        const CGPoint back = layout.capturePoint(layout.canvasPoint(p));
        EXPECT_NEAR(back.x, p.x, 1e-9);
        EXPECT_NEAR(back.y, p.y, 1e-9);
    }
    // The crop's top left is the content's top left corner, measured from the canvas's top.
    const CGPoint corner = layout.canvasPoint({10, 10});
    EXPECT_DOUBLE_EQ(corner.x, layout.contentRect.minX());
    EXPECT_DOUBLE_EQ(corner.y, layout.canvasSize.height - layout.contentRect.maxY());
}

TEST(DeviceGeometry, BrowserBarAndField) {
    const DeviceGeometry::Browser wide(1000, 600, 1, 12);
    EXPECT_EQ(wide.window, rect(0, 0, 1000, 640));
    EXPECT_EQ(wide.bar, rect(0, 600, 1000, 40));
    ASSERT_TRUE(wide.field);
    EXPECT_EQ(*wide.field, rect(270, 608, 460, 24));
    EXPECT_EQ(wide.lights[2], (CGPoint{60, 620}));
    // Below 236 points wide the field would be narrower than 60 points.
    EXPECT_TRUE(DeviceGeometry::Browser(236, 100, 1, 0).field);
    EXPECT_FALSE(DeviceGeometry::Browser(235, 100, 1, 0).field);
    EXPECT_EQ(DeviceGeometry::Browser(100, 10, 1, 80).radius, 25);
}

TEST(DeviceGeometry, PhoneIslandAndButtons) {
    const DeviceGeometry::Phone upright(1000, 2000);
    EXPECT_TRUE(upright.hasIsland);
    EXPECT_DOUBLE_EQ(upright.outerRadius, 140 + 30 + 13);
    EXPECT_NEAR(upright.island.maxY(), 2000 - 30, 1e-9);
    EXPECT_NEAR((upright.island.minX() + upright.island.maxX()) / 2, 500, 1e-9);
    ASSERT_EQ(upright.buttons.size(), 4u);
    // Buttons stand out of the body on both long sides.
    EXPECT_NEAR(upright.buttons[0].rect.minX(), upright.outer.minX() - 7.5, 1e-9);
    EXPECT_NEAR(upright.buttons[3].rect.maxX(), upright.outer.maxX() + 7.5, 1e-9);
    EXPECT_NEAR(upright.buttons[0].rect.minY(), upright.outer.maxY() - 0.205 * upright.outer.height(), 1e-9);

    const DeviceGeometry::Phone lying(2000, 1000);
    EXPECT_FALSE(lying.hasIsland);
    EXPECT_NEAR(lying.island.minX(), 30, 1e-9);
    EXPECT_NEAR(lying.buttons[0].rect.minY(), lying.outer.minY() - 7.5, 1e-9);
    EXPECT_NEAR(lying.buttons[3].rect.maxY(), lying.outer.maxY() + 7.5, 1e-9);
}

TEST(DeviceGeometry, BoundsAndSilhouettes) {
    const DeviceGeometry none{DeviceFrame::none, 100, 50, 1, 0};
    EXPECT_EQ(none.bounds(), rect(0, 0, 100, 50));
    EXPECT_TRUE(none.silhouette().empty());
    EXPECT_FALSE(none.hasScreen());

    const DeviceGeometry laptop{DeviceFrame::macBook, 1000, 600, 1, 0};
    const DeviceGeometry::MacBook book(1000, 600);
    EXPECT_EQ(laptop.silhouette().size(), 2u);
    EXPECT_DOUBLE_EQ(book.base.maxY(), book.lid.minY());
    EXPECT_NEAR(laptop.bounds().minX(), 500 - 1.1 * 1036 / 2, 1e-9);
    EXPECT_DOUBLE_EQ(laptop.bounds().maxY(), 600 + 28);

    const DeviceGeometry phone{DeviceFrame::iPhone, 1000, 2000, 1, 0};
    EXPECT_LT(phone.bounds().minX(), DeviceGeometry::Phone(1000, 2000).outer.minX());
}

} // namespace
} // namespace ovik
