#pragma once
// What all the frame readers of one read share: the caller's cancel flag, the patience, and a
// count of decoder steps so far, with the step numbers at which a test makes the decoder stall.
#include <atomic>
#include <cstdint>
#include <set>

#include "OvikPlatform/media/DecoderPatience.h"

namespace ovik {

struct ReadFlags {
    /// Set from any thread; a waiting read notices within one 100 ms slice.
    std::atomic<bool> cancelled{false};
    DecoderPatience patience;
    /// Step numbers (counted from 1 by `reads`) that behave as if the decoder never answered.
    std::set<std::int64_t> stalls;
    /// Decoder steps begun so far, by every reader sharing these flags.
    std::atomic<std::int64_t> reads{0};
};

} // namespace ovik
