#pragma once
// The look files that a draft's effect stacks refer to: every `lut` effect names its table by
// the SHA-256 of the file copied into the package, "luts/<sha256>.cube".
#include <vector>

#include "OvikModel/PackagePath.h"

namespace ovik {

struct Draft;

/// Of the style's look, every media's and object's effects and every section's look; each
/// once, sorted by path text.
std::vector<PackagePath> lutFiles(const Draft& draft);

} // namespace ovik
