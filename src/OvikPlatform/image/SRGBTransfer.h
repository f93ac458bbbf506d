#pragma once
// The sRGB transfer function, extended to the whole number line by odd symmetry, and the
// conversions between stored bitmaps (8- and 16-bit, sRGB-encoded, premultiplied in encoded
// values) and working pixels (linear, premultiplied). A stored colour is the straight colour,
// encoded, times the alpha as stored, rounded; so every 8-bit pixel comes back unchanged. The
// 8-bit paths go through tables built from the exact function: the same codes, only faster.
#include <cstdint>

#include "OvikPlatform/image/Pixel.h"

namespace ovik {

class SRGBTransfer {
public:
    static double toLinear(double encoded);
    static double toEncoded(double linear);

    /// A stored 8-bit pixel as a working pixel; colour above alpha is held at alpha.
    static Pixel decode8(std::uint8_t r, std::uint8_t g, std::uint8_t b, std::uint8_t a);
    /// The stored 8-bit pixel; straight components are held within 0...1.
    static void encode8(const Pixel& pixel, std::uint8_t* rgba);
    /// `count` pixels in a row, with the tables looked up once.
    static void encodeRow8(const Pixel* pixels, std::int64_t count, std::uint8_t* rgba);
    static void encode16(const Pixel& pixel, std::uint16_t* rgba);
    /// The 8-bit code of an opaque linear component: round(255 × toEncoded(x)) for x in 0...1.
    static std::uint8_t encodeOpaque8(float linear);
};

} // namespace ovik
