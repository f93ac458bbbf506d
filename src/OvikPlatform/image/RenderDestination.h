#pragma once
// A caller's bitmap that a render is written into: premultiplied 8-bit sRGB RGBA, top row
// first, rows `bytesPerRow` apart; the layout of a `CGImage`, so a render lands row by row
// with no conversion. The destination never owns its pixels; the caller keeps them alive and
// unshared while a render writes.
#include <cstdint>

namespace ovik {

class CGImage;

class RenderDestination {
public:
    /// Throws `std::invalid_argument` when the rows can't hold the pixels: no pixels, a side
    /// below 1, or rows shorter than four bytes a pixel.
    RenderDestination(std::uint8_t* pixels, std::int64_t width, std::int64_t height, std::int64_t bytesPerRow);

    std::int64_t width() const { return width_; }
    std::int64_t height() const { return height_; }

    /// Replaces every pixel with the image's; throws `std::invalid_argument` when the sizes
    /// differ.
    void write(const CGImage& image) const;

private:
    std::uint8_t* pixels_;
    std::int64_t width_;
    std::int64_t height_;
    std::int64_t bytesPerRow_;
};

} // namespace ovik
