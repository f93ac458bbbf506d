#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CompositorSamples.h"
#include "OvikCompositor/CanvasSession.h"
#include "OvikCompositor/RenderError.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/image/RenderContext.h"
#include "OvikPlatform/image/RenderDestination.h"
#include "OvikPlatform/media/PictureDifference.h"

namespace ovik {
namespace {

using testing::halves;
using testing::Package;
using testing::pixelAt;
using testing::RGBA;

const RGBA red{255, 0, 0, 255}, green{0, 255, 0, 255};

// A 20 × 10 screenshot, red then green, with 5 pixels of slate (0.2, 0.4, 0.6) round it: a
// 30 × 20 canvas.
Draft paddedShot(const char* path = "media/shot.png") {
    Draft draft = testing::screenshotDraft({20, 10}, path);
    draft.style.background = Background::makeSolid(ovik::RGBA{0.2, 0.4, 0.6, 1});
    draft.style.padding = 5;
    draft.style.cornerRadius = 0;
    draft.style.shadow = 0;
    return draft;
}

// The worst difference from what the padded screenshot shows, for a picture of it whose top
// left pixel is canvas pixel (left, top).
int errorFromExpected(const CGImage& image, std::int64_t left, std::int64_t top) {
    int worst = 0;
    for (std::int64_t y = 0; y < image.height(); ++y)
        for (std::int64_t x = 0; x < image.width(); ++x) {
            const std::int64_t cx = left + x, cy = top + y;
            const bool padding = cx < 5 || cx >= 25 || cy < 5 || cy >= 15;
            const RGBA expected = padding ? RGBA{51, 102, 153, 255} : cx < 15 ? red : green;
            worst = std::max(worst, testing::channelError(pixelAt(image, x, y), expected));
        }
    return worst;
}

CGImage canvas(CanvasSession& session, const Draft& draft) {
    const PixelSize size = CanvasSession::layout(draft).pixelSize(1, false);
    return FrameGraph::context().createCGImage(session.render(draft, 1, std::nullopt),
                                               CGRect{{0, 0}, {double(size.width), double(size.height)}});
}

struct Shot : Package {
    explicit Shot(const std::string& name) : Package(name) { write("media/shot.png", PNGCodec::encode(halves(20, 10))); }
};

TEST(CanvasSession, RendersTheCanvasAndDrawsItIntoRows) {
    const Shot package("session-render");
    CanvasSession session(DraftDocument{paddedShot(), package.root});
    const CGImage image = canvas(session, paddedShot());
    ASSERT_EQ(image.width(), 30);
    ASSERT_EQ(image.height(), 20);
    EXPECT_LE(errorFromExpected(image, 0, 0), 1);
    // 12 × 10 pixels in rows of 56 bytes from the picture point (18.7, 0): whole pixels from
    // x 18, and the top row is canvas row 10 from the top.
    std::vector<std::uint8_t> rows(56 * 10, 0xEE);
    const FrameRenderInfo info =
        session.draw(paddedShot(), 1, std::nullopt, RenderDestination(rows.data(), 12, 10, 56), CGPoint{18.7, 0});
    EXPECT_EQ(info.path, RenderPath::other);
    EXPECT_EQ(rows[48], 0xEE) << "the row's padding is the caller's";
    EXPECT_LE(errorFromExpected(CGImage(12, 10, 56, rows), 18, 10), 1);
    // A frozen screenshot stands in for its file.
    CanvasSession frozen(DraftDocument{paddedShot("media/gone.png"), package.root},
                         ImageBox{std::make_shared<const CGImage>(halves(20, 10))});
    EXPECT_LE(errorFromExpected(canvas(frozen, paddedShot("media/gone.png")), 0, 0), 1);
}

TEST(CanvasSession, AfterAMoveThePackageIsReadFromItsNewPlace) {
    const Shot from("session-from");
    const Package to("session-to");
    CanvasSession session(DraftDocument{paddedShot(), from.root});
    std::filesystem::remove_all(to.root);
    std::filesystem::rename(from.root, to.root);
    // The background's picture exists only in the moved package. As wide as the canvas and
    // taller, it covers it unscaled: red on the left, green on the right.
    to.write("media/wall.png", PNGCodec::encode(halves(30, 60)));
    Draft walled = paddedShot();
    walled.style.background = Background{{}, Background::image{PackagePath{"media/wall.png"}}};
    EXPECT_EQ(pixelAt(canvas(session, walled), 28, 1)[3], 0) << "read from where the package was";
    session.relocate(to.root);
    const CGImage moved = canvas(session, walled);
    EXPECT_LE(testing::channelError(pixelAt(moved, 28, 1), green), 1);
    EXPECT_LE(testing::channelError(pixelAt(moved, 10, 10), red), 1); // the screenshot, read before
}

TEST(CanvasSession, APackageWithoutItsScreenshotIsUnreadable) {
    const Package package("session-missing");
    EXPECT_THAT([&] { CanvasSession(DraftDocument{paddedShot(), package.root}); }, testing::throwsUnreadable());
}

TEST(CanvasSession, PreparedOncePerDraftValueAndWatermark) {
    const Shot package("session-prepared");
    CanvasSession session(DraftDocument{paddedShot(), package.root});
    const auto first = session.prepared(paddedShot());
    Draft edited = paddedShot();
    edited.style.padding = 6;
    EXPECT_NE(session.prepared(edited), first);
    EXPECT_EQ(session.prepared(paddedShot()), first);
    session.setWatermark(Watermark::madeWithOvik());
    EXPECT_EQ(session.prepared(paddedShot())->options.watermark, Watermark::madeWithOvik());
    EXPECT_FALSE(first->options.watermark);
}

} // namespace
} // namespace ovik
