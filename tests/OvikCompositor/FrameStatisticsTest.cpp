#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "CompositorSamples.h"
#include "OvikCompositor/FrameStatistics.h"
#include "OvikCompositor/LiveRendering.h"

namespace ovik {
namespace {

TEST(FrameStatistics, StillsCountOnTheStillPathAndACacheHitCountsNothing) {
    const testing::Package package("statistics");
    LiveRendering rendering;
    const DraftDocument document{testing::canvasDraft(RGBA{1, 0, 0, 1}), package.root};
    const auto still = [&] { return rendering.statistics().totals(RenderPath::still); };
    // A 100 × 50 canvas fitted into 40 and into 64 pixels, then 40 again from the cache.
    rendering.still(document, std::nullopt, 40);
    rendering.still(document, std::nullopt, 64);
    rendering.still(document, std::nullopt, 40);
    EXPECT_EQ(still().frames, 2);
    EXPECT_GE(still().passCount, 2);
    EXPECT_GE(still().pixelsProcessed, 40 * 20 + 64 * 32);
    // Without a size a still isn't kept, so each is rendered.
    rendering.stills(document, {std::nullopt, OutputTime{}}, StillSize::fitting(std::nullopt));
    EXPECT_EQ(still().frames, 4);
    for (const RenderPath path : {RenderPath::preview, RenderPath::export_, RenderPath::other})
        EXPECT_EQ(rendering.statistics().totals(path).frames, 0);
}

TEST(FrameStatistics, TotalsByPathFromManyThreads) {
    FrameStatistics statistics;
    constexpr int each = 5000;
    std::vector<std::thread> workers;
    for (int t = 0; t < 4; ++t)
        workers.emplace_back([&, t] {
            const RenderPath path = t % 2 ? RenderPath::preview : RenderPath::export_;
            for (int i = 0; i < each; ++i) statistics.record(FrameRenderInfo{path, 0.5, 2, 100});
        });
    for (std::thread& worker : workers) worker.join();
    for (const RenderPath path : {RenderPath::preview, RenderPath::export_}) {
        const FrameStatistics::Totals totals = statistics.totals(path);
        EXPECT_EQ(totals.frames, 2 * each);
        EXPECT_EQ(totals.passCount, 4 * each);
        EXPECT_EQ(totals.pixelsProcessed, 200 * each);
        EXPECT_DOUBLE_EQ(totals.kernelMilliseconds, each);
    }
}

} // namespace
} // namespace ovik
