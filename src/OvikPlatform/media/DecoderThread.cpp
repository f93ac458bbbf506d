#include "OvikPlatform/media/DecoderThread.h"

#include <pthread.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>

#include "OvikPlatform/media/MediaError.h"
#include "OvikPlatform/media/VideoDecoder.h"

namespace ovik {
namespace {

// How often a waiting read looks at the cancel flag.
constexpr std::chrono::milliseconds slice{100};

} // namespace

// The one step in flight and its answer, shared by the caller and the thread; whoever lets
// go last frees it.
struct DecoderThread::Shared {
    std::mutex lock;
    std::condition_variable changed;
    std::optional<Step> step;
    bool stall = false;
    bool closed = false;
    bool answered = false;
    std::optional<DecodedFrame> frame;
    std::exception_ptr error;
};

DecoderThread::DecoderThread(std::filesystem::path movie) : shared_(std::make_shared<Shared>()) {
    std::thread(serve, shared_, std::move(movie)).detach();
}

DecoderThread::~DecoderThread() {
    const std::lock_guard lock(shared_->lock);
    shared_->closed = true;
    shared_->changed.notify_all();
}

void DecoderThread::serve(std::shared_ptr<Shared> shared, std::filesystem::path movie) {
    pthread_setname_np(pthread_self(), "source-frames");
    std::unique_ptr<VideoDecoder> decoder;
    for (;;) {
        std::unique_lock lock(shared->lock);
        shared->changed.wait(lock, [&] { return shared->step || shared->closed; });
        if (shared->closed) return;
        const Step step = *std::exchange(shared->step, std::nullopt);
        if (shared->stall) {
            // A made-up hang: busy until abandoned, like a decoder that never returns.
            shared->changed.wait(lock, [&] { return shared->closed; });
            return;
        }
        lock.unlock();
        std::optional<DecodedFrame> frame;
        std::exception_ptr error;
        try {
            if (!decoder) decoder = std::make_unique<VideoDecoder>(movie);
            if (step.rewind) decoder->seek(step.target);
            frame = decoder->next(step.target);
        } catch (...) {
            error = std::current_exception();
        }
        lock.lock();
        shared->frame = std::move(frame);
        shared->error = error;
        shared->answered = true;
        shared->changed.notify_all();
    }
}

DecoderThread::Answer DecoderThread::next(Step step, ReadFlags& flags) {
    const auto cancelled = [&] { return MediaError(MediaError::Kind::cancelled, "The read was cancelled"); };
    if (flags.cancelled) throw cancelled();
    const std::int64_t number = ++flags.reads;
    const auto deadline = std::chrono::steady_clock::now() + flags.patience.wait;
    std::unique_lock lock(shared_->lock);
    shared_->step = step;
    shared_->stall = flags.stalls.contains(number);
    shared_->answered = false;
    shared_->changed.notify_all();
    while (!shared_->changed.wait_until(lock, std::min(std::chrono::steady_clock::now() + slice, deadline),
                                        [&] { return shared_->answered; })) {
        if (flags.cancelled) throw cancelled();
        if (std::chrono::steady_clock::now() >= deadline) return {true, std::nullopt};
    }
    if (shared_->error) std::rethrow_exception(shared_->error);
    return {false, std::move(shared_->frame)};
}

} // namespace ovik
