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
    EXPECT_EQ(pngAt(strip).width(), 4 * 160);
    EXPECT_EQ(pngAt(strip).height(), 90);
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

} // namespace
} // namespace ovik::testing
