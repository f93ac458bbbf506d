#pragma once
// Running totals of rendered frames by the kind of work they were: how many, their passes and
// pixels, and their time. Frames are recorded from any thread.
#include <cstdint>
#include <map>
#include <mutex>

#include "OvikCompositor/FrameRenderInfo.h"

namespace ovik {

class FrameStatistics {
public:
    struct Totals {
        std::int64_t frames = 0;
        std::int64_t passCount = 0;
        std::int64_t pixelsProcessed = 0;
        /// Like `FrameRenderInfo::kernelMilliseconds`: for watching, never for output.
        double kernelMilliseconds = 0;
    };

    void record(const FrameRenderInfo& info);
    /// All zero for a path no frame was recorded on.
    Totals totals(RenderPath path) const;

private:
    mutable std::mutex lock_;
    std::map<RenderPath, Totals> totals_;
};

} // namespace ovik
