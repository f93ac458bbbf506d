#include "OvikDrafts/PackageContainment.h"

#include <algorithm>

#include "OvikL10n/L10n.h"
#include "OvikPlatform/files/ResolvedPath.h"

namespace ovik {
namespace {

std::string_view messageKey(PackagePathError::Reason reason) {
    switch (reason) {
    case PackagePathError::Reason::absolute: return "drafts.path.absolute";
    case PackagePathError::Reason::parentStep: return "drafts.path.parentStep";
    case PackagePathError::Reason::outside: return "drafts.path.outside";
    }
    return "drafts.path.outside";
}

bool hasParentStep(const std::filesystem::path& path) {
    return std::any_of(path.begin(), path.end(), [](const std::filesystem::path& c) { return c == ".."; });
}

} // namespace

PackagePathError::PackagePathError(Reason reason, PackagePath path)
    : Error(L10n::format(messageKey(reason), {path.relative})), reason_(reason), path_(std::move(path)) {}

namespace PackageContainment {

std::filesystem::path resolve(const std::filesystem::path& root, const PackagePath& path) {
    const std::filesystem::path relative(path.relative);
    if (relative.has_root_directory()) throw PackagePathError(PackagePathError::Reason::absolute, path);
    if (hasParentStep(relative)) throw PackagePathError(PackagePathError::Reason::parentStep, path);
    const std::filesystem::path resolvedRoot = resolvedPath(root);
    std::filesystem::path candidate = resolvedPath(resolvedRoot / relative);
    if (!isInside(candidate, resolvedRoot)) throw PackagePathError(PackagePathError::Reason::outside, path);
    return candidate;
}

bool isInside(const std::filesystem::path& candidate, const std::filesystem::path& root) {
    const auto rootLength = std::distance(root.begin(), root.end());
    const auto candidateLength = std::distance(candidate.begin(), candidate.end());
    return candidateLength > rootLength && std::equal(root.begin(), root.end(), candidate.begin());
}

} // namespace PackageContainment
} // namespace ovik
