#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "OvikCompositor/DeviceFrameDrawing.h"
#include "OvikCompositor/FramePieces.h"
#include "OvikCompositor/RenderError.h"
#include "OvikPlatform/image/ImageExtent.h"
#include "OvikPlatform/image/PixelRect.h"
#include "OvikPlatform/media/PictureDifference.h"

namespace ovik {
namespace {

using testing::RGBA;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr RGBA clear{0, 0, 0, 0};
constexpr RGBA black{0, 0, 0, 255};

CGRect rect(double x, double y, double w, double h) { return CGRect{{x, y}, {w, h}}; }

DeviceGeometry device(DeviceFrame kind, double width, double height, double pixelsPerPoint = 1,
                      double windowRadius = 0) {
    return DeviceGeometry{kind, width, height, pixelsPerPoint, windowRadius};
}

CGRect wholeArea(const DeviceGeometry& d) { return PixelRect::covering(ImageExtent::grown(d.bounds(), 1, 1)).cgRect(); }

// A bitmap of some area of the device's coordinates, read by those coordinates.
struct Drawn {
    CGRect area;
    CGImage image;

    RGBA at(CGPoint p) const {
        const auto x = std::int64_t(std::floor(p.x - area.minX()));
        const auto y = std::int64_t(std::floor(p.y - area.minY()));
        return testing::pixelAt(image, x, image.height() - 1 - y);
    }
};

Drawn whole(const DeviceGeometry& d) { return {wholeArea(d), DeviceFrameDrawing::rasterizePiece(d, wholeArea(d))}; }

struct Sample {
    const char* what;
    CGPoint at;
    RGBA expected;
    int tolerance = 1;
};

void expectSamples(const DeviceGeometry& d, const std::vector<Sample>& samples) {
    const Drawn drawn = whole(d);
    for (const Sample& s : samples)
        EXPECT_LE(testing::channelError(drawn.at(s.at), s.expected), s.tolerance) << s.what;
}

TEST(DeviceFrameDrawing, LaptopColoursFromTheRimToTheBase) {
    // w 2000: lid (-36, -72) to (2036, 1306), rim 6.4; base (-139.6, -116) to (2139.6, -72);
    // notch 865.3...1134.7 across, -87.04...-72 up; camera (1000, 1278), radius 4.8.
    expectSamples(device(DeviceFrame::macBook, 2000, 1250),
                  {
                      {"lid, outside the rim", {-33.5, 600}, {184, 186, 191, 255}},
                      {"inside the rim", {-15, 600}, {11, 11, 13, 255}},
                      {"screen", {1000, 625}, black},
                      {"camera lens", {1000.5, 1278.5}, {42, 52, 69, 255}},
                      {"camera ring", {1003.5, 1278.5}, {28, 29, 33, 255}},
                      {"base top", {200.5, -72.5}, {232, 233, 236, 255}, 3},
                      {"base at 0.78", {200.5, -106.5}, {173, 175, 180, 255}},
                      {"base bottom", {200.5, -115.5}, {134, 136, 141, 255}, 3},
                      {"notch halfway down", {1000.5, -79.5}, {159, 161, 166, 255}, 2},
                      {"beyond the lid's round top corner", {-35.5, 1305.5}, clear},
                      {"beyond the base", {-140.5, -100}, clear},
                  });
}

TEST(DeviceFrameDrawing, LaptopIsMirrorSymmetric) {
    const Drawn drawn = whole(device(DeviceFrame::macBook, 2000, 1250));
    ASSERT_EQ(drawn.area.minX() + drawn.area.maxX(), 2000);
    int worst = 0;
    for (std::int64_t y = 0; y < drawn.image.height(); ++y)
        for (std::int64_t x = 0; x < drawn.image.width() / 2; ++x)
            worst = std::max(worst, testing::channelError(testing::pixelAt(drawn.image, x, y),
                                                          testing::pixelAt(drawn.image, drawn.image.width() - 1 - x, y)));
    // Round edges come out of the rasteriser a few levels apart from their mirror images.
    EXPECT_LE(worst, 8);
}

TEST(DeviceFrameDrawing, PhoneBandsButtonsAndRoundScreen) {
    // m 1000: band 13, bezel 30, outer (-43, -43) to (1043, 2043), screen radius 140; the left
    // band's rings begin 2.86, 8.06 and 13 in. Buttons stand 7.5 out.
    expectSamples(device(DeviceFrame::iPhone, 1000, 2000),
                  {
                      {"outer ring", {-42.5, 1000}, {80, 83, 88, 255}},
                      {"light ring", {-38.5, 1000}, {162, 165, 171, 255}},
                      {"middle ring", {-32.5, 1000}, {124, 127, 133, 255}},
                      {"bezel", {-15.5, 1000}, {5, 5, 6, 255}},
                      {"screen", {500, 1000}, black},
                      // The body's corners share their centre (140, 140) with the screen's.
                      {"bezel beside the screen's round corner", {30.5, 30.5}, {5, 5, 6, 255}},
                      {"lowest left button", {-48.5, 1276}, {116, 119, 125, 255}},
                      {"right button", {1048.5, 1380}, {116, 119, 125, 255}},
                      {"beside the body, away from the buttons", {-48.5, 1000}, clear},
                  });
}

TEST(DeviceFrameDrawing, BrowserBarLightsFieldAndClearContent) {
    // s 4: bar 500...660 up, radius 20, lights at x 80, 160, 240 and y 580, radius 24, rings
    // 2 wide; separator 500...502; field 432...1168 across, 532...628 up.
    expectSamples(device(DeviceFrame::browser, 1600, 500, 4, 20),
                  {
                      {"bar top", {300.5, 659.5}, {242, 242, 244, 255}},
                      {"bar bottom", {1500.5, 502.5}, {231, 231, 234, 255}},
                      {"separator", {1500.5, 500.5}, {210, 210, 215, 255}},
                      {"the bar reaches a pixel under its edge", {1500.5, 499.5}, {231, 231, 234, 255}},
                      {"first light", {80.5, 580.5}, {255, 95, 87, 255}},
                      {"second light", {160.5, 580.5}, {254, 188, 46, 255}},
                      {"third light", {240.5, 580.5}, {40, 200, 64, 255}},
                      {"first ring", {102.5, 580.5}, {226, 70, 63, 255}},
                      {"second ring", {182.5, 580.5}, {225, 161, 22, 255}},
                      {"third ring", {262.5, 580.5}, {20, 174, 42, 255}},
                      {"field", {800.5, 580.5}, {220, 220, 224, 255}},
                      {"content", {800, 250}, clear},
                      {"beyond the round top corner", {0.5, 659.5}, clear},
                  });
}

TEST(DeviceFrameDrawing, AnIslandOnlyOverAnUprightPhone) {
    const auto island = DeviceFrameDrawing::island(device(DeviceFrame::iPhone, 1000, 2000));
    ASSERT_TRUE(island);
    // The island (341, 1876, 318, 94) grown by a pixel, a capsule of radius 47.
    EXPECT_EQ(island->first, rect(340, 1875, 320, 96));
    const Drawn drawn{island->first, island->second};
    EXPECT_EQ(drawn.at({500, 1923}), black);
    EXPECT_EQ(drawn.at({343.5, 1923}), black);
    EXPECT_EQ(drawn.at({340.5, 1923}), clear);
    EXPECT_EQ(drawn.at({341.5, 1876.5}), clear);

    for (const DeviceGeometry& d : {device(DeviceFrame::iPhone, 2000, 1000), device(DeviceFrame::macBook, 1000, 2000),
                                    device(DeviceFrame::browser, 1000, 2000)})
        EXPECT_FALSE(DeviceFrameDrawing::island(d)) << int(d.kind);
}

// Every whole pixel of the grown bounds lies in exactly one piece or in the screen.
void expectTiling(const DeviceGeometry& d, const FramePieces& cut) {
    const CGRect area = wholeArea(d);
    const auto width = std::int64_t(area.width()), height = std::int64_t(area.height());
    std::vector<int> count(std::size_t(width * height));
    auto mark = [&](const CGRect& r) {
        for (const double edge : {r.minX(), r.minY(), r.maxX(), r.maxY()}) ASSERT_EQ(edge, std::floor(edge));
        ASSERT_TRUE(r.minX() >= area.minX() && r.maxX() <= area.maxX() && r.minY() >= area.minY() &&
                    r.maxY() <= area.maxY());
        for (auto y = std::int64_t(r.minY() - area.minY()); y < std::int64_t(r.maxY() - area.minY()); ++y)
            for (auto x = std::int64_t(r.minX() - area.minX()); x < std::int64_t(r.maxX() - area.minX()); ++x)
                ++count[std::size_t(y * width + x)];
    };
    for (const CGRect& piece : cut.pieces) {
        EXPECT_GE(std::min(piece.width(), piece.height()), 1);
        mark(piece);
    }
    mark(cut.screen);
    EXPECT_TRUE(std::all_of(count.begin(), count.end(), [](int n) { return n == 1; }));
}

TEST(FramePieces, PiecesTileTheBoundsAroundTheScreen) {
    const struct {
        const char* what;
        DeviceGeometry device;
        CGRect screen;
        std::size_t pieces;
    } cases[] = {
        // Screen radius 15.4, so 17 pixels kept on every side.
        {"phone", device(DeviceFrame::iPhone, 110, 230), rect(17, 17, 76, 196), 4},
        {"a laptop's screen is square", device(DeviceFrame::macBook, 300, 200), rect(0, 0, 300, 200), 4},
        {"browser, radius 10", device(DeviceFrame::browser, 300, 200, 1, 10), rect(11, 11, 278, 178), 4},
        {"square browser", device(DeviceFrame::browser, 300, 200, 1, 0), rect(0, 0, 300, 200), 4},
        // Radius min(500, 150, 120): the corners meet up and down, so no strips are left.
        {"browser too low for a hole", device(DeviceFrame::browser, 300, 200, 1, 500), rect(121, 100, 58, 0), 2},
        {"tiny phone", device(DeviceFrame::iPhone, 4, 4), rect(2, 2, 0, 0), 2},
        {"narrow phone", device(DeviceFrame::iPhone, 5, 9), rect(2, 2, 1, 5), 4},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const FramePieces cut = framePieces(c.device);
        EXPECT_EQ(cut.screen, c.screen);
        EXPECT_EQ(cut.pieces.size(), c.pieces);
        expectTiling(c.device, cut);
    }
}

TEST(FramePieces, PiecesDrawnApartMatchTheWholeDrawing) {
    const DeviceGeometry phone = device(DeviceFrame::iPhone, 110, 230);
    const Drawn all = whole(phone);
    for (const CGRect& piece : framePieces(phone).pieces) {
        const Drawn part{piece, DeviceFrameDrawing::rasterizePiece(phone, piece)};
        ASSERT_EQ(part.image.width(), std::int64_t(piece.width()));
        ASSERT_EQ(part.image.height(), std::int64_t(piece.height()));
        int worst = 0;
        for (double y = piece.minY() + 0.5; y < piece.maxY(); ++y)
            for (double x = piece.minX() + 0.5; x < piece.maxX(); ++x)
                worst = std::max(worst, testing::channelError(part.at({x, y}), all.at({x, y})));
        EXPECT_LE(worst, 1) << piece.origin.x << "," << piece.origin.y;
    }
}

TEST(DeviceFrameDrawing, NothingToDrawWithoutASoundDevice) {
    const DeviceGeometry cases[] = {
        device(DeviceFrame::none, 100, 100),
        device(DeviceFrame::iPhone, 0, 100),
        device(DeviceFrame::iPhone, -100, 100),
        device(DeviceFrame::iPhone, 100, nan),
        device(DeviceFrame::macBook, std::numeric_limits<double>::infinity(), 100),
        device(DeviceFrame::browser, 100, 100, 0),
        device(DeviceFrame::browser, 100, 100, 1, nan),
    };
    for (const DeviceGeometry& d : cases) {
        SCOPED_TRACE(::testing::PrintToString(d.width) + " x " + ::testing::PrintToString(d.height));
        EXPECT_TRUE(framePieces(d).pieces.empty());
        EXPECT_FALSE(DeviceFrameDrawing::island(d));
        EXPECT_EQ(testing::maxErrorFrom(DeviceFrameDrawing::rasterizePiece(d, rect(-50, -50, 200, 200)), clear), 0);
    }
}

TEST(DeviceFrameDrawing, PiecesThatCantBeBitmaps) {
    const DeviceGeometry phone = device(DeviceFrame::iPhone, 100, 200);
    for (const CGRect& piece : {rect(0, 0, 0, 10), rect(nan, 0, 10, 10), rect(0, 0, 10, -0.0)}) {
        const CGImage image = DeviceFrameDrawing::rasterizePiece(phone, piece);
        EXPECT_EQ(image.width() * image.height(), 0);
    }
    EXPECT_THROW(DeviceFrameDrawing::rasterizePiece(phone, rect(0, 0, 40000, 10)), RenderFailure);
}

} // namespace
} // namespace ovik
