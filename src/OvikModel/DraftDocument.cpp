#include "OvikModel/DraftDocument.h"

#include <cerrno>

#include "OvikPlatform/files/PosixError.h"

namespace ovik {

// Appended as text: `operator/` would let a path beginning with "/" replace the package.
std::filesystem::path DraftDocument::url(const PackagePath& path) const {
    if (!path.namesAFile()) throw PosixError(ENOENT, path.printable());
    if (path.relative.empty()) return packageURL;
    std::string text = packageURL.string();
    if (text.empty() || text.back() != '/') text += '/';
    return text + path.relative;
}

} // namespace ovik
