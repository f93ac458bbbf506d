#pragma once
// A stored colour as the image layer takes it: each component held to 0…1, anything not a
// number as 0, so that a damaged file never puts NaN into a picture.
#include "OvikModel/values/RGBA.h"
#include "OvikPlatform/image/ImageColor.h"

namespace ovik {

ImageColor pictureColor(const RGBA& color);

} // namespace ovik
