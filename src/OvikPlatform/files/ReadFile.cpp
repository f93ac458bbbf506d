#include "OvikPlatform/files/ReadFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "OvikPlatform/files/FileDescriptor.h"
#include "OvikPlatform/files/PosixError.h"

namespace ovik {

std::string readFile(const std::filesystem::path& path) {
    const FileDescriptor file = FileDescriptor::open(path, O_RDONLY);
    struct stat info {};
    if (::fstat(file.get(), &info) != 0) throw PosixError::fromErrno(path);
    if (S_ISDIR(info.st_mode)) throw PosixError(EISDIR, path);
    std::string bytes;
    bytes.reserve(std::size_t(info.st_size));
    char buffer[1 << 16];
    for (;;) {
        const ssize_t count = ::read(file.get(), buffer, sizeof buffer);
        if (count == 0) return bytes;
        if (count < 0) {
            if (errno == EINTR) continue;
            throw PosixError::fromErrno(path);
        }
        bytes.append(buffer, std::size_t(count));
    }
}

} // namespace ovik
