#pragma once
// Where a package path really leads, refused when it leaves its package. The candidate is
// resolved (links followed, also dangling ones, and ".." taken where the kernel takes it)
// before it is compared with the resolved root, so a ".." may wander inside the package but
// neither it, nor an absolute path, nor a link can reach outside.
#include <filesystem>

#include "OvikModel/PackagePath.h"
#include "OvikPlatform/Error.h"

namespace ovik {

class PackagePathError : public Error {
public:
    enum class Reason { absolute, outside, notAName };

    PackagePathError(Reason reason, PackagePath path);

    Reason reason() const { return reason_; }
    const PackagePath& path() const { return path_; }

private:
    Reason reason_;
    PackagePath path_;
};

namespace PackageContainment {

/// Whether the resolved `candidate` lies below the resolved `root`, the root itself not.
using Test = bool (*)(const std::filesystem::path& candidate, const std::filesystem::path& root);

/// The store's test: the components of `root` are a proper prefix of those of `candidate`.
bool isInside(const std::filesystem::path& candidate, const std::filesystem::path& root);

/// The real location of `path` in the package at the resolved `root`; the file need not
/// exist. Throws `PackagePathError` for a path that names no file, an absolute path or one that
/// `inside` refuses;
/// `PosixError` when a component can't be examined.
std::filesystem::path resolve(const std::filesystem::path& root, const PackagePath& path, Test inside = isInside);

} // namespace PackageContainment
} // namespace ovik
