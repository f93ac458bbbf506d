#pragma once
// Reading a whole file into memory, with a typed error. Only plain files are read: a FIFO or
// a device could block the reader or never end, so it is refused without waiting.
#include <cstddef>
#include <filesystem>
#include <limits>
#include <string>

namespace ovik {

/// The bytes of the file at `path`. Throws `PosixError` when it can't be opened or read:
/// EISDIR for a folder, ENXIO for any other file that isn't a plain file, EFBIG when it holds
/// more than `maximumBytes`.
std::string readFile(const std::filesystem::path& path,
                     std::size_t maximumBytes = std::numeric_limits<std::size_t>::max());

} // namespace ovik
