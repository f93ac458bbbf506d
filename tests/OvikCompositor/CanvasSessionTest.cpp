#include <gtest/gtest.h>

#include <functional>

#include "CompositorSamples.h"
#include "OvikCompositor/CanvasSession.h"
#include "OvikCompositor/RenderError.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/image/RenderContext.h"
#include "OvikPlatform/image/RenderDestination.h"
#include "OvikPlatform/media/PictureDifference.h"

namespace ovik {
namespace {

namespace fs = std::filesystem;
using testing::halves;
using testing::Package;
using testing::pixelAt;
using testing::RGBA;

const RGBA red{255, 0, 0, 255}, green{0, 255, 0, 255};
// 0.2, 0.4 and 0.6 of 255.
const RGBA slate{51, 102, 153, 255};

// A 20 × 10 screenshot, red then green, with 5 pixels of slate round it: a 30 × 20 canvas.
Draft paddedShot() {
    Draft draft = testing::screenshotDraft({20, 10});
    draft.style.background = Background::makeSolid(ovik::RGBA{0.2, 0.4, 0.6, 1});
    draft.style.padding = 5;
    draft.style.cornerRadius = 0;
    draft.style.shadow = 0;
    return draft;
}

// What the padded screenshot shows at canvas pixel (x, y), y from the top.
RGBA expectedAt(std::int64_t x, std::int64_t y) {
    if (x < 5 || x >= 25 || y < 5 || y >= 15) return slate;
    return x - 5 < 10 ? red : green;
}

int errorFromExpected(const CGImage& image, std::int64_t left, std::int64_t top) {
    int worst = 0;
    for (std::int64_t y = 0; y < image.height(); ++y)
        for (std::int64_t x = 0; x < image.width(); ++x)
            worst = std::max(worst, testing::channelError(pixelAt(image, x, y), expectedAt(left + x, top + y)));
    return worst;
}

CGImage canvas(CanvasSession& session, const Draft& draft) {
    const PixelSize size = CanvasSession::layout(draft).pixelSize(1, false);
    return FrameGraph::context().createCGImage(session.render(draft, 1, std::nullopt),
                                               CGRect{{0, 0}, {double(size.width), double(size.height)}});
}

ImageBox box(CGImage image) { return ImageBox{std::make_shared<const CGImage>(std::move(image))}; }

void expectUnreadable(const std::function<void()>& run, const char* what) {
    try {
        run();
        ADD_FAILURE() << what << ": nothing was thrown";
    } catch (const RenderFailure& failure) {
        EXPECT_TRUE(failure.error().is<RenderError::sourceUnreadable>()) << what << ": " << failure.what();
    }
}

struct Shot : Package {
    explicit Shot(const std::string& name) : Package(name) {
        write("media/shot.png", PNGCodec::encode(halves(20, 10)));
    }
};

TEST(CanvasSession, RendersTheScreenshotInsideItsBackgroundAndDrawsItIntoRows) {
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
}

TEST(CanvasSession, AFrozenScreenshotStandsInForItsFile) {
    const Package package("session-frozen");
    CanvasSession session(DraftDocument{paddedShot(), package.root}, box(halves(20, 10)));
    EXPECT_LE(errorFromExpected(canvas(session, paddedShot()), 0, 0), 1);
}

TEST(CanvasSession, AfterAMoveThePackageIsReadFromItsNewPlace) {
    const Shot from("session-from");
    const Package to("session-to");
    CanvasSession session(DraftDocument{paddedShot(), from.root});
    fs::remove_all(to.root);
    fs::rename(from.root, to.root);
    // The background's picture exists only in the moved package. As wide as the canvas and
    // taller, it covers it unscaled.
    std::vector<std::uint8_t> yellow(30 * 60 * 4);
    for (std::size_t i = 0; i < yellow.size(); i += 4) yellow[i] = yellow[i + 1] = yellow[i + 3] = 255;
    to.write("media/wall.png", PNGCodec::encode(CGImage(30, 60, 120, yellow)));
    Draft walled = paddedShot();
    walled.style.background = Background{{}, Background::image{PackagePath{"media/wall.png"}}};

    EXPECT_EQ(pixelAt(canvas(session, walled), 1, 1)[3], 0) << "read from where the package was";
    session.relocate(to.root);
    const CGImage moved = canvas(session, walled);
    EXPECT_LE(testing::channelError(pixelAt(moved, 1, 1), RGBA{255, 255, 0, 255}), 1);
    EXPECT_LE(testing::channelError(pixelAt(moved, 10, 10), red), 1);
}

TEST(CanvasSession, AMissingScreenshotIsUnreadableAndNothingIsWritten) {
    const Shot package("session-missing");
    const std::set<std::string> before = package.listing();
    expectUnreadable(
        [&] { const CanvasSession nowhere(DraftDocument{paddedShot(), package.root / "elsewhere"}); },
        "a session of a package that isn't there");

    CanvasSession session(DraftDocument{paddedShot(), package.root});
    Draft gone = paddedShot();
    std::vector<Media> media = gone.media.items();
    media[0].source =
        MediaSource::makeScreenshot(Screenshot{PackagePath{"media/gone.png"}, {20, 10}, 1, "sRGB", {}, {}});
    gone.media = CowList<Media>(media);
    expectUnreadable([&] { session.render(gone, 1, std::nullopt); }, "a missing screenshot");
    EXPECT_EQ(package.listing(), before);
}

TEST(CanvasSession, PreparedOncePerDraftValueAndWatermark) {
    const Shot package("session-prepared");
    CanvasSession session(DraftDocument{paddedShot(), package.root});
    const auto first = session.prepared(paddedShot());
    Draft edited = paddedShot();
    edited.style.padding = 6;
    EXPECT_NE(session.prepared(edited), first);
    EXPECT_EQ(session.prepared(paddedShot()), first);
    const Watermark mark = Watermark::madeWithOvik();
    session.setWatermark(mark);
    EXPECT_EQ(session.watermark(), mark);
    EXPECT_EQ(session.prepared(paddedShot())->options.watermark, mark);
    EXPECT_FALSE(first->options.watermark);
}

} // namespace
} // namespace ovik
