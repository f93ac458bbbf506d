#include "OvikCompositor/DeviceGeometry.h"

#include <algorithm>

#include "OvikPlatform/image/ImageExtent.h"

namespace ovik {
namespace {

CGRect rect(double x, double y, double width, double height) { return CGRect{{x, y}, {width, height}}; }

// A button stands out of the body by `out` and reaches `across` into it; `at` and `length`
// run along the side.
struct ButtonShape {
    double out;
    double across;
    double radius;
};

std::vector<RoundedOutline> portraitButtons(const CGRect& outer, ButtonShape b) {
    const double H = outer.height(), top = outer.maxY();
    // Each lower end is measured down from the top of the body.
    const struct {
        bool left;
        double lowerEnd;
        double length;
    } places[] = {{true, 0.205, 0.04}, {true, 0.315, 0.065}, {true, 0.40, 0.065}, {false, 0.37, 0.105}};
    std::vector<RoundedOutline> out;
    for (const auto& p : places) {
        const double x = p.left ? outer.minX() - b.out : outer.maxX() + b.out - b.across;
        out.push_back({rect(x, top - p.lowerEnd * H, b.across, p.length * H), b.radius});
    }
    return out;
}

std::vector<RoundedOutline> landscapeButtons(const CGRect& outer, ButtonShape b) {
    const double W = outer.width(), left = outer.minX();
    const struct {
        bool bottom;
        double start;
        double length;
    } places[] = {{true, 0.165, 0.04}, {true, 0.25, 0.065}, {true, 0.335, 0.065}, {false, 0.265, 0.105}};
    std::vector<RoundedOutline> out;
    for (const auto& p : places) {
        const double y = p.bottom ? outer.minY() - b.out : outer.maxY() + b.out - b.across;
        out.push_back({rect(left + p.start * W, y, p.length * W, b.across), b.radius});
    }
    return out;
}

} // namespace

DeviceGeometry::Phone::Phone(double width, double height) {
    const double m = std::min(width, height);
    band = 0.013 * m;
    bezel = 0.03 * m;
    outer = ImageExtent::grown(rect(0, 0, width, height), bezel + band, bezel + band);
    screenRadius = 0.14 * m;
    outerRadius = screenRadius + bezel + band;
    islandRadius = 0.047 * m;
    hasIsland = width <= height;
    const double across = 0.318 * m, thin = 0.094 * m;
    island = hasIsland ? rect((width - across) / 2, height - bezel - thin, across, thin)
                       : rect(bezel, (height - across) / 2, thin, across);
    const double p = 0.0075 * m;
    const ButtonShape shape{p, p + 0.6 * band, 0.6 * p};
    buttons = hasIsland ? portraitButtons(outer, shape) : landscapeButtons(outer, shape);
}

DeviceGeometry::Browser::Browser(double width, double height, double s, double windowRadius) {
    const double b = 40 * s;
    window = rect(0, 0, width, height + b);
    bar = rect(0, height, width, b);
    radius = std::min({windowRadius, width / 2, (height + b) / 2});
    for (const double x : {20 * s, 40 * s, 60 * s}) lights.push_back({x, height + b / 2});
    lightRadius = 6 * s;
    const double fieldWidth = std::min({560 * s, 0.46 * width, width - 176 * s});
    if (fieldWidth >= 60 * s) field = rect((width - fieldWidth) / 2, height + (b - 24 * s) / 2, fieldWidth, 24 * s);
    separator = 0.5 * s;
}

DeviceGeometry::MacBook::MacBook(double w, double h) {
    const double u = 0.022 * w;
    lid = rect(-0.018 * w, -0.036 * w, 1.036 * w, h + 0.064 * w);
    lidTopRadius = u;
    lidBottomRadius = 0.004 * w;
    rim = 0.0032 * w;
    const double baseWidth = 1.1 * lid.width();
    base = rect(w / 2 - baseWidth / 2, lid.minY() - u, baseWidth, u);
    baseTopRadius = 0.12 * u;
    baseBottomRadius = 0.5 * u;
    const double notchWidth = 0.13 * lid.width();
    notch = rect(w / 2 - notchWidth / 2, base.maxY() - 0.34 * u, notchWidth, 0.34 * u);
    camera = {w / 2, h + 0.014 * w};
    cameraRadius = 0.0024 * w;
}

CGRect DeviceGeometry::bounds() const {
    switch (kind) {
    case DeviceFrame::none: break;
    case DeviceFrame::macBook: {
        const MacBook book(width, height);
        return ImageExtent::unionOf(book.lid, book.base);
    }
    case DeviceFrame::iPhone: {
        const Phone phone(width, height);
        CGRect out = phone.outer;
        for (const RoundedOutline& button : phone.buttons) out = ImageExtent::unionOf(out, button.rect);
        return out;
    }
    case DeviceFrame::browser: return Browser(width, height, pixelsPerPoint, windowRadius).window;
    }
    return rect(0, 0, width, height);
}

std::vector<RoundedOutline> DeviceGeometry::silhouette() const {
    switch (kind) {
    case DeviceFrame::none: break;
    case DeviceFrame::macBook: {
        const MacBook book(width, height);
        return {{book.lid, book.lidTopRadius}, {book.base, book.baseBottomRadius}};
    }
    case DeviceFrame::iPhone: {
        const Phone phone(width, height);
        return {{phone.outer, phone.outerRadius}};
    }
    case DeviceFrame::browser: {
        const Browser browser(width, height, pixelsPerPoint, windowRadius);
        return {{browser.window, browser.radius}};
    }
    }
    return {};
}

} // namespace ovik
