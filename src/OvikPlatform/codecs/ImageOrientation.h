#pragma once
// How a stored picture is turned to be shown, numbered as in EXIF: 1 is upright, 3 half a
// turn, 6 a quarter turn clockwise, 8 a quarter turn anticlockwise; 2, 4, 5 and 7 mirror.
#include <cstdint>

#include "OvikPlatform/image/CGImage.h"

namespace ovik {

enum class ImageOrientation : std::uint8_t {
    up = 1,
    upMirrored = 2,
    down = 3,
    downMirrored = 4,
    leftMirrored = 5,
    right = 6,
    rightMirrored = 7,
    left = 8,
};

/// The orientation of `turns` quarter turns clockwise; any whole number of turns.
ImageOrientation orientationOfTurns(std::int64_t turns);

/// Whether showing the picture swaps its width and height.
bool swapsSides(ImageOrientation orientation);

/// The picture as it is to be shown.
CGImage oriented(CGImage stored, ImageOrientation orientation);

} // namespace ovik
