#pragma once
// Files that are not plain files, made where a test wants one: a reader that opens them the
// ordinary way waits forever (a FIFO without a writer) or reads without end (a device).
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace ovik::testing {

struct SpecialFile {
    const char* name;
    void (*make)(const std::filesystem::path& path);
};

inline void makeFIFO(const std::filesystem::path& path) { ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0) << path; }

// The socket's file stays after its descriptor is closed, with no one listening. A socket's
// address is short, so it is bound in the temporary folder (where the tests make their files)
// and moved into place.
inline void makeSocket(const std::filesystem::path& path) {
    const std::filesystem::path bound = std::filesystem::temp_directory_path() / ("ovik-" + std::to_string(::getpid()) + ".sock");
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(bound.string().size(), sizeof address.sun_path) << bound;
    bound.string().copy(address.sun_path, sizeof address.sun_path - 1);
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_GE(fd, 0);
    EXPECT_EQ(::bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0) << bound;
    ::close(fd);
    std::filesystem::rename(bound, path);
}

inline void makeDeviceLink(const std::filesystem::path& path) { std::filesystem::create_symlink("/dev/zero", path); }

inline constexpr SpecialFile specialFiles[] = {
    {"FIFO", makeFIFO},
    {"socket", makeSocket},
    {"link to /dev/zero", makeDeviceLink},
};

} // namespace ovik::testing
