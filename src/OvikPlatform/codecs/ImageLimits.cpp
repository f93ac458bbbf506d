#include "OvikPlatform/codecs/ImageLimits.h"

#include <string>

#include "OvikPlatform/codecs/ImageCodecError.h"

namespace ovik::ImageLimits {

void require(std::int64_t width, std::int64_t height, std::string_view format) {
    require(width, height, maximumSide, format);
}

void require(std::int64_t width, std::int64_t height, std::int64_t longSide, std::string_view format) {
    if (width > 0 && height > 0 && width <= maximumSide && height <= maximumSide && width * height <= pixelsFor(longSide))
        return;
    throw ImageCodecError(std::string(format) + " of " + std::to_string(width) + " × " + std::to_string(height) +
                          " pixels is outside the limits");
}

} // namespace ovik::ImageLimits
