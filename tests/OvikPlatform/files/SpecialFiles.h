#pragma once
// Things that can stand where a program expects a plain file: a reader that opens them the
// ordinary way waits forever (a FIFO without a writer) or reads without end (a device), and a
// writer must refuse them and leave them as they were.
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>
#include <string>

namespace ovik::testing {

struct SpecialFile {
    const char* name;
    std::filesystem::file_type type; // as the link itself is seen, not followed
    void (*make)(const std::filesystem::path&);
};

inline void makeFifo(const std::filesystem::path& path) {
    if (::mkfifo(path.c_str(), 0644) != 0) throw std::runtime_error("mkfifo " + path.string());
}

// The socket's file stays after its descriptor is closed, with no one listening. A socket's
// address is short, so it is bound in the temporary folder and moved into place.
inline void makeSocket(const std::filesystem::path& path) {
    const std::filesystem::path bound =
        std::filesystem::temp_directory_path() / ("ovik-" + std::to_string(::getpid()) + ".sock");
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (bound.native().size() >= sizeof address.sun_path) throw std::runtime_error("socket path too long");
    bound.native().copy(address.sun_path, sizeof address.sun_path - 1);
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    const bool made = fd >= 0 && ::bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    if (fd >= 0) ::close(fd);
    if (!made) throw std::runtime_error("bind " + bound.string());
    std::filesystem::rename(bound, path);
}

inline void makeFolder(const std::filesystem::path& path) { std::filesystem::create_directory(path); }
inline void makeDeviceLink(const std::filesystem::path& path) { std::filesystem::create_symlink("/dev/zero", path); }

/// What an output path may hold that a write must refuse.
inline const SpecialFile specialFiles[] = {
    {"a FIFO", std::filesystem::file_type::fifo, makeFifo},
    {"a socket", std::filesystem::file_type::socket, makeSocket},
    {"an empty folder", std::filesystem::file_type::directory, makeFolder},
};

/// What a package may hold where a file should be that a read must refuse without waiting.
inline const SpecialFile unreadableFiles[] = {
    {"FIFO", std::filesystem::file_type::fifo, makeFifo},
    {"socket", std::filesystem::file_type::socket, makeSocket},
    {"link to /dev/zero", std::filesystem::file_type::symlink, makeDeviceLink},
};

} // namespace ovik::testing
