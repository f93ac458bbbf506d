#include "OvikQuickLook/QuickLookPackage.h"

#include <algorithm>

#include "OvikDrafts/FileDraftStore.h"
#include "OvikDrafts/LocalizedDescription.h"
#include "OvikPlatform/files/ResolvedPath.h"
#include "OvikQuickLook/QuickLookError.h"

namespace ovik {
namespace {

std::string resolvedText(const std::filesystem::path& url) {
    try {
        return resolvedPath(url).string();
    } catch (const Error&) {
        return {};
    }
}

// The test by text, on a candidate already resolved.
bool startsBelow(const std::filesystem::path& candidate, const std::filesystem::path& root) {
    std::string prefix = root.string();
    if (prefix.empty() || prefix.back() != '/') prefix += '/';
    return candidate.string().rfind(prefix, 0) == 0;
}

bool isNonEmptyFile(const std::filesystem::path& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    return !error && size > 0;
}

bool hasExtension(const std::string& name, std::string_view extension) {
    const std::string found = std::filesystem::path(name).extension().string();
    if (found.size() != extension.size() + 1) return false;
    return std::equal(extension.begin(), extension.end(), found.begin() + 1,
                      [](char a, char b) { return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b)); });
}

std::vector<std::string> sortedNames(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (std::filesystem::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
        names.push_back(it->path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

bool QuickLookPackage::isInside(const std::filesystem::path& url, const std::filesystem::path& root) {
    const std::string resolved = resolvedText(url);
    return !resolved.empty() && startsBelow(resolved, root);
}

QuickLookPackage QuickLookPackage::open(const std::filesystem::path& url) {
    try {
        // A root that is no folder has no draft file to read.
        DraftDocument document = FileDraftStore::open(url, startsBelow);
        return QuickLookPackage{document.packageURL, std::move(document)};
    } catch (const std::exception& error) {
        throw QuickLookFailure(localizedDescription(error));
    }
}

std::optional<std::filesystem::path> QuickLookPackage::render(const RenderKey& key, std::string_view fileExtension,
                                                              const std::optional<std::string>& fileName) const {
    const std::filesystem::path folder = root / ("renders/" + key.rawValue) / "";
    // A renders folder or key folder that links elsewhere is refused before it is listed.
    if (!isInside(folder / "x", root)) return std::nullopt;
    for (const std::string& name : sortedNames(folder)) {
        if (name.empty() || name[0] == '.' || !hasExtension(name, fileExtension)) continue;
        if (fileName && name != *fileName) continue;
        const std::filesystem::path candidate = folder / name;
        if (isInside(candidate, root) && isNonEmptyFile(candidate)) return candidate;
    }
    return std::nullopt;
}

} // namespace ovik
