#include "OvikPlatform/files/ReadFile.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "OvikPlatform/files/FileDescriptor.h"
#include "OvikPlatform/files/PosixError.h"

namespace ovik {
namespace {

// Opening without waiting matters for a FIFO, whose open blocks until a writer comes.
std::size_t plainFileSize(const FileDescriptor& file, const std::filesystem::path& path, std::size_t maximumBytes) {
    struct stat info {};
    if (::fstat(file.get(), &info) != 0) throw PosixError::fromErrno(path);
    if (S_ISDIR(info.st_mode)) throw PosixError(EISDIR, path);
    if (!S_ISREG(info.st_mode)) throw PosixError(ENXIO, path);
    if (std::uintmax_t(info.st_size) > maximumBytes) throw PosixError(EFBIG, path);
    return std::size_t(info.st_size);
}

} // namespace

std::string readFile(const std::filesystem::path& path, std::size_t maximumBytes) {
    const FileDescriptor file = FileDescriptor::open(path, O_RDONLY | O_NONBLOCK);
    std::string bytes;
    bytes.reserve(plainFileSize(file, path, maximumBytes));
    char buffer[1 << 16];
    for (;;) {
        const ssize_t count = ::read(file.get(), buffer, sizeof buffer);
        if (count == 0) return bytes;
        if (count < 0) {
            if (errno == EINTR) continue;
            throw PosixError::fromErrno(path);
        }
        // The file may grow while it is read.
        if (std::size_t(count) > maximumBytes - bytes.size()) throw PosixError(EFBIG, path);
        bytes.append(buffer, std::size_t(count));
    }
}

} // namespace ovik
