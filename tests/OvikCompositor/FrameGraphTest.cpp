#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>

#include "CompositorSamples.h"
#include "OvikCompositor/LiveRendering.h"
#include "OvikCompositor/RenderError.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/image/RenderContext.h"
#include "OvikPlatform/image/SRGBTransfer.h"
#include "OvikPlatform/media/PictureDifference.h"

namespace ovik {
namespace {

using testing::canvasDraft;
using testing::Package;
using testing::pixelAt;
using testing::still;

const testing::RGBA blue{0, 0, 255, 255}, red{255, 0, 0, 255}, green{0, 255, 0, 255};

// A 100 × 50 red card on blue.
Draft card(double padding, double corner = 0, double shadow = 0) {
    Draft draft = canvasDraft(RGBA{1, 0, 0, 1});
    draft.style.background = Background::makeSolid(RGBA{0, 0, 1, 1});
    draft.style.padding = padding;
    draft.style.cornerRadius = corner;
    draft.style.shadow = shadow;
    return draft;
}

// The shadow of a square-cornered card is a box blurred by a Gaussian: the product of two
// differences of the normal distribution, darkening the background by its opacity.
TEST(FrameGraph, AShadowIsTheBlurredBoxOfTheCardAndStopsGrowingAt100) {
    const Package package("shadow");
    const CGImage image = still(card(40, 0, 100), package.root);
    ASSERT_EQ(image.height(), 130);
    EXPECT_EQ(testing::psnr(image, still(card(40, 0, 200), package.root)), std::numeric_limits<double>::infinity());
    // Strength 100 at one pixel a point: sigma 24, 12 pixels down, opacity 0.65.
    const double sigma = 24, opacity = 0.65;
    const auto phi = [&](double t) { return 0.5 * std::erfc(-t / (sigma * std::sqrt(2.0))); };
    const auto expectedBlue = [&](double x, double y) { // pixel centre, y up
        const double a = opacity * (phi(x - 40) - phi(x - 140)) * (phi(y - 28) - phi(y - 78));
        return 255 * SRGBTransfer::toEncoded(1 - a);
    };
    for (const auto& [x, yUp] : {std::pair{90, 20}, {90, 35}, {30, 60}, {150, 30}, {145, 10}, {10, 120}})
        EXPECT_NEAR(pixelAt(image, x, 129 - yUp)[2], expectedBlue(x + 0.5, yUp + 0.5), 2) << x << ", " << yUp;
}

TEST(FrameGraph, ACardsCornersRoundButNotUnderABrowsersBar) {
    const Package package("corners");
    const CGImage round = still(card(10, 20), package.root);
    EXPECT_LE(testing::channelError(pixelAt(round, 11, 11), blue), 1);
    EXPECT_LE(testing::channelError(pixelAt(round, 60, 12), red), 1);
    Draft draft = canvasDraft(RGBA{1, 0, 0, 1});
    draft.style.deviceFrame = DeviceFrame::browser;
    draft.style.cornerRadius = 10;
    const CGImage image = still(draft, package.root);
    // The bar's 40 pixels stand above the content, its grey half way down its gradient.
    ASSERT_EQ(image.height(), 90);
    EXPECT_LE(testing::channelError(pixelAt(image, 50, 20), {237, 237, 239, 255}), 2);
    EXPECT_LE(testing::channelError(pixelAt(image, 0, 40), red), 1);
    EXPECT_EQ(pixelAt(image, 0, 89)[3], 0);
}

TEST(FrameGraph, AGradientMixesInLinearLight) {
    const Package package("gradient");
    Canvas wide;
    wide.pixelSize = {1000, 10};
    wide.isTransparent = true;
    Draft draft = testing::oneMedia(MediaSource::makeCanvas(wide));
    draft.style.background = Background::makeGradient({RGBA{0, 0, 0, 1}, RGBA{1, 1, 1, 1}, 0});
    const CGImage image = still(draft, package.root);
    // Half way in linear light is 0.7354 in sRGB.
    for (const auto& [x, level] : {std::pair{0, 0}, {999, 255}, {500, 188}})
        EXPECT_NEAR(pixelAt(image, x, 5)[0], level, 3) << x;
}

TEST(FrameGraph, ACropShowsItsPartOfTheScreenshot) {
    const Package package("crop");
    // Yellow, green over red, black: the crop is the top right quarter.
    std::vector<std::uint8_t> bytes;
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 40; ++x)
            bytes.insert(bytes.end(), {std::uint8_t(x < 20 ? 255 : 0), std::uint8_t(y < 10 ? 255 : 0), 0, 255});
    package.write("media/shot.png", PNGCodec::encode(CGImage(40, 20, 160, bytes)));
    Draft draft = testing::screenshotDraft({40, 20});
    draft.media.mutableItems()[0].crop = CGRect{{20, 0}, {20, 10}};
    const CGImage image = still(draft, package.root);
    ASSERT_EQ(image.width(), 20);
    EXPECT_LE(testing::maxErrorFrom(image, green), 1);
}

TEST(FrameGraph, UnreadableSourcesAreTypedErrorsAndWriteNothing) {
    const Package package("unreadable");
    const Draft movie = testing::recordingDraft(package);
    package.write("media/movie.mp4", std::string(4096, '\x42'));
    package.write("media/shot.png", "not a picture");
    const std::set<std::string> before = package.listing();
    for (const Draft& draft : {movie, testing::screenshotDraft({40, 20}), testing::screenshotDraft({40, 20}, "gone.png")})
        EXPECT_THAT([&] { still(draft, package.root, 500'000); }, testing::throwsUnreadable());
    EXPECT_EQ(package.listing(), before);
    // A background picture that can't be read leaves the background clear.
    Draft missing = card(10);
    missing.style.background = Background{{}, Background::image{PackagePath{"media/nowhere.png"}}};
    EXPECT_EQ(pixelAt(still(missing, package.root), 2, 2)[3], 0);
}

TEST(FrameGraph, ARecordingShowsTheFrameOfTheMomentAndAFilmstripSpacesThem) {
    const Package package("recording");
    Draft draft = testing::recordingDraft(package);
    using At = std::optional<std::int64_t>;
    for (const auto& [at, expected] : {std::pair{At(500'000), red}, {At(1'500'000), blue}, {At(), red}}) {
        const CGImage image = still(draft, package.root, at);
        ASSERT_EQ(image.width(), 64);
        EXPECT_LE(testing::channelError(pixelAt(image, 32, 24), expected), 8) << at.value_or(-1);
    }
    draft.style.padding = 50;
    LiveRendering rendering;
    const auto strip = rendering.filmstrip(DraftDocument{draft, package.root}, 4, 24);
    ASSERT_EQ(strip.size(), 4u);
    // The style is left out: each picture is the capture alone, 24 pixels high.
    EXPECT_EQ(strip[0].pixelSize(), (PixelSize{32, 24}));
    EXPECT_LE(testing::maxErrorFrom(*strip[1].cgImage, red), 8);
    EXPECT_LE(testing::maxErrorFrom(*strip[2].cgImage, blue), 8);
    EXPECT_EQ(rendering.statistics().totals(RenderPath::still).frames, 4); // each a frame on the still path
}

// A frame read at the size it is drawn, a fraction of a pixel larger than its card, keeps its
// columns: it is moved into place, not resampled.
TEST(FrameGraph, AFrameReadAtItsCardSizeIsNotResampled) {
    const Package package("placed");
    const Draft draft = testing::recordingDraft(package);
    LiveRendering rendering;
    const PreparedDraft prepared = rendering.prepare(DraftDocument{draft, package.root});
    const double scale = 0.7; // the 64 × 48 capture becomes a card of 44.8 × 33.6
    const PixelSize size = prepared.layout.pixelSize(scale, false);
    std::vector<std::uint8_t> bytes(std::size_t(45 * 34 * 4), 255);
    for (std::size_t at = 0; at < bytes.size(); at += 8) bytes[at] = bytes[at + 1] = bytes[at + 2] = 0;
    const CGImage stripes(45, 34, 45 * 4, std::move(bytes));
    FrameMoment moment;
    const SectionID section = draft.sections[0].id;
    moment.sections = std::vector<SectionID>{section};
    moment.frames.emplace(section, Image::fromCGImage(std::make_shared<const CGImage>(stripes)));
    const CGImage image = FrameGraph::context().createCGImage(
        rendering.graph().render(prepared, moment, scale, size),
        CGRect{{0, 0}, {double(size.width), double(size.height)}});
    int worst = 0;
    for (std::int64_t y = 1; y < 33; ++y)
        for (std::int64_t x = 0; x < 44; ++x)
            worst = std::max(worst, testing::channelError(pixelAt(image, x, y), pixelAt(stripes, x, y)));
    EXPECT_LE(worst, 1);
}

} // namespace
} // namespace ovik
