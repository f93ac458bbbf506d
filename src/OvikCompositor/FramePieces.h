#pragma once
// The cut of a device drawing into pieces around its screen, so that the large screen area in
// the middle, which the content covers anyway, is never rasterised.
//
// The pieces tile the device's bounds, grown by a pixel and made whole: a band above the
// screen and one below it across the whole width, and a strip left and right between them.
// Where the screen's corners round, the cut keeps ceil(radius) + 1 pixels more of the drawing
// on every side; a square screen keeps none. The hole's edges are whole pixels, rounded
// inwards. A piece narrower or lower than a pixel is left out.
#include <vector>

#include "OvikCompositor/DeviceGeometry.h"

namespace ovik {

struct FramePieces {
    std::vector<CGRect> pieces;
    /// What the pieces leave uncovered; without area when the device is too small for a hole.
    CGRect screen;

    bool operator==(const FramePieces&) const = default;
};

/// The pieces of a device; none, with an empty screen, when nothing can be drawn.
FramePieces framePieces(const DeviceGeometry& device);

} // namespace ovik
