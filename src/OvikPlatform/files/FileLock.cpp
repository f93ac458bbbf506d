#include "OvikPlatform/files/FileLock.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <thread>

#include "OvikPlatform/files/PosixError.h"

namespace ovik {

// flock has no timeout, so the lock is tried without blocking, with pauses that grow from 1 ms
// to 20 ms: short holds are met quickly and a long wait costs little.
FileLock FileLock::acquire(const std::filesystem::path& path, std::chrono::milliseconds wait) {
    // Non-blocking open: a FIFO at the path can't make us wait before the lock is even tried.
    FileDescriptor file = FileDescriptor::open(path, O_RDONLY | O_NONBLOCK);
    const auto deadline = std::chrono::steady_clock::now() + wait;
    std::chrono::milliseconds pause{1};
    while (!file.tryLock()) {
        if (errno != EWOULDBLOCK) throw PosixError::fromErrno(path);
        if (std::chrono::steady_clock::now() >= deadline) throw PosixError(EWOULDBLOCK, path);
        std::this_thread::sleep_for(pause);
        pause = std::min(pause * 2, std::chrono::milliseconds(20));
    }
    return FileLock(std::move(file));
}

} // namespace ovik
