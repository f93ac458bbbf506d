#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "CompositorSamples.h"
#include "OvikCompositor/LiveRendering.h"
#include "OvikCompositor/RenderError.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/image/CGImage.h"
#include "OvikPlatform/image/RenderContext.h"
#include "OvikPlatform/image/SRGBTransfer.h"
#include "OvikPlatform/media/FFmpegTool.h"
#include "OvikPlatform/media/PictureDifference.h"

namespace ovik {
namespace {

namespace fs = std::filesystem;
using testing::canvasDraft;
using testing::halves;
using testing::oneMedia;
using testing::Package;
using testing::pixelAt;

const testing::RGBA blue{0, 0, 255, 255}, red{255, 0, 0, 255}, green{0, 255, 0, 255};

CGImage still(const Draft& draft, const fs::path& root, std::optional<std::int64_t> at = std::nullopt,
              std::optional<std::int64_t> size = std::nullopt) {
    LiveRendering rendering;
    const auto moment = at ? std::optional(OutputTime{*at}) : std::nullopt;
    return *rendering.still(DraftDocument{draft, root}, moment, size).cgImage;
}

TEST(FrameGraph, TheLayersOfACard) {
    const Package package("layers");
    struct Case {
        const char* what;
        double corner;
        double shadow;
        std::int64_t x, y;
        testing::RGBA expected;
    };
    const Case cases[] = {
        {"background round the card", 0, 0, 5, 5, blue},
        {"the card's middle", 0, 0, 60, 35, red},
        {"the card's first pixel", 0, 0, 10, 10, red},
        {"the pixel before it", 0, 0, 9, 9, blue},
        {"outside a round corner", 20, 0, 11, 11, blue},
        {"inside a round corner", 20, 0, 60, 12, red},
        {"no shadow at strength 0", 0, 0, 60, 65, blue},
    };
    for (const Case& c : cases) {
        Draft draft = canvasDraft(RGBA{1, 0, 0, 1});
        draft.style.background = Background::makeSolid(RGBA{0, 0, 1, 1});
        draft.style.padding = 10;
        draft.style.cornerRadius = c.corner;
        draft.style.shadow = c.shadow;
        const CGImage image = still(draft, package.root);
        ASSERT_EQ(image.width(), 120) << c.what;
        ASSERT_EQ(image.height(), 70) << c.what;
        EXPECT_LE(testing::channelError(pixelAt(image, c.x, c.y), c.expected), 1) << c.what;
    }
}

TEST(FrameGraph, AShadowDarkensBelowTheCardAndStopsGrowingAt100) {
    const Package package("shadow");
    const auto withShadow = [&](double strength) {
        Draft draft = canvasDraft(RGBA{1, 0, 0, 1});
        draft.style.background = Background::makeSolid(RGBA{0, 0, 1, 1});
        draft.style.padding = 40;
        draft.style.shadow = strength;
        return still(draft, package.root);
    };
    const CGImage strong = withShadow(100);
    // 12 pixels down, the shadow's offset, just below the card.
    EXPECT_LT(pixelAt(strong, 90, 95)[2], 230);
    EXPECT_EQ(pixelAt(strong, 90, 95)[3], 255);
    EXPECT_EQ(testing::psnr(strong, withShadow(200)), std::numeric_limits<double>::infinity());
    EXPECT_GT(pixelAt(withShadow(20), 90, 95)[2], pixelAt(strong, 90, 95)[2]);
}

// The shadow of a square-cornered card is a box blurred by a Gaussian: the product of two
// differences of the normal distribution, darkening the background by its opacity.
TEST(FrameGraph, AShadowFollowsTheBlurredBoxOfTheCard) {
    const Package package("shadow-box");
    Draft draft = canvasDraft(RGBA{1, 0, 0, 1});
    draft.style.background = Background::makeSolid(RGBA{0, 0, 1, 1});
    draft.style.padding = 40;
    draft.style.shadow = 100;
    const CGImage image = still(draft, package.root);
    ASSERT_EQ(image.height(), 130);
    // Strength 100 at one pixel a point: sigma 24, 12 pixels down, opacity 0.65.
    const double sigma = 24, opacity = 0.65;
    const auto phi = [&](double t) { return 0.5 * std::erfc(-t / (sigma * std::sqrt(2.0))); };
    const auto expectedBlue = [&](double x, double y) { // pixel centre, y up
        const double a = opacity * (phi(x - 40) - phi(x - 140)) * (phi(y - 28) - phi(y - 78));
        return 255 * SRGBTransfer::toEncoded(1 - a);
    };
    const struct {
        std::int64_t x, yUp;
    } points[] = {{90, 20}, {90, 35}, {30, 60}, {150, 30}, {145, 10}, {10, 120}};
    for (const auto& p : points)
        EXPECT_NEAR(pixelAt(image, p.x, 129 - p.yUp)[2], expectedBlue(p.x + 0.5, p.yUp + 0.5), 2)
            << p.x << ", " << p.yUp;
}

TEST(FrameGraph, ABrowserWindowFramesTheCard) {
    const Package package("browser");
    Draft draft = canvasDraft(RGBA{1, 0, 0, 1});
    draft.style.deviceFrame = DeviceFrame::browser;
    draft.style.cornerRadius = 10;
    const CGImage image = still(draft, package.root);
    // The bar's 40 pixels stand above the content.
    ASSERT_EQ(image.height(), 90);
    const testing::RGBA bar = pixelAt(image, 50, 20);
    EXPECT_GE(bar[0], 225);
    EXPECT_EQ(bar[0], bar[1]);
    // Under the bar the content's corners stay square; below they round.
    EXPECT_LE(testing::channelError(pixelAt(image, 0, 40), red), 1);
    EXPECT_EQ(pixelAt(image, 0, 89)[3], 0);
}

TEST(FrameGraph, AGradientMixesInLinearLight) {
    const Package package("gradient");
    Draft draft = canvasDraft(RGBA{}, true);
    Canvas wide;
    wide.pixelSize = {1000, 10};
    wide.isTransparent = true;
    std::vector<Media> media = draft.media.items();
    media[0].source = MediaSource::makeCanvas(wide);
    draft.media = CowList<Media>(media);
    draft.style.background = Background::makeGradient({RGBA{0, 0, 0, 1}, RGBA{1, 1, 1, 1}, 0});
    const CGImage image = still(draft, package.root);
    EXPECT_LE(pixelAt(image, 0, 5)[0], 3);
    EXPECT_GE(pixelAt(image, 999, 5)[0], 252);
    // Half way in linear light is 0.7354 in sRGB.
    EXPECT_NEAR(pixelAt(image, 500, 5)[0], 188, 1);
}

TEST(FrameGraph, ACropShowsItsPartOfTheScreenshot) {
    const Package package("crop");
    package.write("media/shot.png", PNGCodec::encode(halves(40, 20)));
    Draft draft = testing::screenshotDraft({40, 20});
    std::vector<Media> media = draft.media.items();
    media[0].crop = CGRect{{20, 0}, {20, 20}};
    draft.media = CowList<Media>(media);
    const CGImage image = still(draft, package.root);
    ASSERT_EQ(image.width(), 20);
    EXPECT_LE(testing::maxErrorFrom(image, green), 1);
}

TEST(FrameGraph, StillsFitWithoutEnlarging) {
    const Package package("fit");
    const Draft draft = canvasDraft(RGBA{1, 0, 0, 1});
    EXPECT_EQ(still(draft, package.root, std::nullopt, 40).width(), 40);
    EXPECT_EQ(still(draft, package.root, std::nullopt, 40).height(), 20);
    EXPECT_EQ(still(draft, package.root, std::nullopt, 5000).width(), 100);
    LiveRendering rendering;
    const DraftDocument document{draft, package.root};
    EXPECT_EQ(rendering.still(document, std::nullopt, 64).cgImage, rendering.still(document, std::nullopt, 64).cgImage);
}

TEST(FrameGraph, UnreadablePictures) {
    const Package package("unreadable");
    package.write("media/shot.png", "not a picture");
    const Draft broken = testing::screenshotDraft({40, 20});
    try {
        still(broken, package.root);
        ADD_FAILURE() << "an unreadable screenshot was drawn";
    } catch (const RenderFailure& failure) {
        EXPECT_TRUE(failure.error().is<RenderError::sourceUnreadable>());
    }
    // A background picture that can't be read leaves the background clear.
    Draft missing = canvasDraft(RGBA{1, 0, 0, 1});
    missing.style.background = Background{{}, Background::image{PackagePath{"media/nowhere.png"}}};
    missing.style.padding = 10;
    EXPECT_EQ(pixelAt(still(missing, package.root), 2, 2)[3], 0);
}

// One second of red, then one of blue.
Draft recordingDraft(const Package& package) {
    EXPECT_TRUE(testing::runFFmpeg("-f lavfi -i color=red:s=64x48:r=30:d=1 -f lavfi -i color=blue:s=64x48:r=30:d=1 "
                                   "-filter_complex concat=n=2:v=1 -c:v libx264 -pix_fmt yuv420p -g 15 " +
                                   (package.root / "media/movie.mp4").string()));
    Recording recording;
    Segment segment;
    segment.movie = PackagePath{"media/movie.mp4"};
    segment.duration = MediaDuration::fromSeconds(2);
    recording.segments = {segment};
    recording.pixelSize = {64, 48};
    recording.frameRate = 30;
    Draft draft = oneMedia(MediaSource::makeRecording(recording));
    KeptStretch whole;
    whole.range = SourceRange{SourceTime{0}, SourceTime{2'000'000}};
    std::vector<Section> sections = draft.sections.items();
    sections[0].length = Section::Length::makeKept({whole});
    draft.sections = CowList<Section>(sections);
    return draft;
}

TEST(FrameGraph, ARecordingShowsTheFrameOfTheMoment) {
    const Package package("recording");
    const Draft draft = recordingDraft(package);
    const struct {
        std::optional<std::int64_t> at;
        testing::RGBA expected;
    } cases[] = {{500'000, red}, {1'500'000, blue}, {std::nullopt, red}};
    for (const auto& c : cases) {
        const CGImage image = still(draft, package.root, c.at);
        ASSERT_EQ(image.width(), 64);
        EXPECT_LE(testing::channelError(pixelAt(image, 32, 24), c.expected), 8) << (c.at ? *c.at : -1);
    }
}

// A frame read at the size it is drawn, a fraction of a pixel larger than its card, keeps its
// columns: it is moved into place, not resampled.
TEST(FrameGraph, AFrameReadAtItsCardSizeIsNotResampled) {
    const Package package("placed");
    const Draft draft = recordingDraft(package);
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

TEST(FrameGraph, ABrokenMovieIsUnreadableNotAHang) {
    const Package package("broken");
    const Draft draft = recordingDraft(package);
    package.write("media/movie.mp4", std::string(4096, '\x42'));
    try {
        still(draft, package.root, 500'000);
        ADD_FAILURE() << "a broken movie was drawn";
    } catch (const RenderFailure& failure) {
        EXPECT_TRUE(failure.error().is<RenderError::sourceUnreadable>()) << failure.what();
    }
}

TEST(FrameGraph, AFilmstripTakesEvenlySpacedFrames) {
    const Package package("filmstrip");
    Draft draft = recordingDraft(package);
    draft.style.padding = 50;
    LiveRendering rendering;
    const auto strip = rendering.filmstrip(DraftDocument{draft, package.root}, 4, 24);
    ASSERT_EQ(strip.size(), 4u);
    // The style is left out: each picture is the capture alone, 24 pixels high.
    EXPECT_EQ(strip[0].pixelSize(), (PixelSize{32, 24}));
    EXPECT_LE(testing::maxErrorFrom(*strip[1].cgImage, red), 8);
    EXPECT_LE(testing::maxErrorFrom(*strip[2].cgImage, blue), 8);
    // Each picture is a frame rendered on the still path.
    EXPECT_EQ(rendering.statistics().totals(RenderPath::still).frames, 4);
}

} // namespace
} // namespace ovik
