#pragma once
// A platform image held by a record: shared, never changed, compared by identity. It has no
// JSON form; records that hold one build it from their stored data.
#include <memory>

#include "OvikModel/values/PixelSize.h"
#include "OvikPlatform/image/CGImage.h"

namespace ovik {

struct ImageBox {
    std::shared_ptr<const CGImage> cgImage;

    /// The image's width and height; zero when there is none.
    PixelSize pixelSize() const {
        return cgImage ? PixelSize{cgImage->width(), cgImage->height()} : PixelSize{};
    }

    bool operator==(const ImageBox&) const = default;
};

} // namespace ovik
