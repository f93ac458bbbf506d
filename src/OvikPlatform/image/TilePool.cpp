#include "OvikPlatform/image/TilePool.h"

#include <algorithm>
#include <atomic>
#include <exception>

namespace ovik {

struct TilePool::Job {
    Job(const std::function<void(std::size_t)>& work, std::size_t count) : work(work), count(count) {}

    const std::function<void(std::size_t)>& work;
    std::size_t count;
    std::atomic<std::size_t> next{0};
    std::exception_ptr error;
    std::size_t errorIndex = 0;
};

TilePool::TilePool(unsigned threads) {
    for (unsigned i = 1; i < std::max(threads, 1u); ++i) workers_.emplace_back([this] { serve(); });
}

TilePool::~TilePool() {
    {
        std::lock_guard guard(lock_);
        stopping_ = true;
    }
    wake_.notify_all();
    for (std::thread& worker : workers_) worker.join();
}

void TilePool::forEach(std::size_t count, const std::function<void(std::size_t)>& work) {
    if (count == 0) return;
    std::lock_guard turn(turns_);
    Job job(work, count);
    {
        std::lock_guard guard(lock_);
        job_ = &job;
        ++generation_;
        busy_ = unsigned(workers_.size());
    }
    wake_.notify_all();
    drain(job);
    {
        std::unique_lock guard(lock_);
        idle_.wait(guard, [this] { return busy_ == 0; });
        job_ = nullptr;
    }
    if (job.error) std::rethrow_exception(job.error);
}

void TilePool::serve() {
    std::uint64_t served = 0;
    for (;;) {
        Job* job;
        {
            std::unique_lock guard(lock_);
            wake_.wait(guard, [&] { return stopping_ || generation_ != served; });
            if (stopping_) return;
            served = generation_;
            job = job_;
        }
        drain(*job);
        std::lock_guard guard(lock_);
        if (--busy_ == 0) idle_.notify_all();
    }
}

void TilePool::drain(Job& job) {
    for (;;) {
        const std::size_t i = job.next.fetch_add(1);
        if (i >= job.count) return;
        try {
            job.work(i);
        } catch (...) {
            std::lock_guard guard(lock_);
            if (!job.error || i < job.errorIndex) job.error = std::current_exception(), job.errorIndex = i;
        }
    }
}

} // namespace ovik
