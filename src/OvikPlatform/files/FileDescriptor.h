#pragma once
// An open file descriptor that closes itself: the one owner of a descriptor in our file code.
#include <filesystem>

namespace ovik {

class FileDescriptor {
public:
    /// open(2) with close-on-exec added. Throws `PosixError` naming `path`.
    static FileDescriptor open(const std::filesystem::path& path, int flags, unsigned mode = 0);

    FileDescriptor(FileDescriptor&& other) noexcept;
    FileDescriptor& operator=(FileDescriptor&& other) noexcept;
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    /// Closes without a report: a writer that cares learns of write errors from fsync.
    ~FileDescriptor();

    int get() const { return fd_; }
    /// Takes an exclusive advisory lock (flock) without waiting: false when another open file
    /// holds it, or when the lock can't be taken at all (errno tells which). It lasts until the
    /// descriptor is closed, and goes with the process however that ends.
    bool tryLock() const noexcept;

private:
    explicit FileDescriptor(int fd) : fd_(fd) {}
    int fd_ = -1;
};

} // namespace ovik
