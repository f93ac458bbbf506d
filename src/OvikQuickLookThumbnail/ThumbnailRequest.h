#pragma once
// What a host asks: a package, the largest size it will show in points, and its screen scale.
#include <filesystem>

#include "OvikPlatform/geometry/CGPoint.h"

namespace ovik {

struct ThumbnailRequest {
    std::filesystem::path fileURL;
    CGSize maximumSize;
    double scale = 1;
};

} // namespace ovik
