#include "OvikPlatform/files/FileDescriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

#include "OvikPlatform/files/PosixError.h"

namespace ovik {

FileDescriptor FileDescriptor::open(const std::filesystem::path& path, int flags, unsigned mode) {
    int fd;
    do fd = ::open(path.c_str(), flags | O_CLOEXEC, mode);
    while (fd < 0 && errno == EINTR);
    if (fd < 0) throw PosixError::fromErrno(path);
    return FileDescriptor(fd);
}

FileDescriptor::FileDescriptor(FileDescriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept {
    if (this != &other) {
        if (fd_ >= 0) (void)::close(fd_);
        fd_ = std::exchange(other.fd_, -1);
    }
    return *this;
}

FileDescriptor::~FileDescriptor() {
    if (fd_ >= 0) (void)::close(fd_);
}

bool FileDescriptor::tryLock() const noexcept {
    int result;
    do result = ::flock(fd_, LOCK_EX | LOCK_NB);
    while (result != 0 && errno == EINTR);
    return result == 0;
}

} // namespace ovik
