#include "OvikDrafts/PackageContainment.h"

#include <algorithm>

#include "OvikL10n/L10n.h"
#include "OvikPlatform/files/ResolvedPath.h"

namespace ovik {
namespace {

std::string_view messageKey(PackagePathError::Reason reason) {
    switch (reason) {
    case PackagePathError::Reason::absolute: return "drafts.path.absolute";
    case PackagePathError::Reason::outside: return "drafts.path.outside";
    case PackagePathError::Reason::notAName: return "drafts.path.notAName";
    }
    return "drafts.path.outside";
}

} // namespace

PackagePathError::PackagePathError(Reason reason, PackagePath path)
    : Error(L10n::format(messageKey(reason), {path.printable()})), reason_(reason), path_(std::move(path)) {}

namespace PackageContainment {

bool isInside(const std::filesystem::path& candidate, const std::filesystem::path& root) {
    const auto rootLength = std::distance(root.begin(), root.end());
    const auto candidateLength = std::distance(candidate.begin(), candidate.end());
    return candidateLength > rootLength && std::equal(root.begin(), root.end(), candidate.begin());
}

std::filesystem::path resolve(const std::filesystem::path& root, const PackagePath& path, Test inside) {
    if (!path.namesAFile()) throw PackagePathError(PackagePathError::Reason::notAName, path);
    const std::filesystem::path relative(path.relative);
    if (relative.has_root_directory()) throw PackagePathError(PackagePathError::Reason::absolute, path);
    std::filesystem::path candidate = resolvedPath(root / relative);
    if (!inside(candidate, root)) throw PackagePathError(PackagePathError::Reason::outside, path);
    return candidate;
}

} // namespace PackageContainment
} // namespace ovik
