#pragma once
// What one render took: its passes and the pixels they computed. A pass is one materialized
// intermediate finished over its region (a blur, a halving, a sampling kernel), or the last
// pass that delivers the rectangle asked for; nodes computed on demand within a pass add none.
// Counted from the plan, so the numbers are the same whatever the tiles and threads.
#include <cstdint>

namespace ovik {

struct RenderWork {
    std::int64_t passCount = 0;
    std::int64_t pixelsProcessed = 0;

    bool operator==(const RenderWork&) const = default;
};

} // namespace ovik
