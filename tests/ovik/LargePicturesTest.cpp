#include <gtest/gtest.h>

#include <filesystem>

#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/files/TemporaryFolder.h"
#include "OvikPlatform/media/FFmpegTool.h"
#include "RunCommand.h"

namespace ovik::testing {
namespace {

namespace fs = std::filesystem;
using LargePictures = TemporaryFolder;

const fs::path examples = OVIK_EXAMPLES;
constexpr std::int64_t memoryCap = std::int64_t(160) << 20;

// The kept thumbnails of the example package replaced by one PNG of 8000 × 8000 pixels, 256 MB
// when decoded whole. A 1000-pixel thumbnail may show it (64 times the square of its side) and
// decodes it row by row, reduced; a 256-pixel one refuses it from its header, as the file of a
// thumbnail that can't be read.
TEST_F(LargePictures, KeptRendersAreDecodedAtTheSizeAskedOrRefusedFromTheHeader) {
    const fs::path package = folder / "kept.ovikwork", large = folder / "large.png", out = folder / "out.png";
    fs::copy(examples / "kept.ovikwork", package, fs::copy_options::recursive);
    ASSERT_TRUE(runFFmpeg("-f lavfi -i testsrc2=s=8000x8000 -frames:v 1 " + large.string()));
    for (const auto& entry : fs::recursive_directory_iterator(package))
        if (entry.path().extension() == ".png" && entry.path().filename().string().starts_with("thumbnail-"))
            fs::copy_file(large, entry.path(), fs::copy_options::overwrite_existing);
    const CommandResult shown = runOvik({"thumbnail", package.string(), "--size", "1000", "--output", out.string()});
    ASSERT_EQ(shown.status, 0);
    const CGImage picture = PNGCodec::decode(fileBytes(out));
    EXPECT_EQ(picture.width(), 1000);
    EXPECT_EQ(picture.height(), 1000);
    EXPECT_LT(shown.peakBytes, memoryCap);
    fs::remove(out);
    EXPECT_EQ(runOvik({"thumbnail", package.string(), "--size", "256", "--output", out.string()}).status, 1);
    EXPECT_FALSE(fs::exists(out));
}

// The screenshot of a draft replaced by a picture of the largest screen, 7680 × 4320 (132 MB
// whole): a still of 500 pixels decodes it reduced. A picture of 8000 × 8000 is more than a
// 256-pixel thumbnail may decode, and the composing fails from its header.
TEST_F(LargePictures, DraftPicturesAreDecodedForTheStillOrRefusedFromTheHeader) {
    const fs::path package = folder / "picture.ovikwork";
    fs::copy(examples / "picture.ovikwork", package, fs::copy_options::recursive);
    const fs::path shot = package / "media/screenshot.png", out = folder / "out.png";
    ASSERT_TRUE(runFFmpeg("-f lavfi -i testsrc2=s=7680x4320 -frames:v 1 " + shot.string()));
    const CommandResult drawn = runOvik({"render", package.string(), "--size", "500", "--output", out.string()});
    ASSERT_EQ(drawn.status, 0);
    EXPECT_EQ(PNGCodec::decode(fileBytes(out)).width(), 500);
    EXPECT_LT(drawn.peakBytes, memoryCap);
    fs::remove(out);
    ASSERT_TRUE(runFFmpeg("-f lavfi -i color=c=red:s=8000x8000 -frames:v 1 " + shot.string()));
    EXPECT_EQ(runOvik({"thumbnail", package.string(), "--size", "256", "--output", out.string()}).status, 1);
    EXPECT_FALSE(fs::exists(out));
}

} // namespace
} // namespace ovik::testing
