#pragma once
// A `VideoDecoder` on a thread of its own, asked for one step at a time and waited for under a
// deadline, so that a decoder that stops answering costs a timeout and never a hang.
//
// The thread is detached and never joined. Destroying a `DecoderThread` abandons it: a thread
// that is idle ends at once; one stuck in a step keeps its decoder alive and ends when (if ever)
// the step returns, its answer unread. The decoder is opened, used and closed on that thread
// only.
#include <filesystem>
#include <memory>
#include <optional>

#include "OvikPlatform/media/DecodedFrame.h"
#include "OvikPlatform/media/MediaTime.h"
#include "OvikPlatform/media/ReadFlags.h"

namespace ovik {

class DecoderThread {
public:
    /// Starts the thread. The movie is opened by the first step, under that step's deadline.
    explicit DecoderThread(std::filesystem::path movie);
    ~DecoderThread();
    DecoderThread(const DecoderThread&) = delete;
    DecoderThread& operator=(const DecoderThread&) = delete;

    struct Step {
        /// The moment being read towards (see `VideoDecoder::next`).
        MediaTime target;
        /// Seek back to the key frame before `target` first.
        bool rewind = false;
    };

    struct Answer {
        /// The decoder didn't answer within `flags.patience.wait`; it is stuck for good.
        bool timedOut = false;
        /// The next frame, or none after the last.
        std::optional<DecodedFrame> frame;
    };

    /// Runs one step and waits for it in slices of 100 ms. Counts the step in `flags.reads`; a
    /// step whose number is in `flags.stalls` never answers. Throws `MediaError` cancelled
    /// within a slice of `flags.cancelled` being set, and rethrows what the decoder threw.
    /// After a timeout or a throw the thread may still be busy: destroy it, don't ask again.
    Answer next(Step step, ReadFlags& flags);

private:
    struct Shared;
    static void serve(std::shared_ptr<Shared> shared, std::filesystem::path movie);

    std::shared_ptr<Shared> shared_;
};

} // namespace ovik
