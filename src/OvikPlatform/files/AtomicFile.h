#pragma once
// Replacing a file so that a reader sees the old bytes or the new ones, never a mixture: a
// hidden temporary file beside the target, fsync, rename, fsync of the folder. And claiming a
// name without a race: a rename that refuses to replace anything. And clearing away the
// temporary files of writes that were killed before their rename.
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

namespace ovik::AtomicFile {

/// Writes `data` to `target` atomically. A symbolic link at `target` is followed and the file
/// it leads to is replaced, the link kept. Throws `PosixError`: EISDIR for a folder, ENXIO for
/// anything else that isn't a plain file (a FIFO, a socket, a device), both refused before
/// anything is made; on any failure the temporary file is gone and an existing target is
/// untouched.
void write(std::string_view data, const std::filesystem::path& target);
void write(const std::vector<std::uint8_t>& data, const std::filesystem::path& target);

/// "." + the target's name + "." + a new UUID + ".tmp", in the target's folder.
std::filesystem::path temporaryURL(const std::filesystem::path& beside);

/// Removes from `folder` (not below it) what interrupted writes left: plain files with a
/// temporary name, unchanged for `minimumAge`, whose writer no longer holds them. A write holds
/// its temporary file locked until its rename, and the lock goes with a killed process; the
/// age covers the instant between making the file and locking it. Failures are dropped: a
/// leftover that stays is tried again by the next sweep.
void removeLeftovers(const std::filesystem::path& folder, std::chrono::seconds minimumAge);

/// Renames `temporary` onto `url` in one step and makes the folder's new entry durable.
/// Throws `PosixError`.
void replace(const std::filesystem::path& url, const std::filesystem::path& temporary);

/// Moves `source` to `destination` unless something is there already: false when the
/// destination is taken and nothing moved. Other failures throw `PosixError`.
bool moveExclusively(const std::filesystem::path& source, const std::filesystem::path& destination);

} // namespace ovik::AtomicFile
