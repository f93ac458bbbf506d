#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "OvikL10n/L10n.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/files/TemporaryFolder.h"
#include "OvikPlatform/media/FFmpegTool.h"
#include "OvikPlatform/media/PictureDifference.h"
#include "RunCommand.h"

namespace ovik::testing {
namespace {

namespace fs = std::filesystem;

const fs::path recording = fs::path(OVIK_EXAMPLES) / "recording.ovikwork";

using RenderCommands = TemporaryFolder;
CGImage pngAt(const fs::path& path) { return PNGCodec::decode(fileBytes(path)); }

TEST_F(RenderCommands, StillsAtTwoMomentsAndAFilmstripOfTheRecording) {
    const fs::path first = folder / "a.png", later = folder / "b.png", strip = folder / "strip.png";
    const std::string package = recording.string();
    for (const auto& [at, out] : {std::pair{"0", first}, std::pair{"3000000", later}})
        ASSERT_EQ(runOvik({"render", package, "--at", at, "--size", "640", "--output", out.string()}).status, 0);
    const CGImage a = pngAt(first), b = pngAt(later);
    EXPECT_EQ(std::max(a.width(), a.height()), 640);
    // The pattern moves, while the background round the card stays.
    EXPECT_LT(psnr(a, b), 40);
    EXPECT_EQ(channelError(pixelAt(a, 2, 2), pixelAt(b, 2, 2)), 0);
    // The capture alone, four frames of 160 × 90.
    ASSERT_EQ(runOvik({"filmstrip", package, "--count", "4", "--height", "90", "--output", strip.string()}).status, 0);
    const CGImage frames = pngAt(strip);
    EXPECT_EQ((std::pair{frames.width(), frames.height()}), (std::pair{4L * 160, 90L}));
}

// Broken media is a clear error naming the file by its place in the package, never the decoder's
// or the system's text, and nothing is written; a file browser asking for the thumbnail gets the
// one answer it knows, "unreadable", with the cause under it.
TEST_F(RenderCommands, BadMediaIsAClearErrorAndNothingIsWritten) {
    const L10n::LanguageOverride english("en");
    const auto unreadable = [](const char* key) {
        return L10n::format("compositor.error.sourceUnreadable", {L10n::format(key, {"media/screenshot.png"})}) + "\n";
    };
    const struct {
        const char* what;
        const char* package;
        std::function<void(const fs::path& media)> damage;
        std::string words; // the whole text, or only its start when empty
    } cases[] = {
        {"a damaged picture", "picture.ovikwork", [](const fs::path& p) { writeText(p, "junk"); }, unreadable("compositor.source.damaged")},
        {"a missing picture", "picture.ovikwork", [](const fs::path& p) { fs::remove(p); }, unreadable("compositor.source.missing")},
        {"a truncated movie", "recording.ovikwork", [](const fs::path& movie) { fs::resize_file(movie, 2000); }, ""},
        {"a photo beyond the limits", "photo.ovikwork",
         [](const fs::path& photo) {
             // A PNG header of 40000 by 40000 pixels under the photo's name.
             std::ofstream(photo, std::ios::binary)
                 << std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\x9c\x40\0\0\x9c\x40\x08\x06\0\0\0\0\0\0\0", 33);
         }, ""},
    };
    for (const auto& c : cases) {
        const fs::path package = folder / c.what / c.package, out = folder / "out.png";
        fs::create_directories(package.parent_path());
        fs::copy(fs::path(OVIK_EXAMPLES) / c.package, package, fs::copy_options::recursive);
        c.damage(fs::directory_iterator(package / "media")->path());
        const CommandResult rendered =
            runOvik({"render", package.string(), "--at", "1000000", "--output", out.string()}, {"OVIK_LANGUAGE=en"});
        EXPECT_EQ(rendered.status, 1) << c.what;
        if (c.words.empty()) EXPECT_EQ(rendered.err.rfind("A picture or movie of the draft can't be read: “media/", 0), 0u) << rendered.err;
        else EXPECT_EQ(rendered.err, c.words);
        const CommandResult thumbnail =
            runOvik({"thumbnail", package.string(), "--size", "256", "--output", out.string()}, {"OVIK_LANGUAGE=en"});
        EXPECT_EQ(thumbnail.status, 1) << c.what;
        EXPECT_EQ(thumbnail.err.rfind("This draft can't be read.\n", 0), 0u) << c.what; // then the cause
        EXPECT_FALSE(fs::exists(out)) << c.what;
    }
}

// A recording whose movie was cut off (its index whole, its frames ending early) renders the
// moments it still holds, and a moment past its end is an error, never the last frame again.

TEST_F(RenderCommands, AMomentPastWhereTheMovieStopsIsAnErrorAndNothingIsWritten) {
    const fs::path package = folder / "recording.ovikwork", out = folder / "out.png";
    fs::copy(fs::path(OVIK_EXAMPLES) / "recording.ovikwork", package, fs::copy_options::recursive);
    const fs::path movie = fs::directory_iterator(package / "media")->path(), whole = folder / "whole.mov";
    // The index moved to the front, so that the movie still opens once its tail is gone.
    ASSERT_TRUE(runFFmpeg("-i '" + movie.string() + "' -c copy -movflags +faststart '" + whole.string() + "'"));
    fs::copy_file(whole, movie, fs::copy_options::overwrite_existing);
    const auto render = [&](const char* at) {
        return runOvik({"render", package.string(), "--at", at, "--output", out.string()}, {"OVIK_LANGUAGE=en"});
    };
    // Whole, its last frame shows up to the film's last microsecond.
    ASSERT_EQ(render("3999999").status, 0);

    fs::resize_file(movie, fs::file_size(movie) * 4 / 10);
    ASSERT_EQ(render("500000").status, 0);
    fs::remove(out);
    const CommandResult past = render("3500000");
    EXPECT_EQ(past.status, 1);
    EXPECT_EQ(past.err, "A picture or movie of the draft can't be read: media/" + movie.filename().string() +
                            " ends before this moment: the movie is cut off\n");
    EXPECT_FALSE(fs::exists(out));
}

const fs::path examples = OVIK_EXAMPLES;
constexpr std::int64_t memoryCap = std::int64_t(160) << 20;

// The kept thumbnails of the example package replaced by one PNG of 8000 × 8000 pixels, 256 MB
// when decoded whole. A 1000-pixel thumbnail may show it (64 times the square of its side) and
// decodes it row by row, reduced; a 256-pixel one refuses it from its header, as the file of a
// thumbnail that can't be read.
TEST_F(RenderCommands, KeptRendersAreDecodedAtTheSizeAskedOrRefusedFromTheHeader) {
    const fs::path package = folder / "kept.ovikwork", large = folder / "large.png", out = folder / "out.png";
    fs::copy(examples / "kept.ovikwork", package, fs::copy_options::recursive);
    ASSERT_TRUE(runFFmpeg("-f lavfi -i testsrc2=s=8000x8000 -frames:v 1 " + large.string()));
    for (const auto& entry : fs::recursive_directory_iterator(package))
        if (entry.path().extension() == ".png" && entry.path().filename().string().starts_with("thumbnail-"))
            fs::copy_file(large, entry.path(), fs::copy_options::overwrite_existing);
    const CommandResult shown = runOvik({"thumbnail", package.string(), "--size", "1000", "--output", out.string()});
    ASSERT_EQ(shown.status, 0);
    EXPECT_EQ((std::pair{pngAt(out).width(), pngAt(out).height()}), (std::pair{1000L, 1000L}));
    EXPECT_LT(shown.peakBytes, memoryCap);
    fs::remove(out);
    EXPECT_EQ(runOvik({"thumbnail", package.string(), "--size", "256", "--output", out.string()}).status, 1);
    EXPECT_FALSE(fs::exists(out));
}

// The screenshot of a draft replaced by a picture of the largest screen, 7680 × 4320 (132 MB
// whole): a still of 500 pixels decodes it reduced. A picture of 8000 × 8000 is more than a
// 256-pixel thumbnail may decode, and the composing fails from its header.
TEST_F(RenderCommands, DraftPicturesAreDecodedForTheStillOrRefusedFromTheHeader) {
    const fs::path package = folder / "picture.ovikwork";
    fs::copy(examples / "picture.ovikwork", package, fs::copy_options::recursive);
    const fs::path shot = package / "media/screenshot.png", out = folder / "out.png";
    ASSERT_TRUE(runFFmpeg("-f lavfi -i testsrc2=s=7680x4320 -frames:v 1 " + shot.string()));
    const CommandResult drawn = runOvik({"render", package.string(), "--size", "500", "--output", out.string()});
    ASSERT_EQ(drawn.status, 0);
    EXPECT_EQ(pngAt(out).width(), 500);
    EXPECT_LT(drawn.peakBytes, memoryCap);
    fs::remove(out);
    ASSERT_TRUE(runFFmpeg("-f lavfi -i color=c=red:s=8000x8000 -frames:v 1 " + shot.string()));
    EXPECT_EQ(runOvik({"thumbnail", package.string(), "--size", "256", "--output", out.string()}).status, 1);
    EXPECT_FALSE(fs::exists(out));
}

} // namespace
} // namespace ovik::testing
