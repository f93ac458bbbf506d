#pragma once
// A colour as a person picks it: sRGB-encoded components with straight (not premultiplied)
// alpha. Components may leave 0...1, as extended sRGB allows.
#include "OvikPlatform/image/Pixel.h"

namespace ovik {

struct ImageColor {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    static ImageColor white() { return {1, 1, 1, 1}; }
    static ImageColor black() { return {0, 0, 0, 1}; }
    static ImageColor clear() { return {0, 0, 0, 0}; }

    /// The working pixel: linear and premultiplied.
    Pixel working() const;
    bool isFinite() const;

    bool operator==(const ImageColor&) const = default;
};

} // namespace ovik
