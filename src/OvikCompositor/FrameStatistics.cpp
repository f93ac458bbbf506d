#include "OvikCompositor/FrameStatistics.h"

namespace ovik {

void FrameStatistics::record(const FrameRenderInfo& info) {
    const std::lock_guard guard(lock_);
    Totals& totals = totals_[info.path];
    ++totals.frames;
    totals.passCount += info.passCount;
    totals.pixelsProcessed += info.pixelsProcessed;
    totals.kernelMilliseconds += info.kernelMilliseconds;
}

FrameStatistics::Totals FrameStatistics::totals(RenderPath path) const {
    const std::lock_guard guard(lock_);
    const auto found = totals_.find(path);
    return found != totals_.end() ? found->second : Totals{};
}

} // namespace ovik
