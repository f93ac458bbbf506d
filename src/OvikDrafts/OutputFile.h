#pragma once
// Writing a file that a person named, such as the PNG of a thumbnail or a render: atomically,
// following a link to the file it leads to, and refusing a folder, FIFO, socket or device.
#include <filesystem>
#include <string_view>

namespace ovik {

/// Throws `Error` with the localized message "Can't write “path”: " and the cause.
void writeOutputFile(std::string_view data, const std::filesystem::path& path);

} // namespace ovik
