#pragma once
// The pictures of the drawn devices: the laptop, the phone and the browser window of a
// `DeviceGeometry`, painted back to front in sRGB, then a black shape where the screen goes
// (a rounded one on the phone, a plain rectangle on the laptop; the browser's content area
// stays clear). The laptop's notch, which has no shape of its own, is a groove with its
// bottom corners rounded by half its height. Vertical gradients run from their first colour at
// the top to their last at the bottom.
//
// A geometry without a device, or with a size that isn't a positive finite number, draws
// nothing.
#include <optional>
#include <utility>

#include "OvikCompositor/DeviceGeometry.h"
#include "OvikPlatform/image/CGImage.h"

namespace ovik {

class CGContext;

class DeviceFrameDrawing {
public:
    /// Whether there is a device to draw: a kind other than `none` and sizes that are finite,
    /// the content's positive.
    static bool isDrawable(const DeviceGeometry& device);

    /// Draws the device in its own coordinates: the content at (0, 0, width, height), y up.
    static void draw(const DeviceGeometry& device, CGContext& context);

    /// A bitmap of the part of the drawing within `piece` (whole pixels from the piece's
    /// origin, its size rounded up); 0 by 0 for a piece without area. Throws `RenderFailure`
    /// when the piece is larger than a bitmap may be.
    static CGImage rasterizePiece(const DeviceGeometry& device, CGRect piece);

    /// What lies over the picture: a phone's island, black, in a bitmap of its rectangle grown
    /// by a pixel and made whole. Nothing for other devices and for a phone lying on its side.
    static std::optional<std::pair<CGRect, CGImage>> island(const DeviceGeometry& device);
};

} // namespace ovik
