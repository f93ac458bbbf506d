#pragma once
// Things that can stand where a program expects a plain file: what a test puts at an output
// path to see that it is refused and left as it was.
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <stdexcept>

namespace ovik::testing {

struct SpecialFile {
    const char* name;
    std::filesystem::file_type type;
    void (*make)(const std::filesystem::path&);
};

inline void makeFifo(const std::filesystem::path& path) {
    if (::mkfifo(path.c_str(), 0644) != 0) throw std::runtime_error("mkfifo " + path.string());
}

// A bound socket leaves its name in the folder after the descriptor is closed.
inline void makeSocket(const std::filesystem::path& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.native().size() >= sizeof(address.sun_path)) throw std::runtime_error("socket path too long");
    std::strcpy(address.sun_path, path.c_str());
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    const bool bound = fd >= 0 && ::bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
    if (fd >= 0) ::close(fd);
    if (!bound) throw std::runtime_error("bind " + path.string());
}

inline void makeFolder(const std::filesystem::path& path) { std::filesystem::create_directory(path); }

inline const SpecialFile specialFiles[] = {
    {"a FIFO", std::filesystem::file_type::fifo, makeFifo},
    {"a socket", std::filesystem::file_type::socket, makeSocket},
    {"an empty folder", std::filesystem::file_type::directory, makeFolder},
};

} // namespace ovik::testing
