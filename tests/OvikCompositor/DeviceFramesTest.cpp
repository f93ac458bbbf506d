#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "OvikCompositor/DeviceFrameDrawing.h"
#include "OvikCompositor/DeviceGeometry.h"
#include "OvikCompositor/FramePieces.h"
#include "OvikCompositor/RenderError.h"
#include "OvikPlatform/image/ImageExtent.h"
#include "OvikPlatform/image/PixelRect.h"
#include "OvikPlatform/media/PictureDifference.h"

namespace ovik {
namespace {

using testing::RGBA;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr RGBA clear{0, 0, 0, 0}, black{0, 0, 0, 255};

CGRect rect(double x, double y, double w, double h) { return CGRect{{x, y}, {w, h}}; }

DeviceGeometry device(DeviceFrame kind, double width, double height, double pixelsPerPoint = 1, double radius = 0) {
    return DeviceGeometry{kind, width, height, pixelsPerPoint, radius};
}

TEST(DeviceGeometry, BrowserBarAndField) {
    EXPECT_EQ(DeviceGeometry::Browser(1000, 600, 1, 12).field, rect(270, 608, 460, 24));
    // Below 236 points wide the field would be narrower than 60 points.
    EXPECT_TRUE(DeviceGeometry::Browser(472, 100, 2, 0).field);
    EXPECT_FALSE(DeviceGeometry::Browser(471, 100, 2, 0).field);
    EXPECT_EQ(DeviceGeometry::Browser(100, 10, 1, 80).radius, 25);
}

TEST(DeviceGeometry, PhoneIslandBoundsAndSilhouettes) {
    const DeviceGeometry::Phone upright(1000, 2000), lying(2000, 1000);
    EXPECT_DOUBLE_EQ(upright.outerRadius, 140 + 30 + 13);
    EXPECT_EQ(lying.island, rect(30, 341, 94, 318));
    // A square phone stands upright; the buttons stand 7.5 out of the body.
    EXPECT_TRUE(upright.hasIsland && DeviceGeometry::Phone(500, 500).hasIsland && !lying.hasIsland);
    EXPECT_EQ(device(DeviceFrame::iPhone, 1000, 2000).bounds(), rect(-50.5, -43, 1101, 2086));
    // The base hangs under the lid: -36 - 22.
    const CGRect laptop = device(DeviceFrame::macBook, 1000, 600).bounds();
    EXPECT_NEAR(laptop.minX(), 500 - 1.1 * 1036 / 2, 1e-9);
    EXPECT_TRUE(laptop.minY() == -58 && laptop.maxY() == 628);
    EXPECT_EQ(device(DeviceFrame::macBook, 1000, 600).silhouette().size(), 2u);
    EXPECT_EQ(device(DeviceFrame::none, 100, 50).bounds(), rect(0, 0, 100, 50));
    EXPECT_TRUE(device(DeviceFrame::none, 100, 50).silhouette().empty());
}

CGRect wholeArea(const DeviceGeometry& d) { return PixelRect::covering(ImageExtent::grown(d.bounds(), 1, 1)).cgRect(); }

// A bitmap of some area of the device's coordinates, read by those coordinates.
struct Drawn {
    CGRect area;
    CGImage image;

