#pragma once
// Where the capture lies on the canvas: the shown part of the capture (its crop), the room the
// style's padding, aspect and device frame add round it, and the maps between capture points,
// canvas pixels and output pixels. Lengths are in capture pixels unless said otherwise; the
// canvas's y axis points up, the capture's down.
#include <map>
#include <optional>

#include "OvikModel/style/Style.h"
#include "OvikModel/values/Identifier.h"
#include "OvikModel/values/PixelSize.h"
#include "OvikPlatform/geometry/CGAffineTransform.h"
#include "OvikPlatform/geometry/CGRect.h"

namespace ovik {

struct Draft;

/// How far a device drawing reaches past the content on each side.
struct FrameInsets {
    double top = 0;
    double left = 0;
    double bottom = 0;
    double right = 0;
    bool operator==(const FrameInsets&) const = default;
};

struct CanvasLayout {
    PixelSize capturePixels;
    /// The part of the capture (y down) that is shown.
    CGRect sourceRect;
    /// The whole size of `sourceRect`.
    PixelSize contentPixels;
    CGSize canvasSize;
    /// The content on the canvas.
    CGRect contentRect;
    double cornerRadius = 0;
    double padding = 0;
    /// Capture pixels per point, always above 0.
    double sourceScale = 1;
    DeviceFrame deviceFrame = DeviceFrame::none;
    FrameInsets frameInsets;
    /// How far the content sits from the middle of the canvas.
    CGVector offCentre;
    /// Where the framed area lies in a canvas enlarged to show what lies outside the frame.
    std::optional<CGRect> backdrop;

    /// `crop`, `frame` and `outside` are in capture points; `frame` is the draft's own frame,
    /// `outside` what lies outside it that the canvas also shows.
    CanvasLayout(PixelSize capturePixels, double sourceScale, const Style& style, std::optional<CGRect> crop,
                 std::optional<CGRect> frame, std::optional<CGRect> outside);
    /// The layout of a draft's canvas.
    static CanvasLayout make(const Draft& draft);
    /// Where each media lands in the capture, in points (y down): the whole capture for a
    /// draft of one media.
    static std::map<MediaID, CGRect> landed(const Draft& draft);

    /// The output size at `canvasScale`; `even` sides (never below 2) suit video encoders.
    PixelSize pixelSize(double canvasScale, bool even) const;
    /// Where the content lands in an output of `outputSize` (default: the canvas at that
    /// scale), on whole pixels so that the picture is never resampled by a fraction.
    CGRect renderedContentRect(double canvasScale, std::optional<PixelSize> outputSize = std::nullopt) const;
    /// From capture points (y down) to output pixels (y down).
    CGAffineTransform objectTransform(double canvasScale, std::optional<PixelSize> outputSize = std::nullopt) const;
    /// The rendered content grown by the device frame.
    CGRect watermarkCard(double canvasScale, std::optional<PixelSize> outputSize = std::nullopt) const;
    /// The content grown by the device frame, on the canvas.
    CGRect frameRect() const;
    /// The backdrop, or the whole canvas, in capture points (y down).
    CGRect frameBounds() const;
    CGPoint capturePoint(CGPoint canvas) const;
    CGPoint canvasPoint(CGPoint capture) const;

    bool operator==(const CanvasLayout&) const = default;
};

} // namespace ovik
