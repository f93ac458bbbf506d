#pragma once
// What rendering one frame took, and which kind of work it was.
#include <cstdint>

#include "OvikCompositor/RenderPath.h"

namespace ovik {

struct FrameRenderInfo {
    RenderPath path = RenderPath::other;
    /// Wall time of the render. It differs from run to run, so it is only ever shown to a
    /// person watching the engine work, never written into a file or a key.
    double kernelMilliseconds = 0;
    std::int64_t passCount = 0;
    std::int64_t pixelsProcessed = 0;
};

} // namespace ovik
