#include "OvikPlatform/codecs/Premultiply.h"

namespace ovik {

void premultiply(std::span<std::uint8_t> rgba) {
    for (std::size_t i = 0; i + 3 < rgba.size(); i += 4) {
        const unsigned alpha = rgba[i + 3];
        if (alpha == 255) continue;
        for (std::size_t c = 0; c < 3; ++c) rgba[i + c] = std::uint8_t((rgba[i + c] * alpha + 127) / 255);
    }
}

} // namespace ovik
