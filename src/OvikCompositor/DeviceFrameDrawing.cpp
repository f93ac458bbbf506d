#include "OvikCompositor/DeviceFrameDrawing.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <string>

#include "OvikCompositor/RenderError.h"
#include "OvikPlatform/image/ImageExtent.h"
#include "OvikPlatform/image/PixelRect.h"
#include "OvikPlatform/paint/CGContext.h"

namespace ovik {
namespace {

using Path = CGContext::Path;

constexpr ImageColor rgb(double red, double green, double blue) { return {red, green, blue, 1}; }
constexpr ImageColor hex(std::uint32_t value) {
    return rgb(double(value >> 16 & 0xff) / 255, double(value >> 8 & 0xff) / 255, double(value & 0xff) / 255);
}

constexpr ImageColor screenBlack = rgb(0, 0, 0);

CGRect content(const DeviceGeometry& device) { return CGRect{{0, 0}, {device.width, device.height}}; }

CGRect circle(CGPoint centre, double radius) {
    return CGRect{{centre.x - radius, centre.y - radius}, {2 * radius, 2 * radius}};
}

// A rounded rectangle moved in by `by` on every side, its radii smaller by as much.
Path inset(const CGRect& rect, double topRadius, double bottomRadius, double by) {
    return CGContext::roundedPath(ImageExtent::grown(rect, -by, -by), topRadius - by, bottomRadius - by);
}

void drawMacBook(const DeviceGeometry& device, CGContext& context) {
    const DeviceGeometry::MacBook book(device.width, device.height);
    context.fillVerticalGradient(CGContext::roundedPath(book.base, book.baseTopRadius, book.baseBottomRadius),
                                 {{rgb(0.9098, 0.9137, 0.9255), 0},
                                  {rgb(0.8275, 0.8353, 0.8510), 0.14},
                                  {rgb(0.6784, 0.6863, 0.7059), 0.78},
                                  {rgb(0.5255, 0.5333, 0.5529), 1}});
    context.fillVerticalGradient(CGContext::roundedPath(book.notch, 0, book.notch.height() / 2),
                                 {{rgb(0.5451, 0.5529, 0.5725), 0}, {rgb(0.7059, 0.7137, 0.7294), 1}});
    context.fill(CGContext::roundedPath(book.lid, book.lidTopRadius, book.lidBottomRadius), rgb(0.7216, 0.7294, 0.7490));
    context.fill(inset(book.lid, book.lidTopRadius, book.lidBottomRadius, book.rim), rgb(0.0431, 0.0431, 0.0510));
    context.fill(CGContext::ellipsePath(circle(book.camera, book.cameraRadius)), rgb(0.1098, 0.1137, 0.1294));
    context.fill(CGContext::ellipsePath(circle(book.camera, 0.45 * book.cameraRadius)), rgb(0.1647, 0.2039, 0.2706));
    context.fill(CGContext::rectPath(content(device)), screenBlack);
}

void drawPhone(const DeviceGeometry& device, CGContext& context) {
    const DeviceGeometry::Phone phone(device.width, device.height);
    for (const RoundedOutline& button : phone.buttons)
        context.fill(CGContext::roundedPath(button.rect, button.radius, button.radius), rgb(0.4549, 0.4667, 0.4902));
    // The body, then rings of the band going in, each inset by its share of the band.
    const struct {
        double bandShare;
        ImageColor color;
    } rings[] = {{0, rgb(0.3137, 0.3255, 0.3451)},
                 {0.22, rgb(0.6353, 0.6471, 0.6706)},
                 {0.62, rgb(0.4863, 0.4980, 0.5216)},
                 {1, rgb(0.0196, 0.0196, 0.0235)}};
    for (const auto& ring : rings)
        context.fill(inset(phone.outer, phone.outerRadius, phone.outerRadius, ring.bandShare * phone.band), ring.color);
    context.fill(CGContext::roundedPath(content(device), phone.screenRadius, phone.screenRadius), screenBlack);
}

void drawBrowser(const DeviceGeometry& device, CGContext& context) {
    const DeviceGeometry::Browser browser(device.width, device.height, device.pixelsPerPoint, device.windowRadius);
    // The bar reaches a little below its edge so that no seam opens above the content.
    const double seam = std::min(device.height, 1.0);
    const CGRect bar = ImageExtent::fromEdges(browser.bar.minX(), browser.bar.minY() - seam, browser.bar.maxX(),
                                              browser.bar.maxY());
    context.fillVerticalGradient(CGContext::roundedPath(bar, browser.radius, 0),
                                 {{rgb(0.9490, 0.9490, 0.9569), 0}, {rgb(0.9059, 0.9059, 0.9176), 1}});
    const double lineY = browser.bar.minY() + browser.separator / 2;
    context.strokeLine({browser.bar.minX(), lineY}, {browser.bar.maxX(), lineY}, browser.separator,
                       rgb(0.8235, 0.8235, 0.8431));
    const struct {
        ImageColor ring;
        ImageColor fill;
    } lights[] = {{hex(0xe2463f), hex(0xff5f57)}, {hex(0xe1a116), hex(0xfebc2e)}, {hex(0x14ae2a), hex(0x28c840)}};
    for (std::size_t i = 0; i < browser.lights.size() && i < std::size(lights); ++i) {
        const CGPoint centre = browser.lights[i];
        context.fill(CGContext::ellipsePath(circle(centre, browser.lightRadius)), lights[i].ring);
        context.fill(CGContext::ellipsePath(circle(centre, browser.lightRadius - browser.separator)), lights[i].fill);
    }
    if (const std::optional<CGRect>& field = browser.field) {
        const double round = field->height() / 2;
        context.fill(CGContext::roundedPath(*field, round, round), rgb(0.8627, 0.8627, 0.8784));
    }
}

// A bitmap of `area`'s whole pixels with `paint` drawn in the device's coordinates.
template <class Paint>
CGImage rasterized(const CGRect& area, Paint paint) {
    const CGRect r = area.standardized();
    if (!ImageExtent::isFinite(r) || !(r.width() > 0 && r.height() > 0)) return CGImage(0, 0, 0, {});
    const double width = std::ceil(r.width()), height = std::ceil(r.height());
    const double limit = double(CGContext::maximumSide);
    if (width > limit || height > limit)
        throw RenderFailure(RenderError::failed{"a device frame piece of " + std::to_string(std::int64_t(width)) +
                                                " × " + std::to_string(std::int64_t(height)) +
                                                " pixels is larger than a bitmap may be"});
    CGContext context{std::int64_t(width), std::int64_t(height)};
    context.translateBy(-r.minX(), -r.minY());
    paint(context);
    return context.makeImage();
}

} // namespace

bool DeviceFrameDrawing::isDrawable(const DeviceGeometry& device) {
    const auto positive = [](double value) { return std::isfinite(value) && value > 0; };
    return device.hasScreen() && positive(device.width) && positive(device.height) &&
           positive(device.pixelsPerPoint) && std::isfinite(device.windowRadius);
}

void DeviceFrameDrawing::draw(const DeviceGeometry& device, CGContext& context) {
    if (!isDrawable(device)) return;
    switch (device.kind) {
    case DeviceFrame::none: return;
    case DeviceFrame::macBook: return drawMacBook(device, context);
    case DeviceFrame::iPhone: return drawPhone(device, context);
    case DeviceFrame::browser: return drawBrowser(device, context);
    }
}

CGImage DeviceFrameDrawing::rasterizePiece(const DeviceGeometry& device, CGRect piece) {
    return rasterized(piece, [&](CGContext& context) { draw(device, context); });
}

std::optional<std::pair<CGRect, CGImage>> DeviceFrameDrawing::island(const DeviceGeometry& device) {
    if (!isDrawable(device) || device.kind != DeviceFrame::iPhone) return std::nullopt;
    const DeviceGeometry::Phone phone(device.width, device.height);
    if (!phone.hasIsland) return std::nullopt;
    const CGRect area = PixelRect::covering(ImageExtent::grown(phone.island, 1, 1)).cgRect();
    const Path shape = CGContext::roundedPath(phone.island, phone.islandRadius, phone.islandRadius);
    return std::pair{area, rasterized(area, [&](CGContext& context) { context.fill(shape, screenBlack); })};
}

} // namespace ovik
