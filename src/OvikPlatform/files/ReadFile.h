#pragma once
// Reading a whole file into memory, with a typed error.
#include <filesystem>
#include <string>

namespace ovik {

/// The bytes of the file at `path`. Throws `PosixError` when it can't be opened or read,
/// also when it is a folder.
std::string readFile(const std::filesystem::path& path);

} // namespace ovik
