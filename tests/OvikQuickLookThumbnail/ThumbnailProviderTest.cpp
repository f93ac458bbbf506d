#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <thread>

#include "OvikQuickLook/QuickLookError.h"
#include "OvikQuickLookThumbnail/ThumbnailProvider.h"

namespace ovik {
namespace {

TEST(ThumbnailProvider, MaxPixelIsTheLongerSideTimesTheScaleRoundedUp) {
    struct Case {
        CGSize size;
        double scale;
        std::int64_t maxPixel;
    };
    const Case cases[] = {{{0, 0}, 1, 1}, {{256, 128}, 2, 512}, {{100.2, 50}, 1, 101}, {{128, 256}, 1.5, 384},
                          {{-5, 0}, 1, 1}, {{1e30, 1}, 1, std::numeric_limits<std::int64_t>::max()}};
    for (const Case& c : cases) EXPECT_EQ(ThumbnailProvider::maxPixel({{}, c.size, c.scale}), c.maxPixel) << c.size.width;
}

// Each side is rounded to nearest with halves away from zero: 2.5 gives 3 (not 2 by floor or
// by halves to even), 3.5 gives 4 (not 3 by floor), 1.25 gives 1 (not 2 by ceiling).
TEST(ThumbnailProvider, ContextFitsTheImageIntoTheBoxKeepingItsAspect) {
    struct Case {
        PixelSize image;
        CGSize box;
        CGSize context;
    };
    const Case cases[] = {
        {{1600, 900}, {400, 400}, {400, 225}}, {{100, 50}, {400, 400}, {400, 200}}, // the second scaled up
        {{1, 1000}, {300, 300}, {1, 300}},     {{0, 0}, {64, 32}, {32, 32}},        // never below 1
        {{8, 5}, {4, 10}, {4, 3}},             {{8, 7}, {4, 10}, {4, 4}},
        {{4, 5}, {1, 100}, {1, 1}},
    };
    for (const Case& c : cases) EXPECT_EQ(ThumbnailProvider::contextSize(c.image, c.box), c.context) << c.image.height;
}

TEST(ThumbnailProvider, AnswersExactlyOnceFromAnotherThread) {
    std::atomic<int> calls = 0;
    std::promise<std::pair<std::thread::id, std::exception_ptr>> answered;
    ThumbnailProvider().provideThumbnail({"/nonexistent/x.ovikwork", {128, 128}, 1},
                                         [&](std::optional<ThumbnailReply> reply, std::exception_ptr error) {
                                             if (calls++ == 0) answered.set_value({std::this_thread::get_id(), reply ? nullptr : error});
                                         });
    auto future = answered.get_future();
    ASSERT_EQ(future.wait_for(std::chrono::seconds(10)), std::future_status::ready);
    const auto [thread, error] = future.get();
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(calls, 1);
    EXPECT_NE(thread, std::this_thread::get_id());
    ASSERT_TRUE(error);
    EXPECT_THROW(std::rethrow_exception(error), QuickLookFailure);
}

} // namespace
} // namespace ovik
