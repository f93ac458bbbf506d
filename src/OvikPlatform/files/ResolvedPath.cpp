#include "OvikPlatform/files/ResolvedPath.h"

#include <cerrno>
#include <deque>
#include <sys/stat.h>
#include <unistd.h>

#include "OvikPlatform/files/PosixError.h"

namespace ovik {
namespace {

// The kernel's own limit on links followed in one lookup.
constexpr int maximumLinks = 40;

void prependComponents(std::deque<std::string>& pending, const std::filesystem::path& path) {
    std::deque<std::string> components;
    for (const auto& component : path.relative_path()) components.push_back(component.string());
    pending.insert(pending.begin(), components.begin(), components.end());
}

std::filesystem::path linkTarget(const std::filesystem::path& link) {
    std::string buffer(256, '\0');
    for (;;) {
        const ssize_t length = ::readlink(link.c_str(), buffer.data(), buffer.size());
        if (length < 0) throw PosixError::fromErrno(link);
        if (std::size_t(length) < buffer.size()) return buffer.substr(0, std::size_t(length));
        buffer.resize(buffer.size() * 2);
    }
}

bool isLink(const std::filesystem::path& path) {
    struct stat info {};
    if (::lstat(path.c_str(), &info) == 0) return S_ISLNK(info.st_mode);
    if (errno == ENOENT || errno == ENOTDIR) return false;
    throw PosixError::fromErrno(path);
}

} // namespace

std::filesystem::path resolvedPath(const std::filesystem::path& path) {
    std::deque<std::string> pending;
    prependComponents(pending, path.is_absolute() ? path : std::filesystem::current_path() / path);
    std::filesystem::path result = "/";
    int linksFollowed = 0;
    while (!pending.empty()) {
        const std::string component = std::move(pending.front());
        pending.pop_front();
        if (component.empty() || component == ".") continue;
        if (component == "..") {
            result = result.parent_path();
            continue;
        }
        std::filesystem::path next = result / component;
        if (!isLink(next)) {
            result = std::move(next);
            continue;
        }
        if (++linksFollowed > maximumLinks) throw PosixError(ELOOP, path);
        const std::filesystem::path target = linkTarget(next);
        if (target.is_absolute()) result = "/";
        prependComponents(pending, target);
    }
    return result;
}

} // namespace ovik
