#include "OvikPlatform/concurrency/TaskPool.h"

#include <algorithm>

namespace ovik {

TaskPool& TaskPool::shared() {
    static TaskPool pool(std::max(2u, std::thread::hardware_concurrency()));
    return pool;
}

TaskPool::TaskPool(unsigned workers) {
    for (unsigned i = 0; i < workers; ++i) workers_.emplace_back([this] { work(); });
}

// Tasks already queued still run: each of them owes someone an answer.
TaskPool::~TaskPool() {
    {
        std::lock_guard guard(lock_);
        stopping_ = true;
    }
    ready_.notify_all();
    for (std::thread& worker : workers_) worker.join();
}

void TaskPool::run(std::function<void()> task) {
    {
        std::lock_guard guard(lock_);
        tasks_.push_back(std::move(task));
    }
    ready_.notify_one();
}

void TaskPool::work() {
    for (;;) {
        std::function<void()> task;
        {
            std::unique_lock guard(lock_);
            ready_.wait(guard, [this] { return stopping_ || !tasks_.empty(); });
            if (tasks_.empty()) return;
            task = std::move(tasks_.front());
            tasks_.pop_front();
        }
        task();
    }
}

} // namespace ovik
