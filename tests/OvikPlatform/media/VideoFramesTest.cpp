#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <set>
#include <thread>

#include "OvikPlatform/media/FFmpegTool.h"
#include "OvikPlatform/media/MediaError.h"
#include "OvikPlatform/media/PictureDifference.h"
#include "OvikPlatform/media/TestMovies.h"
#include "OvikPlatform/media/VideoFrames.h"

namespace ovik {
namespace {

using namespace std::chrono_literals;
using testing::RGBA;
using testing::TestMovies;
using Clock = std::chrono::steady_clock;

constexpr RGBA red{255, 0, 0, 255}, green{0, 255, 0, 255}, blue{0, 0, 255, 255};
// What H.264 at 4:2:0 leaves of a flat colour.
constexpr int flatTolerance = 8;

std::shared_ptr<ReadFlags> flags(std::chrono::milliseconds wait = 5s, std::set<std::int64_t> stalls = {}) {
    auto made = std::make_shared<ReadFlags>();
    made->patience.wait = wait;
    made->stalls = std::move(stalls);
    return made;
}

MediaTime tenths(std::int64_t count) { return {count, 10}; }

TEST(VideoFrames, ShowsTheLastFrameStartingByEachMomentGoingForwardAndBack) {
    struct Case {
        MediaTime time;
        std::optional<MediaTime> start;
        RGBA colour;
    };
    // Frames start every tenth of a second; the colour changes each second. The moments run
    // forward (by decoding and by seeking past key frames), past the end, then back.
    const Case cases[] = {
        {MediaTime::fromSeconds(-0.5), std::nullopt, {}},
        {MediaTime{0, 1}, tenths(0), red},
        {MediaTime{9'999'999, 10'000'000}, tenths(9), red},
        {MediaTime{1, 1}, tenths(10), green},
        {MediaTime::fromSeconds(1.55), tenths(15), green},
        {MediaTime::fromSeconds(2.95), tenths(29), blue},
        {MediaTime{10, 1}, tenths(29), blue},
        {MediaTime::fromSeconds(0.5), tenths(5), red},
        {MediaTime::fromSeconds(1.25), tenths(12), green},
    };
    VideoFrames frames(TestMovies::colours(), flags());
    for (const Case& c : cases) {
        const std::optional<VideoFrame> frame = frames.frame(c.time);
        ASSERT_EQ(frame.has_value(), c.start.has_value()) << c.time.seconds();
        if (!frame) continue;
        EXPECT_EQ(frame->start, *c.start) << c.time.seconds() << " showed " << frame->start.seconds();
        EXPECT_EQ(frame->image->width(), 64);
        EXPECT_EQ(frame->image->height(), 48);
        EXPECT_LE(testing::maxErrorFrom(*frame->image, c.colour), flatTolerance) << c.time.seconds();
    }
}

TEST(VideoFrames, SeeksPastKeyFramesInsteadOfDecodingEveryFrameBetween) {
    struct Case {
        MediaTime time;
        std::int64_t mostReads;
    };
    // Key frames stand every half second. Each step reads at most the frames from the nearest
    // key frame before the moment, or from where it was, up to the first frame after the
    // moment; hidden frames that nothing refers to may be skipped on the way.
    const Case cases[] = {
        {tenths(0), 2},                     // opens; 0 shows, 0.1 waits
        {tenths(3), 3},                     // 0.2, 0.3, then 0.4 waits
        {MediaTime::fromSeconds(2.75), 4},  // seeks to 2.5: 2.5, 2.6, 2.7, then 2.8 waits
        {MediaTime::fromSeconds(0.25), 4},  // back to 0: 0, 0.1, 0.2, then 0.3 waits
    };
    const auto shared = flags();
    VideoFrames frames(TestMovies::colours(), shared);
    for (const Case& c : cases) {
        const std::int64_t before = shared->reads;
        ASSERT_TRUE(frames.frame(c.time));
        EXPECT_LE(shared->reads - before, c.mostReads) << c.time.seconds();
    }
}

TEST(VideoFrames, ATolerancePermitsAnEarlierFrameReadSooner) {
    struct Case {
        MediaTime tolerance;
        MediaTime earliest, latest;
        std::int64_t mostReads;
    };
    // At 0.5 s inside the HD movie, whose only key frame is at 0 and whose frames are 1/30 s.
    const Case cases[] = {
        {MediaTime{0, 1}, MediaTime{1, 2}, MediaTime{1, 2}, 16},
        {MediaTime{1, 5}, MediaTime{3, 10}, MediaTime{1, 2}, 10},
        {MediaTime{1, 1}, MediaTime{0, 1}, MediaTime{0, 1}, 1},
    };
    for (const Case& c : cases) {
        const auto shared = flags();
        VideoFrames frames(TestMovies::fullHD(), shared, {.maxLongSide = 480, .tolerance = c.tolerance});
        const std::optional<VideoFrame> frame = frames.frame(MediaTime{1, 2});
        ASSERT_TRUE(frame);
        EXPECT_GE(frame->start, c.earliest) << c.tolerance.seconds();
        EXPECT_LE(frame->start, c.latest) << c.tolerance.seconds();
        EXPECT_LE(shared->reads, c.mostReads) << c.tolerance.seconds();
        // Without a tolerance it is the exact frame, inside a group of pictures whose frames
        // all differ: the one that starts at 0.5 s, as ffmpeg decodes it.
        if (c.tolerance == MediaTime{}) {
            const CGImage oracle =
                testing::oracleFrame(TestMovies::fullHD(), 480, 270, "scale=480:270:flags=bilinear", "-ss 0.5");
            EXPECT_GE(testing::psnr(*frame->image, oracle), 30);
        }
    }
}

TEST(VideoFrames, ScalesDownToTheLongSideButNeverUp) {
    // 1920 × 1080 to a long side of 1400 is 787.5 high, rounded up.
    using Size = std::pair<std::int64_t, std::int64_t>;
    const std::pair<std::optional<std::int64_t>, Size> cases[] = {
        {1400, {1400, 788}}, {4000, {1920, 1080}}, {std::nullopt, {1920, 1080}}, {100, {100, 56}}};
    for (const auto& [maxLongSide, size] : cases) {
        VideoFrames frames(TestMovies::fullHD(), flags(), {.maxLongSide = maxLongSide, .tolerance = {}});
        const std::optional<VideoFrame> frame = frames.frame({0, 1});
        ASSERT_TRUE(frame);
        EXPECT_EQ(Size(frame->image->width(), frame->image->height()), size);
    }
}

TEST(VideoFrames, TurnsFramesAsTheDisplayMatrixSays) {
    VideoFrames frames(TestMovies::turned(), flags());
    const std::optional<VideoFrame> frame = frames.frame(MediaTime::fromSeconds(0.5));
    ASSERT_TRUE(frame);
    ASSERT_EQ(frame->image->width(), 48);
    ASSERT_EQ(frame->image->height(), 64);
    // A quarter turn anticlockwise brings the right (blue) half to the top.
    EXPECT_LE(testing::channelError(testing::pixelAt(*frame->image, 24, 8), blue), flatTolerance);
    EXPECT_LE(testing::channelError(testing::pixelAt(*frame->image, 24, 56), red), flatTolerance);
    EXPECT_GE(testing::psnr(*frame->image, testing::oracleFrame(TestMovies::turned(), 48, 64)), 30);
}

TEST(VideoFrames, PremultipliesFramesWithAlpha) {
    VideoFrames frames(TestMovies::translucent(), flags());
    const std::optional<VideoFrame> frame = frames.frame({0, 1});
    ASSERT_TRUE(frame);
    // Red at alpha 128 of 255: its red channel scaled by the same.
    EXPECT_LE(testing::maxErrorFrom(*frame->image, {128, 0, 0, 128}), 1);
}

TEST(VideoFrames, BadInputGivesATypedErrorNamingTheFile) {
    using enum MediaError::Kind;
    const std::string movie = testing::fileBytes(TestMovies::colours());
    const std::pair<std::filesystem::path, MediaError::Kind> cases[] = {
        {TestMovies::folder() / "missing.mp4", unreadable},
        {TestMovies::written("garbage.mp4", std::string(4096, '\x5A')), unreadable},
        {TestMovies::written("truncated.mp4", movie.substr(0, movie.size() / 2)), unreadable},
        {TestMovies::soundOnly(), empty},
    };
    for (const auto& [path, kind] : cases)
        EXPECT_THAT([&] { VideoFrames(path, flags()).frame({0, 1}); }, testing::throwsMediaError(kind, path));
}

TEST(VideoFramesDeadlines, AStuckDecoderIsReplacedUntilThreeTimeOutInARow) {
    constexpr auto wait = 200ms;
    // Reading to 0.45 s takes 6 reads: the first opens the movie and decodes the frame at 0,
    // the sixth gives the frame at 0.5 that stands as the upcoming one.
    const MediaTime time = MediaTime::fromSeconds(0.45);
    VideoFrames plain(TestMovies::colours(), flags());
    const std::optional<VideoFrame> expected = plain.frame(time);
    ASSERT_TRUE(expected);
    struct Case {
        std::set<std::int64_t> stalls;
        bool fails;
    };
    const Case cases[] = {{{2}, false}, {{1}, false}, {{2, 3}, false}, {{4, 5, 6}, true}, {{1, 2, 3}, true}};
    for (const Case& c : cases) {
        VideoFrames frames(TestMovies::colours(), flags(wait, c.stalls));
        const auto began = Clock::now();
        try {
            const std::optional<VideoFrame> frame = frames.frame(time);
            EXPECT_FALSE(c.fails);
            ASSERT_TRUE(frame);
            EXPECT_EQ(frame->start, expected->start);
            EXPECT_EQ(testing::psnr(*frame->image, *expected->image), std::numeric_limits<double>::infinity());
        } catch (const MediaError& error) {
            EXPECT_TRUE(c.fails) << error.what();
            EXPECT_EQ(error.kind(), MediaError::Kind::failed);
            EXPECT_STREQ(error.what(), "the video decoder stopped answering");
            // A failed read leaves the next one a fresh decoder; the stalls are behind it.
            EXPECT_TRUE(frames.frame(time));
        }
        const auto waited = Clock::now() - began;
        EXPECT_GE(waited, wait * c.stalls.size());
        EXPECT_LT(waited, wait * c.stalls.size() + 2s);
    }
}

TEST(VideoFramesDeadlines, CancellingEndsAStalledReadWithinASlice) {
    auto shared = flags(10s, {1, 2, 3});
    VideoFrames frames(TestMovies::colours(), shared);
    Clock::time_point cancelledAt;
    std::thread canceller([&] {
        std::this_thread::sleep_for(250ms);
        cancelledAt = Clock::now();
        shared->cancelled = true;
    });
    try {
        frames.frame({0, 1});
        ADD_FAILURE() << "a stalled read answered";
    } catch (const MediaError& error) {
        EXPECT_EQ(error.kind(), MediaError::Kind::cancelled);
    }
    const auto ended = Clock::now();
    canceller.join();
    // One slice of 100 ms, and some room for a busy machine.
    EXPECT_LT(ended - cancelledAt, 250ms);
}

} // namespace
} // namespace ovik
