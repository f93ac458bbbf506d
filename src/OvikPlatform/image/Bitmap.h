#pragma once
// A rendered bitmap of four samples a pixel (RGBA), top row first, rows packed: 16-bit samples
// are sRGB-encoded and premultiplied like an 8-bit `CGImage`; float samples are the working
// pixels themselves (linear extended sRGB, premultiplied).
#include <cstdint>
#include <vector>

namespace ovik {

template <class Sample>
struct Bitmap {
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::vector<Sample> pixels;

    /// The four samples of pixel (x, y), y counted from the top row.
    const Sample* at(std::int64_t x, std::int64_t y) const { return pixels.data() + 4 * (y * width + x); }
};

using Bitmap16 = Bitmap<std::uint16_t>;
using BitmapFloat = Bitmap<float>;

} // namespace ovik
