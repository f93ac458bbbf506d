#include "OvikDrafts/DraftPackage.h"

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>

#include "OvikPlatform/files/PosixError.h"

namespace ovik::DraftPackage {
namespace {

std::string mediaFolderText(const MediaID& id) { return std::string(mediaFolder) + "/" + id.description(); }

bool isDirectory(const std::filesystem::path& url) {
    std::error_code error;
    return std::filesystem::is_directory(url, error);
}

bool isPackage(const std::filesystem::path& url) {
    std::string extension = url.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return char(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c); });
    return extension == "." + std::string(fileExtension);
}

void createDirectory(const std::filesystem::path& url) {
    if (isDirectory(url)) return;
    if (isPackage(url)) throw PosixError(ENOENT, url);
    const std::filesystem::path parent = url.parent_path();
    if (parent == url) throw PosixError(ENOENT, url);
    createDirectory(parent);
    if (::mkdir(url.c_str(), 0777) == 0) return;
    const int code = errno;
    // Another process may have made it meanwhile; that counts as done.
    if (!isDirectory(url)) throw PosixError(code, url);
}

// "/a/b/" and "/a/b" name the same folder; only the latter has a name and an extension.
std::filesystem::path withoutTrailingSeparators(const std::filesystem::path& url) {
    std::filesystem::path absolute = std::filesystem::absolute(url);
    while (!absolute.has_filename() && absolute.has_relative_path()) absolute = absolute.parent_path();
    return absolute;
}

} // namespace

PackagePath mediaFolderFor(const MediaID& id) { return PackagePath{mediaFolderText(id)}; }
PackagePath screenshotPathFor(const MediaID& id) { return PackagePath{mediaFolderText(id) + "/screenshot.png"}; }
PackagePath eventsPathFor(const MediaID& id) { return PackagePath{mediaFolderText(id) + "/events.json"}; }

void createOutputDirectory(const std::filesystem::path& url) { createDirectory(withoutTrailingSeparators(url)); }

} // namespace ovik::DraftPackage
