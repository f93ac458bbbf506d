#pragma once
// A picture file of the package, placed in a frame.
#include "OvikPlatform/geometry/CGRect.h"
#include "OvikModel/PackagePath.h"

namespace ovik {

struct StickerAnnotation {
    CGRect frame;
    double rotation = 0;
    PackagePath image;

    bool operator==(const StickerAnnotation&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("frame", &StickerAnnotation::frame),
                          required("rotation", &StickerAnnotation::rotation),
                          required("image", &StickerAnnotation::image)};
    }
};

} // namespace ovik
