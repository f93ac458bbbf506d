#pragma once
// A package opened for drawing: its draft read, and every file it names held to the package,
// so that nothing outside it is ever read.
#include <filesystem>

#include "OvikModel/DraftDocument.h"

namespace ovik::cli {

/// Throws the store's or the containment's error, with its message.
DraftDocument packageDocument(const std::filesystem::path& package);

} // namespace ovik::cli
