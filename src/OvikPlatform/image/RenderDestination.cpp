#include "OvikPlatform/image/RenderDestination.h"

#include <algorithm>
#include <stdexcept>

#include "OvikPlatform/image/CGImage.h"

namespace ovik {

RenderDestination::RenderDestination(std::uint8_t* pixels, std::int64_t width, std::int64_t height,
                                     std::int64_t bytesPerRow)
    : pixels_(pixels), width_(width), height_(height), bytesPerRow_(bytesPerRow) {
    if (!pixels) throw std::invalid_argument("a render destination needs pixels");
    if (width < 1 || height < 1)
        throw std::invalid_argument("a render destination needs a width and height of 1 or more");
    if (bytesPerRow / 4 < width) throw std::invalid_argument("the rows of a render destination are too short");
}

void RenderDestination::write(const CGImage& image) const {
    if (image.width() != width_ || image.height() != height_)
        throw std::invalid_argument("the image and the render destination differ in size");
    const std::uint8_t* from = image.pixels().data();
    for (std::int64_t y = 0; y < height_; ++y)
        std::copy_n(from + y * image.bytesPerRow(), 4 * width_, pixels_ + y * bytesPerRow_);
}

} // namespace ovik
