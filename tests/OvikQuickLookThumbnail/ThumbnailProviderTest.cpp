#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <mutex>
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

TEST(ThumbnailProvider, ContextFitsTheImageIntoTheBoxKeepingItsAspect) {
    struct Case {
        PixelSize image;
        CGSize box;
        CGSize context;
    };
    const Case cases[] = {
        {{1600, 900}, {400, 400}, {400, 225}},
        {{100, 50}, {400, 400}, {400, 200}}, // scaled up
        {{1, 1000}, {300, 300}, {1, 300}},   // never below 1
        {{0, 0}, {64, 32}, {32, 32}},        // an empty image counts as 1 by 1
        {{3, 2}, {5, 5}, {5, 3}},            // 3.33 rounds to 3
    };
    for (const Case& c : cases) EXPECT_EQ(ThumbnailProvider::contextSize(c.image, c.box), c.context) << c.image.width;
}

TEST(ThumbnailProvider, AnswersExactlyOnceFromAnotherThread) {
    std::mutex lock;
    std::condition_variable done;
    int calls = 0;
    std::thread::id caller = std::this_thread::get_id(), answerer;
    std::exception_ptr error;
    ThumbnailProvider().provideThumbnail({"/nonexistent/x.ovikwork", {128, 128}, 1},
                                         [&](std::optional<ThumbnailReply> reply, std::exception_ptr e) {
                                             std::lock_guard guard(lock);
                                             ++calls;
                                             answerer = std::this_thread::get_id();
                                             error = reply ? nullptr : e;
                                             done.notify_all();
                                         });
    std::unique_lock guard(lock);
    ASSERT_TRUE(done.wait_for(guard, std::chrono::seconds(10), [&] { return calls > 0; }));
    guard.unlock();
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(calls, 1);
    EXPECT_NE(answerer, caller);
    ASSERT_TRUE(error);
    EXPECT_THROW(std::rethrow_exception(error), QuickLookFailure);
}

} // namespace
} // namespace ovik
