#include "OvikPlatform/files/ReadFile.h"

#include <cerrno>
#include <unistd.h>

#include "OvikPlatform/files/PlainFile.h"
#include "OvikPlatform/files/PosixError.h"

namespace ovik {

std::string readFile(const std::filesystem::path& path, std::size_t maximumBytes) {
    const PlainFile file = PlainFile::open(path);
    if (file.size > maximumBytes) throw PosixError(EFBIG, path);
    std::string bytes;
    bytes.reserve(std::size_t(file.size));
    char buffer[1 << 16];
    for (;;) {
        const ssize_t count = ::read(file.descriptor.get(), buffer, sizeof buffer);
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
