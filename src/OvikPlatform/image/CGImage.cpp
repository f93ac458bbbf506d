#include "OvikPlatform/image/CGImage.h"

#include <stdexcept>

namespace ovik {
namespace {

constexpr std::int64_t bytesPerPixel = 4;

bool rowsFit(std::int64_t width, std::int64_t height, std::int64_t bytesPerRow, std::size_t byteCount) {
    if (width < 0 || height < 0 || bytesPerRow < 0) return false;
    if (width > bytesPerRow / bytesPerPixel) return false;
    // Divided rather than multiplied, so that a huge size can't overflow into a pass.
    return height == 0 || bytesPerRow == 0 || std::uint64_t(height) <= byteCount / std::uint64_t(bytesPerRow);
}

} // namespace

CGImage::CGImage(std::int64_t width, std::int64_t height, std::int64_t bytesPerRow, std::vector<std::uint8_t> pixels)
    : width_(width), height_(height), bytesPerRow_(bytesPerRow), pixels_(std::move(pixels)) {
    if (!rowsFit(width_, height_, bytesPerRow_, pixels_.size()))
        throw std::invalid_argument("CGImage: the pixel rows don't fit the given size");
}

} // namespace ovik
