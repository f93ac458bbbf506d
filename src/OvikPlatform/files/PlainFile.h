#pragma once
// A plain file opened for reading, checked on its descriptor. A FIFO or a device could block
// the reader or never end, so anything else is refused without waiting; judging the opened
// descriptor rather than a separate look-up means the file checked is the file read.
#include <cstdint>
#include <filesystem>

#include "OvikPlatform/files/FileDescriptor.h"

namespace ovik {

struct PlainFile {
    FileDescriptor descriptor;
    /// The size when it was opened.
    std::uintmax_t size = 0;

    /// Throws `PosixError` when it can't be opened: EISDIR for a folder, ENXIO for any other
    /// file that isn't a plain file.
    static PlainFile open(const std::filesystem::path& path);
};

} // namespace ovik
