#include "OvikCompositor/CanvasLayout.h"

#include <algorithm>
#include <cmath>

#include "OvikCompositor/DeviceGeometry.h"
#include "OvikModel/Draft.h"
#include "OvikPlatform/image/ImageExtent.h"

namespace ovik {
namespace {

double positiveOr1(double x) { return x > 0 && std::isfinite(x) ? x : 1; }

CGRect scaled(const CGRect& r, double s) {
    return CGRect{{r.origin.x * s, r.origin.y * s}, {r.size.width * s, r.size.height * s}};
}

CGRect moved(const CGRect& r, double dx, double dy) {
    return CGRect{{r.origin.x + dx, r.origin.y + dy}, r.size};
}

// The smallest rectangle of whole numbers that holds `r`.
CGRect integral(const CGRect& r) {
    return ImageExtent::fromEdges(std::floor(r.minX()), std::floor(r.minY()), std::ceil(r.maxX()), std::ceil(r.maxY()));
}

bool hasFiniteEdges(const CGRect& r) {
    return std::isfinite(r.minX()) && std::isfinite(r.minY()) && std::isfinite(r.maxX()) && std::isfinite(r.maxY());
}

// The shown part of the capture: the crop in pixels when it leaves at least a pixel each way.
CGRect shownSource(const CGRect& capture, std::optional<CGRect> crop, double scale) {
    if (!crop) return capture;
    const CGRect cut = ImageExtent::intersection(integral(scaled(crop->standardized(), scale)), capture);
    if (ImageExtent::isNull(cut) || cut.width() < 1 || cut.height() < 1) return capture;
    return cut;
}

FrameInsets insetsOf(DeviceFrame frame, double W, double H, double scale) {
    if (frame == DeviceFrame::none || W < 1 || H < 1) return {};
    const CGRect bounds = DeviceGeometry{frame, W, H, scale, 0}.bounds();
    return {bounds.maxY() - H, -bounds.minX(), -bounds.minY(), bounds.maxX() - W};
}

// The canvas in content coordinates (content at the origin, y down): the draft's own frame,
// or the content with its device and padding, widened or heightened to the style's aspect.
CGRect canvasRect(std::optional<CGRect> frame, const CGRect& source, double scale, double W, double H, double padding,
                  const FrameInsets& in, const AspectRatio& aspect) {
    if (frame && frame->width() > 0 && frame->height() > 0 && std::isfinite(frame->origin.x) &&
        std::isfinite(frame->origin.y)) {
        const CGRect r = moved(scaled(frame->standardized(), scale), -source.minX(), -source.minY());
        const double x = std::round(r.minX()), y = std::round(r.minY());
        return CGRect{{x, y}, {std::max(std::round(r.maxX()) - x, 1.0), std::max(std::round(r.maxY()) - y, 1.0)}};
    }
    CGRect r{{-(padding + in.left), -(padding + in.top)},
             {in.left + W + in.right + 2 * padding, in.top + H + in.bottom + 2 * padding}};
    const auto* ratio = std::get_if<AspectRatio::ratio>(&aspect.cases);
    if (ratio && ratio->width >= 1 && ratio->height >= 1) {
        const double a = double(ratio->width) / double(ratio->height);
        if (r.size.width / r.size.height < a) {
            const double width = r.size.height * a;
            r.origin.x -= (width - r.size.width) / 2;
            r.size.width = width;
        } else {
            const double height = r.size.width / a;
            r.origin.y -= (height - r.size.height) / 2;
            r.size.height = height;
        }
    }
    return r;
}

double radiusOf(DeviceFrame frame, double W, double H, double scale, double cornerRadius) {
    const double r = std::min(std::min(W, H) * 0.5, scale * std::max(cornerRadius, 0.0));
    switch (frame) {
    case DeviceFrame::none: return r;
    case DeviceFrame::macBook: return 0;
    case DeviceFrame::iPhone: return DeviceGeometry::Phone(W, H).screenRadius;
    case DeviceFrame::browser: return DeviceGeometry::Browser(W, H, scale, r).radius;
    }
    return r;
}

double settled(double x) { return std::fabs(x) < 1e-6 ? 0 : x; }

} // namespace

CanvasLayout::CanvasLayout(PixelSize capture, double scale, const Style& style, std::optional<CGRect> crop,
                           std::optional<CGRect> frame, std::optional<CGRect> outside) {
    sourceScale = positiveOr1(scale);
    capturePixels = {std::max<std::int64_t>(capture.width, 1), std::max<std::int64_t>(capture.height, 1)};
    const CGRect whole{{0, 0}, {double(capturePixels.width), double(capturePixels.height)}};
    sourceRect = shownSource(whole, crop, sourceScale);
    contentPixels = {std::int64_t(sourceRect.width()), std::int64_t(sourceRect.height())};
    const double W = double(contentPixels.width), H = double(contentPixels.height);
    deviceFrame = style.deviceFrame;
    frameInsets = insetsOf(deviceFrame, W, H, sourceScale);
    padding = std::max(style.padding, 0.0) * sourceScale;
    const CGRect canvas = canvasRect(frame, sourceRect, sourceScale, W, H, padding, frameInsets, style.aspect);
    CGRect all = canvas;
    if (outside && !ImageExtent::isNull(*outside) && hasFiniteEdges(*outside))
        all = ImageExtent::unionOf(canvas, integral(moved(scaled(outside->standardized(), sourceScale),
                                                          -sourceRect.minX(), -sourceRect.minY())));
    canvasSize = all.size;
    if (all != canvas)
        backdrop = CGRect{{canvas.minX() - all.minX(), all.maxY() - canvas.maxY()}, canvas.size};
    cornerRadius = radiusOf(deviceFrame, W, H, sourceScale, style.cornerRadius);
    const FrameInsets& in = frameInsets;
    const double bx = in.left + (canvasSize.width - (in.left + W + in.right)) * 0.5;
    const double by = in.bottom + (canvasSize.height - (in.top + H + in.bottom)) * 0.5;
    offCentre = {settled(-all.minX() - bx), settled(all.maxY() - H - by)};
    contentRect = CGRect{{bx + offCentre.dx, by + offCentre.dy}, {W, H}};
}

CanvasLayout CanvasLayout::make(const Draft& draft) {
    // Drawing what lies outside the frame needs the extent of the texts there, which waits for
    // text layout: the canvas shows the frame alone until then.
    const std::optional<CGRect> outside;
    const Style style = draft.style.effective();
    if (draft.media.size() == 1) {
        const Media& media = draft.media[0];
        return CanvasLayout(media.source.pixelSize(), media.source.scale(), style, media.crop, draft.frame, outside);
    }
    // Several captures share one canvas, drawn at the finest scale among them.
    double scale = 0;
    for (const Media& media : draft.media.items()) scale = std::max(scale, positiveOr1(media.source.scale()));
    scale = positiveOr1(scale);
    CGRect bounds = ImageExtent::null();
    for (const auto& [id, rect] : landed(draft)) bounds = ImageExtent::unionOf(bounds, rect);
    const PixelSize capture = ImageExtent::isNull(bounds)
                                  ? PixelSize{1, 1}
                                  : PixelSize{std::max<std::int64_t>(std::llround(bounds.width() * scale), 1),
                                              std::max<std::int64_t>(std::llround(bounds.height() * scale), 1)};
    return CanvasLayout(capture, scale, style, std::nullopt, draft.frame, outside);
}

std::map<MediaID, CGRect> CanvasLayout::landed(const Draft& draft) {
    std::map<MediaID, CGRect> out;
    if (draft.media.size() == 1) {
        const Media& media = draft.media[0];
        const double scale = positiveOr1(media.source.scale());
        const PixelSize pixels = media.source.pixelSize();
        out.emplace(media.id, CGRect{{0, 0}, {double(pixels.width) / scale, double(pixels.height) / scale}});
        return out;
    }
    // Each capture stands where its placement puts its size in points; the canvas's capture
    // begins at the top left of them all.
    CGRect bounds = ImageExtent::null();
    for (const Media& media : draft.media.items()) {
        const double own = positiveOr1(media.source.scale());
        const PixelSize pixels = media.source.pixelSize();
        const CGRect placed = CGRect{{media.placement.offset.dx, media.placement.offset.dy},
                                     {double(pixels.width) / own * media.placement.scale,
                                      double(pixels.height) / own * media.placement.scale}}
                                  .standardized();
        out.emplace(media.id, placed);
        bounds = ImageExtent::unionOf(bounds, placed);
    }
    for (auto& [id, rect] : out) rect = moved(rect, -bounds.minX(), -bounds.minY());
    return out;
}

PixelSize CanvasLayout::pixelSize(double canvasScale, bool even) const {
    const double s = positiveOr1(canvasScale);
    const auto side = [&](double length) {
        const std::int64_t n = std::max<std::int64_t>(std::llround(s * length), 1);
        return even ? std::max<std::int64_t>(n & ~std::int64_t(1), 2) : n;
    };
    return {side(canvasSize.width), side(canvasSize.height)};
}

CGRect CanvasLayout::renderedContentRect(double canvasScale, std::optional<PixelSize> outputSize) const {
    const double s = positiveOr1(canvasScale);
    const PixelSize out = outputSize.value_or(pixelSize(s, false));
    const FrameInsets& in = frameInsets;
    const double w = s * contentRect.width(), h = s * contentRect.height();
    const double x = std::floor(s * in.left + (double(out.width) - (w + s * in.left + s * in.right)) * 0.5 +
                                s * offCentre.dx + 1e-6);
    const double y = std::floor(s * in.bottom + (double(out.height) - (h + s * in.top + s * in.bottom)) * 0.5 +
                                s * offCentre.dy + 1e-6);
    return CGRect{{x, y}, {w, h}};
}

CGAffineTransform CanvasLayout::objectTransform(double canvasScale, std::optional<PixelSize> outputSize) const {
    const double s = positiveOr1(canvasScale);
    const PixelSize out = outputSize.value_or(pixelSize(s, false));
    const CGRect rendered = renderedContentRect(s, out);
    const double k = rendered.width() / double(std::max<std::int64_t>(contentPixels.width, 1));
    return {sourceScale * k,
            0,
            0,
            sourceScale * k,
            rendered.minX() - k * sourceRect.minX(),
            double(out.height) - rendered.maxY() - k * sourceRect.minY()};
}

CGRect CanvasLayout::watermarkCard(double canvasScale, std::optional<PixelSize> outputSize) const {
    const double s = positiveOr1(canvasScale);
    const CGRect r = renderedContentRect(s, outputSize);
    const FrameInsets& in = frameInsets;
    return CGRect{{r.minX() - s * in.left, r.minY() - s * in.bottom},
                  {r.width() + s * (in.left + in.right), r.height() + s * (in.top + in.bottom)}};
}

CGRect CanvasLayout::frameRect() const {
    const FrameInsets& in = frameInsets;
    return CGRect{{contentRect.minX() - in.left, contentRect.minY() - in.bottom},
                  {contentRect.width() + in.left + in.right, contentRect.height() + in.top + in.bottom}};
}

CGRect CanvasLayout::frameBounds() const {
    const CGRect r = backdrop.value_or(CGRect{{0, 0}, canvasSize});
    return CGRect{{(r.minX() - contentRect.minX() + sourceRect.minX()) / sourceScale,
                   (sourceRect.minY() + contentRect.maxY() - r.maxY()) / sourceScale},
                  {r.width() / sourceScale, r.height() / sourceScale}};
}

CGPoint CanvasLayout::capturePoint(CGPoint canvas) const {
    return {(canvas.x - contentRect.minX() + sourceRect.minX()) / sourceScale,
            (sourceRect.minY() + canvas.y - (canvasSize.height - contentRect.maxY())) / sourceScale};
}

CGPoint CanvasLayout::canvasPoint(CGPoint capture) const {
    return {capture.x * sourceScale - sourceRect.minX() + contentRect.minX(),
            capture.y * sourceScale - sourceRect.minY() + (canvasSize.height - contentRect.maxY())};
}

} // namespace ovik
