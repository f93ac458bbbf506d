#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>

#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/files/TemporaryFolder.h"
#include "OvikPlatform/media/PictureDifference.h"
#include "RunCommand.h"

namespace ovik::testing {
namespace {

namespace fs = std::filesystem;

const fs::path examples = OVIK_EXAMPLES;

CGImage pngAt(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return PNGCodec::decode(std::string(std::istreambuf_iterator<char>(in), {}));
}

class RenderCommands : public TemporaryFolder {
protected:
    // A fresh copy of a sample package that a test may damage, and its one media file.
    std::pair<fs::path, fs::path> copyOf(const std::string& name, int n) {
        const fs::path copy = folder / std::to_string(n) / name;
        fs::create_directories(copy.parent_path());
        fs::copy(examples / name, copy, fs::copy_options::recursive);
        for (const auto& entry : fs::directory_iterator(copy / "media")) return {copy, entry.path()};
        return {copy, {}};
    }
};

TEST_F(RenderCommands, AStillOfTheRecordingAtTwoMoments) {
    const fs::path first = folder / "a.png", later = folder / "b.png";
    const fs::path package = examples / "recording.ovikwork";
    ASSERT_EQ(runOvik({"render", package.string(), "--at", "0", "--size", "640", "--output", first.string()}).status, 0);
    const CommandResult result =
        runOvik({"render", package.string(), "--at", "3000000", "--size", "640", "--output", later.string()});
    ASSERT_EQ(result.status, 0) << result.err;
    const CGImage a = pngAt(first), b = pngAt(later);
    EXPECT_EQ(std::max(a.width(), a.height()), 640);
    EXPECT_EQ(a.width(), b.width());
    // The pattern moves, while the background round the card stays.
    EXPECT_LT(psnr(a, b), 40);
    EXPECT_EQ(channelError(pixelAt(a, 2, 2), pixelAt(b, 2, 2)), 0);
}

TEST_F(RenderCommands, AFilmstripOfTheCaptureAlone) {
    const fs::path out = folder / "strip.png";
    const CommandResult result = runOvik({"filmstrip", (examples / "recording.ovikwork").string(), "--count", "4",
                                          "--height", "90", "--output", out.string()});
    ASSERT_EQ(result.status, 0) << result.err;
    const CGImage strip = pngAt(out);
    EXPECT_EQ(strip.height(), 90);
    EXPECT_EQ(strip.width(), 4 * 160);
}

TEST_F(RenderCommands, BadMediaIsAClearErrorAndNothingIsWritten) {
    struct Case {
        const char* what;
        const char* package;
        std::function<void(const fs::path& media)> damage;
    };
    const Case cases[] = {
        {"a missing movie", "recording.ovikwork", [](const fs::path& movie) { fs::remove(movie); }},
        {"a truncated movie", "recording.ovikwork", [](const fs::path& movie) { fs::resize_file(movie, 2000); }},
        {"an empty photo", "photo.ovikwork", [](const fs::path& photo) { fs::resize_file(photo, 0); }},
        {"a photo beyond the limits", "photo.ovikwork",
         [](const fs::path& photo) {
             // A PNG header of 40000 by 40000 pixels under the photo's name.
             std::ofstream(photo, std::ios::binary)
                 << std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\x9c\x40\0\0\x9c\x40\x08\x06\0\0\0\0\0\0\0", 33);
         }},
    };
    int n = 0;
    for (const Case& c : cases) {
        const auto [package, media] = copyOf(c.package, ++n);
        c.damage(media);
        const fs::path out = folder / "out.png";
        const CommandResult result =
            runOvik({"render", package.string(), "--at", "1000000", "--output", out.string()}, {"OVIK_LANGUAGE=en"});
        EXPECT_EQ(result.status, 1) << c.what;
        EXPECT_NE(result.err.find("can't be read"), std::string::npos) << c.what << ": " << result.err;
        EXPECT_FALSE(fs::exists(out)) << c.what;
    }
    const fs::path recording = examples / "recording.ovikwork";
    EXPECT_EQ(runOvik({"render", recording.string(), "--size", "0", "--output", (folder / "x.png").string()}).status, 2);
}

// A file browser asking for the thumbnail of a package whose media is broken gets the one
// answer it knows, "unreadable", and no file.
TEST_F(RenderCommands, ThumbnailsOfBadMediaAreUnreadable) {
    const auto [package, movie] = copyOf("recording.ovikwork", 1);
    fs::resize_file(movie, 2000);
    const fs::path out = folder / "t.png";
    const CommandResult result =
        runOvik({"thumbnail", package.string(), "--size", "256", "--output", out.string()}, {"OVIK_LANGUAGE=en"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "This draft can't be read.\n");
    EXPECT_FALSE(fs::exists(out));
}

} // namespace
} // namespace ovik::testing
