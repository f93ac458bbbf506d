#pragma once
// A small process-wide pool for work that answers asynchronously: tasks run on a few worker
// threads, several at once, in no particular order. The workers are joined when the process
// ends, so a task never outlives the program half done.
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace ovik {

class TaskPool {
public:
    static TaskPool& shared();

    explicit TaskPool(unsigned workers);
    ~TaskPool();
    TaskPool(const TaskPool&) = delete;
    TaskPool& operator=(const TaskPool&) = delete;

    void run(std::function<void()> task);

private:
    void work();

    std::mutex lock_;
    std::condition_variable ready_;
    std::deque<std::function<void()>> tasks_;
    bool stopping_ = false;
    std::vector<std::thread> workers_;
};

} // namespace ovik
