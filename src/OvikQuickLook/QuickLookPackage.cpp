#include "OvikQuickLook/QuickLookPackage.h"

#include <algorithm>
#include <set>

#include "OvikModel/draft/LUTFiles.h"
#include "OvikModel/draft/PicturePaths.h"
#include "OvikPlatform/files/ReadFile.h"
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

void appendMediaPaths(const Draft& draft, std::vector<PackagePath>& out) {
    for (const Media& media : draft.media) {
        if (const auto* shot = std::get_if<MediaSource::screenshot>(&media.source.cases)) {
            out.push_back(shot->value.image);
        } else if (const auto* recording = std::get_if<MediaSource::recording>(&media.source.cases)) {
            for (const Segment& segment : recording->value.segments) out.push_back(segment.movie);
            if (recording->value.events) out.push_back(*recording->value.events);
        }
    }
}

// Pictures and other files of the object tree and the style, each once, in text order.
void appendPicturePaths(const Draft& draft, std::vector<PackagePath>& out) {
    const std::set<PackagePath> paths = picturePaths(draft);
    out.insert(out.end(), paths.begin(), paths.end());
}

void appendFontPaths(const Draft& draft, std::vector<PackagePath>& out) {
    std::vector<PackagePath> fonts;
    for (const DraftFont& font : draft.fonts) fonts.push_back(font.file);
    std::sort(fonts.begin(), fonts.end(), [](const auto& a, const auto& b) { return a.relative < b.relative; });
    out.insert(out.end(), fonts.begin(), fonts.end());
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
    std::string prefix = root.string();
    if (prefix.empty() || prefix.back() != '/') prefix += '/';
    return resolvedText(url).rfind(prefix, 0) == 0;
}

QuickLookPackage QuickLookPackage::open(const std::filesystem::path& url) {
    const std::string rootText = resolvedText(std::filesystem::absolute(url));
    std::error_code error;
    if (rootText.empty() || !std::filesystem::is_directory(rootText, error)) throw QuickLookFailure();
    const std::filesystem::path root(rootText);
    const std::filesystem::path file = root / "draft.json";
    if (!isInside(file, root)) throw QuickLookFailure();
    Draft draft;
    try {
        draft = decodeJSON<Draft>(std::string_view(readFile(file)));
    } catch (const std::exception&) {
        throw QuickLookFailure();
    }
    for (const PackagePath& path : paths(draft))
        if (!isInside(root / path.relative, root)) throw QuickLookFailure();
    return QuickLookPackage{root, DraftDocument{std::move(draft), root}};
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

std::vector<PackagePath> QuickLookPackage::paths(const Draft& draft) {
    std::vector<PackagePath> out;
    appendMediaPaths(draft, out);
    appendPicturePaths(draft, out);
    appendFontPaths(draft, out);
    const std::vector<PackagePath> luts = lutFiles(draft);
    out.insert(out.end(), luts.begin(), luts.end());
    return out;
}

} // namespace ovik
