#pragma once
// How long a reader waits for a decoder before it counts the decoder as stuck, and how many
// stuck steps in a row end the read. A player passes a short wait; an export, whose frames
// must all come, a longer one.
#include <chrono>

namespace ovik {

struct DecoderPatience {
    /// Steps that time out in a row before the read fails; each one gets a fresh decoder.
    int attempts = 3;
    /// How long one step (opening, seeking and decoding the next frame) may take.
    std::chrono::milliseconds wait{5000};

    bool operator==(const DecoderPatience&) const = default;
};

} // namespace ovik
