#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/files/TemporaryFolder.h"
#include "OvikPlatform/media/FFmpegTool.h"

namespace ovik::testing {
namespace {

namespace fs = std::filesystem;
using LargePictures = TemporaryFolder;

const fs::path examples = OVIK_EXAMPLES;

struct MeasuredRun {
    int status = -1;
    std::int64_t peakBytes = 0;
};

// `ovik` run with `arguments`, its peak memory from wait4.
MeasuredRun measuredOvik(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), OVIK_COMMAND);
    std::vector<char*> argv;
    for (std::string& argument : arguments) argv.push_back(argument.data());
    argv.push_back(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        const int null = ::open("/dev/null", O_RDWR);
        ::dup2(null, 0), ::dup2(null, 1), ::dup2(null, 2);
        ::execv(argv[0], argv.data());
        ::_exit(127);
    }
    int status = 0;
    rusage usage{};
    if (::wait4(child, &status, 0, &usage) != child || !WIFEXITED(status)) return {};
    return {WEXITSTATUS(status), std::int64_t(usage.ru_maxrss) * 1024};
}

// The kept thumbnails of the example package replaced by one PNG of 8000 × 8000 pixels, 256 MB
// when decoded whole. A 1000-pixel thumbnail may show it (64 times the square of its side) and
// decodes it row by row, reduced; a 256-pixel one refuses it from its header, as the file of a
// thumbnail that can't be read.
TEST_F(LargePictures, KeptRendersAreDecodedAtTheSizeAskedOrRefusedFromTheHeader) {
    const fs::path package = folder / "kept.ovikwork";
    fs::copy(examples / "kept.ovikwork", package, fs::copy_options::recursive);
    const fs::path large = folder / "large.png";
    ASSERT_TRUE(runFFmpeg("-f lavfi -i testsrc2=s=8000x8000 -frames:v 1 " + large.string()));
    for (const auto& entry : fs::recursive_directory_iterator(package))
        if (entry.path().extension() == ".png" && entry.path().filename().string().starts_with("thumbnail-"))
            fs::copy_file(large, entry.path(), fs::copy_options::overwrite_existing);
    const fs::path out = folder / "out.png";
    const MeasuredRun shown = measuredOvik({"thumbnail", package.string(), "--size", "1000", "--output", out.string()});
    ASSERT_EQ(shown.status, 0);
    const CGImage picture = PNGCodec::decode(fileBytes(out));
    EXPECT_EQ(picture.width(), 1000);
    EXPECT_EQ(picture.height(), 1000);
    EXPECT_LT(shown.peakBytes, std::int64_t(160) << 20);
    fs::remove(out);
    const MeasuredRun refused = measuredOvik({"thumbnail", package.string(), "--size", "256", "--output", out.string()});
    EXPECT_EQ(refused.status, 1);
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
    const MeasuredRun drawn = measuredOvik({"render", package.string(), "--size", "500", "--output", out.string()});
    ASSERT_EQ(drawn.status, 0);
    EXPECT_EQ(PNGCodec::decode(fileBytes(out)).width(), 500);
    EXPECT_LT(drawn.peakBytes, std::int64_t(160) << 20);
    fs::remove(out);
    ASSERT_TRUE(runFFmpeg("-f lavfi -i color=c=red:s=8000x8000 -frames:v 1 " + shot.string()));
    const MeasuredRun refused = measuredOvik({"thumbnail", package.string(), "--size", "256", "--output", out.string()});
    EXPECT_EQ(refused.status, 1);
    EXPECT_FALSE(fs::exists(out));
}

} // namespace
} // namespace ovik::testing
