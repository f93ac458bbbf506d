#pragma once
// Where a package path really leads, refused when it leaves its package. Both the root and
// the candidate are resolved (links followed, also dangling ones) before they are compared
// by components, so neither "..", nor an absolute path, nor a link can reach outside.
#include <filesystem>

#include "OvikModel/PackagePath.h"
#include "OvikPlatform/Error.h"

namespace ovik {

class PackagePathError : public Error {
public:
    enum class Reason { absolute, parentStep, outside };

    PackagePathError(Reason reason, PackagePath path);

    Reason reason() const { return reason_; }
    const PackagePath& path() const { return path_; }

private:
    Reason reason_;
    PackagePath path_;
};

namespace PackageContainment {

/// The real location of `path` in the package at `root`; the file need not exist. Throws
/// `PackagePathError` for a path that is absolute, has a ".." component, or leads (through a
/// link) to the root itself or outside it; `PosixError` when a component can't be examined.
std::filesystem::path resolve(const std::filesystem::path& root, const PackagePath& path);

/// Whether the components of `root` are a proper prefix of those of `candidate`; both must
/// be resolved already.
bool isInside(const std::filesystem::path& candidate, const std::filesystem::path& root);

} // namespace PackageContainment
} // namespace ovik
