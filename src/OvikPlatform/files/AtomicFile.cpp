#include "OvikPlatform/files/AtomicFile.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "OvikPlatform/UUID.h"
#include "OvikPlatform/files/FileDescriptor.h"
#include "OvikPlatform/files/PosixError.h"
#include "OvikPlatform/files/ResolvedPath.h"

namespace ovik::AtomicFile {
namespace {

void writeAll(const FileDescriptor& file, std::string_view data, const std::filesystem::path& path) {
    while (!data.empty()) {
        const ssize_t written = ::write(file.get(), data.data(), data.size());
        if (written < 0) {
            if (errno == EINTR) continue;
            throw PosixError::fromErrno(path);
        }
        data.remove_prefix(std::size_t(written));
    }
}

constexpr std::string_view temporarySuffix = ".tmp";
constexpr std::size_t uuidLength = 36;

// The file that a write to `target` replaces: what a link leads to. Only a plain file or
// nothing may be there; a rename would put the new file in the place of a device or FIFO.
std::filesystem::path replacedFile(const std::filesystem::path& target) {
    std::filesystem::path file = resolvedPath(target);
    struct stat status {};
    if (::lstat(file.c_str(), &status) != 0) {
        if (errno == ENOENT) return file;
        throw PosixError::fromErrno(target);
    }
    if (S_ISDIR(status.st_mode)) throw PosixError(EISDIR, target);
    if (!S_ISREG(status.st_mode)) throw PosixError(ENXIO, target);
    return file;
}

// Locked so that a sweep knows it is being written. A file system without locks still
// writes: the sweep's age test then stands alone.
FileDescriptor newLockedFile(const std::filesystem::path& path) {
    FileDescriptor file = FileDescriptor::open(path, O_WRONLY | O_CREAT | O_EXCL, 0666);
    (void)file.tryLock();
    return file;
}

bool isOlderThan(const struct stat& status, std::chrono::seconds age) {
    const auto changed = std::chrono::system_clock::time_point(std::chrono::seconds(status.st_mtim.tv_sec));
    return std::chrono::system_clock::now() - changed > age;
}

// Checked on the opened descriptor, so that what is removed is what was examined; a link is
// never followed and a FIFO never waited on.
void removeIfLeftover(const std::filesystem::path& path, std::chrono::seconds minimumAge) {
    FileDescriptor file = FileDescriptor::open(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
    struct stat status {};
    if (::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return;
    if (isOlderThan(status, minimumAge) && file.tryLock()) (void)::unlink(path.c_str());
}

// Whether `name` is one that `temporaryURL` gives: "." + at least one character + "." + UUID
// + ".tmp".
bool isTemporaryName(std::string_view name) {
    if (name.size() < 3 + uuidLength + temporarySuffix.size() || !name.starts_with('.') || !name.ends_with(temporarySuffix))
        return false;
    const std::string_view uuid = name.substr(name.size() - temporarySuffix.size() - uuidLength, uuidLength);
    const auto parsed = UUID::parse(uuid);
    return name[name.size() - temporarySuffix.size() - uuidLength - 1] == '.' && parsed && parsed->uuidString() == uuid;
}

// The rename has happened by then; a folder that can't be synced (some file systems refuse)
// must not turn a completed replacement into a reported failure.
void syncFolder(const std::filesystem::path& folder) {
    const int fd = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    (void)::fsync(fd);
    (void)::close(fd);
}

} // namespace

void write(std::string_view data, const std::filesystem::path& target) {
    const std::filesystem::path file = replacedFile(target);
    const std::filesystem::path temporary = temporaryURL(file);
    try {
        FileDescriptor written = newLockedFile(temporary);
        writeAll(written, data, target);
        if (::fsync(written.get()) != 0) throw PosixError::fromErrno(target);
        // fsync has reported any write error; the descriptor, with its lock, stays open
        // until the rename is done.
        replace(file, temporary);
    } catch (const PosixError& error) {
        // The first error is the one that counts; a failed clean-up adds nothing to it. It
        // names the file the caller asked for, never our temporary name.
        (void)::unlink(temporary.c_str());
        throw PosixError(error.code(), target);
    } catch (...) {
        (void)::unlink(temporary.c_str());
        throw;
    }
}

void write(const std::vector<std::uint8_t>& data, const std::filesystem::path& target) {
    write(std::string_view(reinterpret_cast<const char*>(data.data()), data.size()), target);
}

std::filesystem::path temporaryURL(const std::filesystem::path& beside) {
    return beside.parent_path() /
           ("." + beside.filename().string() + "." + UUID::random().uuidString() + std::string(temporarySuffix));
}

void removeLeftovers(const std::filesystem::path& folder, std::chrono::seconds minimumAge) {
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (!isTemporaryName(entry->path().filename().native())) continue;
        try {
            removeIfLeftover(entry->path(), minimumAge);
        } catch (const PosixError&) {
            // Gone already, or not ours to open: nothing to clear.
        }
    }
}

void replace(const std::filesystem::path& url, const std::filesystem::path& temporary) {
    if (std::rename(temporary.c_str(), url.c_str()) != 0) throw PosixError::fromErrno(url);
    syncFolder(url.parent_path());
}

bool moveExclusively(const std::filesystem::path& source, const std::filesystem::path& destination) {
    if (::renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, destination.c_str(), RENAME_NOREPLACE) == 0) return true;
    if (errno == EEXIST || errno == ENOTEMPTY) return false;
    throw PosixError::fromErrno(destination);
}

} // namespace ovik::AtomicFile
