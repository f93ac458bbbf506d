#include "OvikPlatform/files/PlainFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

#include "OvikPlatform/files/PosixError.h"

namespace ovik {

PlainFile PlainFile::open(const std::filesystem::path& path) {
    // Opening without waiting matters for a FIFO, whose open blocks until a writer comes.
    FileDescriptor file = FileDescriptor::open(path, O_RDONLY | O_NONBLOCK);
    struct stat info {};
    if (::fstat(file.get(), &info) != 0) throw PosixError::fromErrno(path);
    if (S_ISDIR(info.st_mode)) throw PosixError(EISDIR, path);
    if (!S_ISREG(info.st_mode)) throw PosixError(ENXIO, path);
    return PlainFile{std::move(file), std::uintmax_t(info.st_size)};
}

} // namespace ovik
