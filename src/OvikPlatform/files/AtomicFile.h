#pragma once
// Replacing a file so that a reader sees the old bytes or the new ones, never a mixture: a
// hidden temporary file beside the target, fsync, rename, fsync of the folder. And claiming a
// name without a race: a rename that refuses to replace anything.
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

namespace ovik::AtomicFile {

/// Writes `data` to `target` atomically. Throws `PosixError`; on failure the temporary file
/// is gone and an existing target is untouched.
void write(std::string_view data, const std::filesystem::path& target);
void write(const std::vector<std::uint8_t>& data, const std::filesystem::path& target);

/// "." + the target's name + "." + a new UUID + ".tmp", in the target's folder.
std::filesystem::path temporaryURL(const std::filesystem::path& beside);

/// Renames `temporary` onto `url` in one step and makes the folder's new entry durable.
/// Throws `PosixError`.
void replace(const std::filesystem::path& url, const std::filesystem::path& temporary);

/// Moves `source` to `destination` unless something is there already: false when the
/// destination is taken and nothing moved. Other failures throw `PosixError`.
bool moveExclusively(const std::filesystem::path& source, const std::filesystem::path& destination);

} // namespace ovik::AtomicFile
