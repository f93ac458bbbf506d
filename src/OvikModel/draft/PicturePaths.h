#pragma once
// The picture files a draft's objects and style draw from: sticker pictures, the vector files
// objects came from, and the background picture. Each must stay inside the package; a frame
// decodes each once before drawing.
#include <set>

#include "OvikModel/PackagePath.h"

namespace ovik {

struct Draft;

std::set<PackagePath> picturePaths(const Draft& draft);

} // namespace ovik
