#include "OvikPlatform/image/ImageColor.h"

#include <cmath>

#include "OvikPlatform/image/SRGBTransfer.h"

namespace ovik {

Pixel ImageColor::working() const {
    const Pixel straight{float(SRGBTransfer::toLinear(red)), float(SRGBTransfer::toLinear(green)),
                         float(SRGBTransfer::toLinear(blue)), float(alpha)};
    return straight.premultiplied();
}

bool ImageColor::isFinite() const {
    return std::isfinite(red) && std::isfinite(green) && std::isfinite(blue) && std::isfinite(alpha);
}

} // namespace ovik
