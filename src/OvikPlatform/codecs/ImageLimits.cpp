#include "OvikPlatform/codecs/ImageLimits.h"

#include <string>

#include "OvikPlatform/codecs/ImageCodecError.h"

namespace ovik::ImageLimits {

void require(std::int64_t width, std::int64_t height, std::string_view format) {
    if (width > 0 && height > 0 && width <= maximumSide && height <= maximumSide && width * height <= maximumPixels)
        return;
    throw ImageCodecError(std::string(format) + " of " + std::to_string(width) + " × " + std::to_string(height) +
                          " pixels is outside the limits");
}

} // namespace ovik::ImageLimits
