#pragma once
// Every file a draft refers to, which opening a package holds inside it: the media files (a
// screenshot's picture; a recording's movies, then its events), then the pictures of objects
// and style in text order, then the fonts and then the look tables, each sorted by text.
#include <vector>

#include "OvikModel/PackagePath.h"

namespace ovik {

struct Draft;

std::vector<PackagePath> draftPaths(const Draft& draft);

} // namespace ovik
