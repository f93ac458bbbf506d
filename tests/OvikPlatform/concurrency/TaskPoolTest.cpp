#include <gtest/gtest.h>

#include <atomic>

#include "OvikPlatform/concurrency/TaskPool.h"

namespace ovik {
namespace {

TEST(TaskPool, EveryQueuedTaskRunsBeforeThePoolIsGone) {
    std::atomic<int> done{0};
    {
        TaskPool pool(2);
        for (int i = 0; i < 200; ++i) pool.run([&done] { done.fetch_add(1); });
    }
    EXPECT_EQ(done.load(), 200);
}

} // namespace
} // namespace ovik
