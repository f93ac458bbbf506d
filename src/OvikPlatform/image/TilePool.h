#pragma once
// A small fixed pool of threads for the tiles of one render pass. The calling thread works
// too; it returns when every tile is done. Passes from several callers take turns. Which
// thread computes a tile never shows in the result: tiles write apart.
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace ovik {

class TilePool {
public:
    /// `threads` in all, the caller's included; at least 1.
    explicit TilePool(unsigned threads);
    ~TilePool();
    TilePool(const TilePool&) = delete;
    TilePool& operator=(const TilePool&) = delete;

    unsigned threadCount() const { return unsigned(workers_.size()) + 1; }

    /// Runs work(0) ... work(count - 1), spread over the threads. When some throw, the
    /// exception of the lowest index is rethrown, after all have run.
    void forEach(std::size_t count, const std::function<void(std::size_t)>& work);

private:
    struct Job;
    void serve();
    void drain(Job& job);

    std::mutex turns_;
    std::mutex lock_;
    std::condition_variable wake_;
    std::condition_variable idle_;
    Job* job_ = nullptr;
    std::uint64_t generation_ = 0;
    unsigned busy_ = 0;
    bool stopping_ = false;
    std::vector<std::thread> workers_;
};

} // namespace ovik
