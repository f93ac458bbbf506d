#pragma once
// The real location of a path: absolute, with "." and ".." folded and every symbolic link
// resolved, also a link whose target doesn't exist. The part that doesn't exist is kept as
// written, so that a file about to be made can be checked before it is made.
#include <filesystem>

namespace ovik {

/// Throws `PosixError` when a component can't be examined, or on a loop of links (ELOOP).
std::filesystem::path resolvedPath(const std::filesystem::path& path);

} // namespace ovik
