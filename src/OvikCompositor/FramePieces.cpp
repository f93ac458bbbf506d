#include "OvikCompositor/FramePieces.h"

#include <algorithm>
#include <cmath>

#include "OvikCompositor/DeviceFrameDrawing.h"
#include "OvikPlatform/image/ImageExtent.h"
#include "OvikPlatform/image/PixelRect.h"

namespace ovik {
namespace {

double screenCornerRadius(const DeviceGeometry& device) {
    switch (device.kind) {
    case DeviceFrame::iPhone: return DeviceGeometry::Phone(device.width, device.height).screenRadius;
    case DeviceFrame::browser:
        return DeviceGeometry::Browser(device.width, device.height, device.pixelsPerPoint, device.windowRadius).radius;
    case DeviceFrame::none:
    case DeviceFrame::macBook: break;
    }
    return 0;
}

struct Span {
    double low;
    double high;
};

// The whole pixels between low + inset and high - inset; where the two meet, an empty span in
// the middle, so that the pieces on either side still meet.
Span innerSpan(double low, double high, double inset) {
    const double middle = std::ceil((low + high) / 2);
    const double from = std::min(std::ceil(low + inset), middle);
    return {from, std::max(std::floor(high - inset), from)};
}

CGRect edges(double minX, double minY, double maxX, double maxY) { return CGRect{{minX, minY}, {maxX - minX, maxY - minY}}; }

} // namespace

FramePieces framePieces(const DeviceGeometry& device) {
    if (!DeviceFrameDrawing::isDrawable(device)) return {};
    const CGRect outer = PixelRect::covering(ImageExtent::grown(device.bounds(), 1, 1)).cgRect();
    const double radius = screenCornerRadius(device);
    const double allowance = radius > 0 ? std::ceil(radius) + 1 : 0;
    const Span across = innerSpan(0, device.width, allowance);
    const Span up = innerSpan(0, device.height, allowance);
    const CGRect cuts[] = {
        edges(outer.minX(), up.high, outer.maxX(), outer.maxY()),
        edges(outer.minX(), outer.minY(), outer.maxX(), up.low),
        edges(outer.minX(), up.low, across.low, up.high),
        edges(across.high, up.low, outer.maxX(), up.high),
    };
    FramePieces result;
    for (const CGRect& cut : cuts)
        if (cut.width() >= 1 && cut.height() >= 1) result.pieces.push_back(cut);
    result.screen = edges(across.low, up.low, across.high, up.high);
    return result;
}

} // namespace ovik
