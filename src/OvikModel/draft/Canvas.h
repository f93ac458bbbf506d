#pragma once
// A plain surface of one colour that a section can show instead of captured media.
#include "OvikPlatform/json/JSONCoding.h"
#include "OvikModel/values/PixelSize.h"
#include "OvikModel/values/RGBA.h"

namespace ovik {

struct Canvas {
    PixelSize pixelSize;
    double scale = 1;
    RGBA color{0, 0, 0, 1};
    bool isTransparent = false;

    bool operator==(const Canvas&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("pixelSize", &Canvas::pixelSize), writtenAlways("scale", &Canvas::scale),
                          writtenAlways("color", &Canvas::color), defaulted("isTransparent", &Canvas::isTransparent)};
    }
};

} // namespace ovik
