#pragma once
// Pictures of four coloured quadrants, the pattern the decoder tests read back: red, green
// over blue, white.
#include <cstdlib>

#include "OvikPlatform/media/PictureDifference.h"

namespace ovik::testing {

constexpr RGBA red{255, 0, 0, 255}, green{0, 255, 0, 255}, blue{0, 0, 255, 255}, white{255, 255, 255, 255};

/// The worst channel error over the inner part of each quadrant, away from edges that lossy
/// coding or reduction blurs.
inline int quadrantError(const CGImage& image, RGBA topLeft, RGBA topRight, RGBA bottomLeft, RGBA bottomRight) {
    const std::int64_t w = image.width(), h = image.height();
    int worst = 0;
    for (std::int64_t y = 0; y < h; ++y)
        for (std::int64_t x = 0; x < w; ++x) {
            const bool nearEdge = std::abs(2 * x + 1 - w) < w / 4 || std::abs(2 * y + 1 - h) < h / 4 || x < 2 ||
                                  y < 2 || x >= w - 2 || y >= h - 2;
            if (nearEdge) continue;
            const RGBA expected = y < h / 2 ? (x < w / 2 ? topLeft : topRight) : (x < w / 2 ? bottomLeft : bottomRight);
            worst = std::max(worst, channelError(pixelAt(image, x, y), expected));
        }
    return worst;
}

} // namespace ovik::testing
