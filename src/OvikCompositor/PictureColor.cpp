#include "OvikCompositor/PictureColor.h"

#include <algorithm>
#include <cmath>

namespace ovik {
namespace {

double unit(double x) { return std::isfinite(x) ? std::clamp(x, 0.0, 1.0) : 0; }

} // namespace

ImageColor pictureColor(const RGBA& color) {
    return {unit(color.red), unit(color.green), unit(color.blue), unit(color.alpha)};
}

} // namespace ovik
