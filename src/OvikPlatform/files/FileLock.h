#pragma once
// An exclusive advisory lock on a file or folder, held for the life of the value: how the
// writers of one package, in any process, take turns.
#include <chrono>
#include <filesystem>

#include "OvikPlatform/files/FileDescriptor.h"

namespace ovik {

class FileLock {
public:
    /// Locks the file or folder at `path`, trying again until `wait` has passed. Throws
    /// `PosixError`: EWOULDBLOCK when another holder kept it all that time, or the failure of
    /// opening `path` or of the lock itself.
    static FileLock acquire(const std::filesystem::path& path, std::chrono::milliseconds wait);

private:
    explicit FileLock(FileDescriptor file) : file_(std::move(file)) {}
    FileDescriptor file_;
};

} // namespace ovik
