#pragma once
// A draft together with the folder of its package: what the store hands out and the
// compositor takes. A value: changing it touches nothing on disk until it is saved.
#include <filesystem>

#include "OvikModel/Draft.h"
#include "OvikModel/PackagePath.h"

namespace ovik {

struct DraftDocument {
    Draft draft;
    std::filesystem::path packageURL;

    /// The package folder + "/" + the path's text, as a file path; nothing else is checked.
    /// Throws `PosixError` (no such file) for a path that names no file.
    std::filesystem::path url(const PackagePath& path) const;

    bool operator==(const DraftDocument&) const = default;
};

} // namespace ovik