    explicit Drawn(const DeviceGeometry& d, std::optional<CGRect> part = std::nullopt)
        : area(part.value_or(wholeArea(d))), image(DeviceFrameDrawing::rasterizePiece(d, area)) {}
    Drawn(CGRect area, CGImage image) : area(area), image(std::move(image)) {}
    RGBA at(CGPoint p) const {
        const auto x = std::int64_t(std::floor(p.x - area.minX())), y = std::int64_t(std::floor(p.y - area.minY()));
        return testing::pixelAt(image, x, image.height() - 1 - y);
    }
};

TEST(DeviceFrameDrawing, ColoursFromTheRimToTheScreen) {
    const Drawn laptop(device(DeviceFrame::macBook, 2000, 1250)), phone(device(DeviceFrame::iPhone, 1000, 2000)),
        browser(device(DeviceFrame::browser, 1600, 500, 4, 20));
    const struct {
        const char* what;
        const Drawn& drawn;
        CGPoint at;
        RGBA expected;
        int tolerance = 1;
    } samples[] = {
        // Lid (-36, -72) to (2036, 1306), rim 6.4; base (-139.6, -116) to (2139.6, -72); camera
        // (1000, 1278), radius 4.8.
        {"lid, outside the rim", laptop, {-33.5, 600}, {184, 186, 191, 255}},
        {"inside the rim", laptop, {-15, 600}, {11, 11, 13, 255}},
        {"laptop screen", laptop, {1000, 625}, black},
        {"camera lens", laptop, {1000.5, 1278.5}, {42, 52, 69, 255}},
        {"base top", laptop, {200.5, -72.5}, {232, 233, 236, 255}, 3},
        {"beyond the lid's round top corner", laptop, {-35.5, 1305.5}, clear},
        // Band 13, bezel 30, outer (-43, -43) to (1043, 2043); the band's rings begin 2.86 and 13
        // in; screen radius 140 round (140, 140), shared by the body's corners.
        {"outer ring", phone, {-42.5, 1000}, {80, 83, 88, 255}},
        {"bezel beside the screen's round corner", phone, {30.5, 30.5}, {5, 5, 6, 255}},
        {"phone screen", phone, {500, 1000}, black},
        {"lowest left button", phone, {-48.5, 1276}, {116, 119, 125, 255}},
        {"beside the body, away from the buttons", phone, {-48.5, 1000}, clear},
        // Bar 500...660 up, radius 20, lights at x 80, 160, 240 and y 580, radius 24, rings 2
        // wide; separator 500...502; field 432...1168 across, 532...628 up.
        {"bar top", browser, {300.5, 659.5}, {242, 242, 244, 255}},
        {"separator", browser, {1500.5, 500.5}, {210, 210, 215, 255}},
        {"the bar reaches a pixel under its edge", browser, {1500.5, 499.5}, {231, 231, 234, 255}},
        {"third light", browser, {240.5, 580.5}, {40, 200, 64, 255}},
        {"field", browser, {800.5, 580.5}, {220, 220, 224, 255}},
        {"content", browser, {800, 250}, clear},
        {"beyond the round top corner", browser, {0.5, 659.5}, clear},
    };
    for (const auto& s : samples) EXPECT_LE(testing::channelError(s.drawn.at(s.at), s.expected), s.tolerance) << s.what;
}

TEST(DeviceFrameDrawing, AnIslandOnlyOverAnUprightPhone) {
    const auto island = DeviceFrameDrawing::island(device(DeviceFrame::iPhone, 1000, 2000));
    ASSERT_TRUE(island);
    // The island (341, 1876, 318, 94) grown by a pixel, a capsule of radius 47.
    const Drawn drawn{island->first, island->second};
    EXPECT_EQ(drawn.area, rect(340, 1875, 320, 96));
    EXPECT_EQ(drawn.at({343.5, 1923}), black);
    EXPECT_EQ(drawn.at({340.5, 1923}), clear);
    EXPECT_EQ(drawn.at({341.5, 1876.5}), clear);
    for (const DeviceGeometry& d : {device(DeviceFrame::iPhone, 2000, 1000), device(DeviceFrame::browser, 1000, 2000)})
        EXPECT_FALSE(DeviceFrameDrawing::island(d)) << int(d.kind);
}

TEST(FramePieces, PiecesTileTheBoundsAroundTheScreenAndDrawLikeTheWhole) {
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
        // Radius min(500, 150, 120): the corners meet up and down, so no strips are left.
        {"browser too low for a hole", device(DeviceFrame::browser, 300, 200, 1, 500), rect(121, 100, 58, 0), 2},
        {"tiny phone", device(DeviceFrame::iPhone, 4, 4), rect(2, 2, 0, 0), 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const FramePieces cut = framePieces(c.device);
        EXPECT_EQ(cut.screen, c.screen);
        ASSERT_EQ(cut.pieces.size(), c.pieces);
        // Every whole pixel of the grown bounds lies in exactly one piece or in the screen.
        const Drawn whole(c.device);
        std::vector<int> count(std::size_t(whole.image.width() * whole.image.height()));
        for (std::size_t i = 0; i <= cut.pieces.size(); ++i) {
            const bool isScreen = i == cut.pieces.size();
            const CGRect r = isScreen ? cut.screen : cut.pieces[i];
            for (const double edge : {r.minX(), r.minY(), r.maxX(), r.maxY()}) ASSERT_EQ(edge, std::floor(edge));
            ASSERT_TRUE(r.minX() >= whole.area.minX() && r.maxX() <= whole.area.maxX() &&
                        r.minY() >= whole.area.minY() && r.maxY() <= whole.area.maxY());
            const std::optional<Drawn> piece = isScreen ? std::nullopt : std::optional(Drawn(c.device, r));
            for (double y = r.minY(); y < r.maxY(); ++y)
                for (double x = r.minX(); x < r.maxX(); ++x) {
                    ++count[std::size_t((y - whole.area.minY()) * whole.area.width() + x - whole.area.minX())];
                    const CGPoint centre{x + 0.5, y + 0.5};
                    if (piece) {
                        ASSERT_LE(testing::channelError(piece->at(centre), whole.at(centre)), 1) << x << ", " << y;
                    }
                }
        }
        EXPECT_TRUE(std::all_of(count.begin(), count.end(), [](int n) { return n == 1; }));
    }
}

TEST(DeviceFrameDrawing, NothingToDrawWithoutASoundDeviceOrPiece) {
    for (const DeviceGeometry& d : {device(DeviceFrame::none, 100, 100), device(DeviceFrame::iPhone, 0, 100),
                                    device(DeviceFrame::iPhone, 100, nan), device(DeviceFrame::browser, 100, 100, 0),
                                    device(DeviceFrame::macBook, std::numeric_limits<double>::infinity(), 100)}) {
        EXPECT_TRUE(framePieces(d).pieces.empty()) << d.width << " x " << d.height;
        EXPECT_FALSE(DeviceFrameDrawing::island(d));
        EXPECT_EQ(testing::maxErrorFrom(DeviceFrameDrawing::rasterizePiece(d, rect(-50, -50, 200, 200)), clear), 0);
    }
    const DeviceGeometry phone = device(DeviceFrame::iPhone, 100, 200);
    for (const CGRect& piece : {rect(0, 0, 0, 10), rect(nan, 0, 10, 10), rect(0, 0, 10, -0.0)})
        EXPECT_EQ(DeviceFrameDrawing::rasterizePiece(phone, piece).width(), 0);
    EXPECT_THROW(DeviceFrameDrawing::rasterizePiece(phone, rect(0, 0, 40000, 10)), RenderFailure);
}

} // namespace
} // namespace ovik
