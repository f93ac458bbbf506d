#include "OvikPlatform/files/AtomicFile.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

#include "OvikPlatform/UUID.h"
#include "OvikPlatform/files/FileDescriptor.h"
#include "OvikPlatform/files/PosixError.h"

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

void writeNewFile(std::string_view data, const std::filesystem::path& path) {
    FileDescriptor file = FileDescriptor::open(path, O_WRONLY | O_CREAT | O_EXCL, 0666);
    writeAll(file, data, path);
    if (::fsync(file.get()) != 0) throw PosixError::fromErrno(path);
    file.close(path);
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
    const std::filesystem::path temporary = temporaryURL(target);
    try {
        writeNewFile(data, temporary);
        replace(target, temporary);
    } catch (const PosixError& error) {
        // A person asked for the target; the temporary file is ours and means nothing to them.
        (void)::unlink(temporary.c_str());
        throw PosixError(error.code(), target);
    } catch (...) {
        // The first error is the one that counts; a failed clean-up adds nothing to it.
        (void)::unlink(temporary.c_str());
        throw;
    }
}

void write(const std::vector<std::uint8_t>& data, const std::filesystem::path& target) {
    write(std::string_view(reinterpret_cast<const char*>(data.data()), data.size()), target);
}

std::filesystem::path temporaryURL(const std::filesystem::path& beside) {
    return beside.parent_path() / ("." + beside.filename().string() + "." + UUID::random().uuidString() + ".tmp");
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
