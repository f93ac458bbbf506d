#pragma once
// A finished bitmap: premultiplied RGBA, 8 bits a channel, rows `bytesPerRow` apart, top row
// first. It is made once and never changed, so it is shared freely between threads.
#include <cstdint>
#include <vector>

namespace ovik {

class CGImage {
public:
    /// Throws `std::invalid_argument` when the rows don't fit: a negative size, rows shorter
    /// than four bytes a pixel, or fewer bytes than `height` rows need.
    CGImage(std::int64_t width, std::int64_t height, std::int64_t bytesPerRow, std::vector<std::uint8_t> pixels);

    std::int64_t width() const { return width_; }
    std::int64_t height() const { return height_; }
    std::int64_t bytesPerRow() const { return bytesPerRow_; }
    const std::vector<std::uint8_t>& pixels() const { return pixels_; }

private:
    std::int64_t width_;
    std::int64_t height_;
    std::int64_t bytesPerRow_;
    std::vector<std::uint8_t> pixels_;
};

} // namespace ovik
