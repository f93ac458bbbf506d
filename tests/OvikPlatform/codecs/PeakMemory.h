#pragma once
// How much memory a piece of work takes at its peak, measured in a child process so that what
// the test process held before doesn't hide it: a forked child's peak starts at what it holds.
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ovik::testing {

/// The growth of the peak resident size while `work` runs, in bytes; -1 when the child failed.
inline std::int64_t peakMemoryGrowth(const std::function<void()>& work) {
    int channel[2];
    if (::pipe(channel) != 0) return -1;
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(channel[0]);
        rusage before{}, after{};
        ::getrusage(RUSAGE_SELF, &before);
        try {
            work();
        } catch (...) {
            ::_exit(1);
        }
        ::getrusage(RUSAGE_SELF, &after);
        const std::int64_t grown = std::int64_t(after.ru_maxrss - before.ru_maxrss) * 1024; // kilobytes on Linux
        const bool sent = ::write(channel[1], &grown, sizeof grown) == sizeof grown;
        ::_exit(sent ? 0 : 1);
    }
    ::close(channel[1]);
    std::int64_t grown = -1;
    if (::read(channel[0], &grown, sizeof grown) != sizeof grown) grown = -1;
    ::close(channel[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? grown : -1;
}

} // namespace ovik::testing
