#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

#include "OvikPlatform/media/FFmpegTool.h"
#include "OvikPlatform/media/MediaError.h"
#include "OvikPlatform/media/MediaProbe.h"
#include "OvikPlatform/media/TestMovies.h"

namespace ovik {
namespace {

using testing::TestMovies;

// The one-frame movie with its frame's length set to 0 in the time-to-sample table: a file
// that gives no frame rate at all.
std::filesystem::path withoutFrameRate() {
    std::string bytes = testing::fileBytes(TestMovies::oneFrame());
    const std::size_t stts = bytes.find("stts");
    const std::size_t entries = stts + 8;
    EXPECT_EQ(bytes.substr(entries, 4), std::string("\0\0\0\1", 4)) << "one entry";
    bytes.replace(entries + 8, 4, std::string(4, '\0'));
    return TestMovies::written("rateless.mp4", bytes);
}

TEST(MediaProbe, ReadsAMoviesShownSizeRateLengthTracksAndTurns) {
    struct Case {
        std::filesystem::path path;
        std::int64_t width, height;
        double frameRate;
        double duration;
        std::optional<int> audioTrackID;
        double audioOffset;
        int turns;
    };
    // The turned movie's audio was put half a second late; AAC's 1024 priming samples at
    // 44.1 kHz start it 23 ms earlier.
    const Case cases[] = {
        {TestMovies::colours(), 64, 48, 10, 3, std::nullopt, 0, 0},
        {TestMovies::turned(), 48, 64, 10, 1, 1, 0.5 - 1024 / 44100.0, 3},
        {TestMovies::fast(), 64, 48, 240, 0.1, std::nullopt, 0, 0},
        {withoutFrameRate(), 64, 48, 30, -1, std::nullopt, 0, 0},
        {TestMovies::oneFrame(), 64, 48, 10, 0.1, std::nullopt, 0, 0},
    };
    for (const Case& c : cases) {
        const MediaProbe::Movie movie = MediaProbe::movie(c.path);
        EXPECT_EQ(movie.width, c.width) << c.path;
        EXPECT_EQ(movie.height, c.height) << c.path;
        EXPECT_DOUBLE_EQ(movie.frameRate, c.frameRate) << c.path;
        if (c.duration >= 0) {
            EXPECT_NEAR(movie.duration.seconds(), c.duration, 0.01) << c.path;
        }
        EXPECT_EQ(movie.videoTrackID, 0) << c.path;
        EXPECT_EQ(movie.audioTrackID, c.audioTrackID) << c.path;
        EXPECT_NEAR(movie.audioOffset.seconds(), c.audioOffset, 0.005) << c.path;
        EXPECT_EQ(movie.turns, c.turns) << c.path;
    }
}

// A JPEG's header holds its resolution as a whole number of dots per inch (unit 1) or per
// centimetre (unit 2), or an aspect ratio only (unit 0).
TEST(MediaProbe, PictureScaleIsTheResolutionOver72DpiRoundedWithin1To3) {
    const std::filesystem::path plain = TestMovies::folder() / "plain.jpg";
    ASSERT_TRUE(testing::runFFmpeg("-f lavfi -i color=c=white:s=30x20 -frames:v 1 " + plain.string()));
    const std::string jpeg = testing::fileBytes(plain);
    const struct {
        char unit;
        int density, scale;
    } cases[] = {{0, 300, 1}, {1, 20, 1}, {1, 107, 1}, {1, 108, 2}, {1, 179, 2}, {1, 180, 3}, {1, 600, 3}, {2, 50, 2}};
    for (const auto& c : cases) {
        std::string bytes = jpeg;
        bytes.replace(bytes.find("JFIF") + 7, 3, {c.unit, char(c.density >> 8), char(c.density & 0xFF)});
        const MediaProbe::Picture picture = MediaProbe::picture(TestMovies::written("dense.jpg", bytes));
        EXPECT_EQ(picture.scale, c.scale) << c.density << " per unit " << int(c.unit);
        EXPECT_EQ(picture.width, 30);
        EXPECT_EQ(picture.height, 20);
        EXPECT_FALSE(picture.png);
    }
    // A PNG keeps whole pixels per metre: 144 dpi is stored as 5669.
    const std::filesystem::path png = TestMovies::folder() / "dense.png";
    ASSERT_TRUE(testing::runFFmpeg("-f lavfi -i color=c=white:s=30x20 -frames:v 1 -dpi 144 " + png.string()));
    EXPECT_EQ(MediaProbe::picture(png).scale, 2);
    EXPECT_TRUE(MediaProbe::picture(png).png);
}

TEST(MediaProbe, RefusesFilesItCantReadWithTheirPath) {
    using enum MediaError::Kind;
    const std::pair<std::filesystem::path, MediaError::Kind> movies[] = {
        {TestMovies::folder() / "nowhere.mov", unreadable},
        {TestMovies::written("noise.mov", std::string(2048, '\x17')), unreadable},
        {TestMovies::soundOnly(), empty},
    };
    for (const auto& [path, kind] : movies)
        EXPECT_THAT([&] { MediaProbe::movie(path); }, testing::throwsMediaError(kind, path));
    for (const std::filesystem::path& path :
         {TestMovies::folder() / "nowhere.png", TestMovies::written("noise.png", std::string(100, '\x42')),
          TestMovies::written("cut.png", std::string("\x89PNG\r\n\x1a\n", 8)), TestMovies::colours()})
        EXPECT_THAT([&] { MediaProbe::picture(path); }, testing::throwsMediaError(unreadable, path));
}

} // namespace
} // namespace ovik
