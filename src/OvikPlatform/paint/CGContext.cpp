#include "OvikPlatform/paint/CGContext.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "OvikPlatform/image/ImageExtent.h"

namespace ovik {
namespace {

constexpr double pi = 3.14159265358979323846;
// A cubic Bézier's control distance that follows a quarter circle of radius 1.
constexpr double kappa = 0.5522847498307936;

cairo_filter_t filter(CGContext::InterpolationQuality quality) {
    switch (quality) {
    case CGContext::InterpolationQuality::none: return CAIRO_FILTER_NEAREST;
    case CGContext::InterpolationQuality::low: return CAIRO_FILTER_FAST;
    case CGContext::InterpolationQuality::medium: return CAIRO_FILTER_GOOD;
    case CGContext::InterpolationQuality::high: return CAIRO_FILTER_BEST;
    }
    return CAIRO_FILTER_GOOD;
}

// Cairo keeps a pixel as one native 32-bit word, alpha in the high byte; a bitmap here keeps
// the bytes R, G, B, A in that order. Both are premultiplied.
std::uint32_t word(const std::uint8_t* rgba) {
    return std::uint32_t(rgba[3]) << 24 | std::uint32_t(rgba[0]) << 16 | std::uint32_t(rgba[1]) << 8 | rgba[2];
}

void bytes(std::uint32_t word, std::uint8_t* rgba) {
    rgba[0] = std::uint8_t(word >> 16);
    rgba[1] = std::uint8_t(word >> 8);
    rgba[2] = std::uint8_t(word);
    rgba[3] = std::uint8_t(word >> 24);
}

struct SurfaceDeleter {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using SurfaceHandle = std::unique_ptr<cairo_surface_t, SurfaceDeleter>;

SurfaceHandle imageSurface(std::int64_t width, std::int64_t height) {
    SurfaceHandle surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, int(width), int(height)));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) throw std::bad_alloc();
    return surface;
}

SurfaceHandle surfaceOf(const CGImage& image) {
    SurfaceHandle source = imageSurface(image.width(), image.height());
    cairo_surface_flush(source.get());
    unsigned char* data = cairo_image_surface_get_data(source.get());
    const int stride = cairo_image_surface_get_stride(source.get());
    for (std::int64_t y = 0; y < image.height(); ++y) {
        const std::uint8_t* row = image.pixels().data() + y * image.bytesPerRow();
        auto* out = reinterpret_cast<std::uint32_t*>(data + y * stride);
        for (std::int64_t x = 0; x < image.width(); ++x) out[x] = word(row + x * 4);
    }
    cairo_surface_mark_dirty(source.get());
    return source;
}

bool hasArea(const CGRect& rect) { return ImageExtent::isFinite(rect) && rect.width() > 0 && rect.height() > 0; }

bool isFinite(CGPoint point) { return std::isfinite(point.x) && std::isfinite(point.y); }

double limitedRadius(double radius, double limit) { return std::isfinite(radius) ? std::clamp(radius, 0.0, limit) : 0; }

// Traced counter-clockwise from the bottom edge; a radius of 0 leaves a square corner.
void addRoundedRect(cairo_t* cr, const CGRect& r, double top, double bottom) {
    cairo_move_to(cr, r.minX() + bottom, r.minY());
    cairo_arc(cr, r.maxX() - bottom, r.minY() + bottom, bottom, -pi / 2, 0);
    cairo_arc(cr, r.maxX() - top, r.maxY() - top, top, 0, pi / 2);
    cairo_arc(cr, r.minX() + top, r.maxY() - top, top, pi / 2, pi);
    cairo_arc(cr, r.minX() + bottom, r.minY() + bottom, bottom, pi, 3 * pi / 2);
    cairo_close_path(cr);
}

// Curves in user space rather than a scaled unit circle, so that a thin ellipse never asks
// Cairo for a matrix it can't invert.
void addEllipse(cairo_t* cr, const CGRect& r) {
    const double cx = (r.minX() + r.maxX()) / 2, cy = (r.minY() + r.maxY()) / 2;
    const double rx = r.width() / 2, ry = r.height() / 2, kx = kappa * rx, ky = kappa * ry;
    cairo_move_to(cr, cx + rx, cy);
    cairo_curve_to(cr, cx + rx, cy + ky, cx + kx, cy + ry, cx, cy + ry);
    cairo_curve_to(cr, cx - kx, cy + ry, cx - rx, cy + ky, cx - rx, cy);
    cairo_curve_to(cr, cx - rx, cy - ky, cx - kx, cy - ry, cx, cy - ry);
    cairo_curve_to(cr, cx + kx, cy - ry, cx + rx, cy - ky, cx + rx, cy);
    cairo_close_path(cr);
}

// Replaces Cairo's current path; a shape without area leaves it empty.
void setPath(cairo_t* cr, const CGContext::Path& path) {
    cairo_new_path(cr);
    if (!hasArea(path.rect)) return;
    if (path.kind == CGContext::Path::Kind::ellipse) return addEllipse(cr, path.rect.standardized());
    const CGContext::Path rounded = CGContext::roundedPath(path.rect, path.topRadius, path.bottomRadius);
    addRoundedRect(cr, rounded.rect, rounded.topRadius, rounded.bottomRadius);
}

} // namespace

struct CGContext::Canvas {
    SurfaceHandle surface;
    cairo_t* cr;
    explicit Canvas(SurfaceHandle s) : surface(std::move(s)), cr(cairo_create(surface.get())) {}
    ~Canvas() { cairo_destroy(cr); }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
};

CGContext::CGContext(std::int64_t width, std::int64_t height) : width_(width), height_(height) {
    if (width < 1 || height < 1 || width > maximumSide || height > maximumSide)
        throw std::invalid_argument("bitmap context size out of range");
    canvas_ = std::make_unique<Canvas>(imageSurface(width, height));
    if (cairo_status(canvas_->cr) != CAIRO_STATUS_SUCCESS) throw std::bad_alloc();
    // From y up to Cairo's y down, once for the life of the context.
    cairo_translate(canvas_->cr, 0, double(height));
    cairo_scale(canvas_->cr, 1, -1);
    // Curves flattened to a hundredth of a pixel rather than a tenth: at a tenth, a shape and
    // its mirror image differ by up to 7% of a pixel's coverage along round edges.
    cairo_set_tolerance(canvas_->cr, 0.01);
}

CGContext::~CGContext() = default;

CGContext::Path CGContext::rectPath(CGRect rect) { return Path{Path::Kind::rectangle, rect.standardized(), 0, 0}; }

CGContext::Path CGContext::roundedPath(CGRect rect, double topRadius, double bottomRadius) {
    const CGRect r = rect.standardized();
    const double limit = std::min(r.width(), r.height()) / 2;
    return Path{Path::Kind::rectangle, r, limitedRadius(topRadius, limit), limitedRadius(bottomRadius, limit)};
}

CGContext::Path CGContext::ellipsePath(CGRect rect) { return Path{Path::Kind::ellipse, rect.standardized(), 0, 0}; }

void CGContext::saveGState() {
    cairo_save(canvas_->cr);
    ++savedStates_;
}

void CGContext::restoreGState() {
    // Cairo would turn an unmatched restore into an error that ends all later drawing.
    if (savedStates_ == 0) return;
    cairo_restore(canvas_->cr);
    --savedStates_;
}

void CGContext::translateBy(double tx, double ty) {
    if (std::isfinite(tx) && std::isfinite(ty)) cairo_translate(canvas_->cr, tx, ty);
}

void CGContext::clip(const Path& path) {
    setPath(canvas_->cr, path);
    cairo_clip(canvas_->cr);
}

void CGContext::draw(const CGImage& image, CGRect rect) {
    if (image.width() <= 0 || image.height() <= 0 || !hasArea(rect)) return;
    const CGRect target = rect.standardized();
    const double sx = target.width() / double(image.width()), sy = target.height() / double(image.height());
    if (!std::isnormal(sx * sy)) return;
    const SurfaceHandle source = surfaceOf(image);
    cairo_t* cr = canvas_->cr;
    cairo_save(cr);
    // The image's top row goes to the rectangle's top edge.
    cairo_translate(cr, target.minX(), target.maxY());
    cairo_scale(cr, sx, -sy);
    cairo_set_source_surface(cr, source.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cr), filter(quality_));
    cairo_pattern_set_extend(cairo_get_source(cr), CAIRO_EXTEND_PAD);
    cairo_rectangle(cr, 0, 0, double(image.width()), double(image.height()));
    cairo_fill(cr);
    cairo_restore(cr);
}

void CGContext::fill(const Path& path, const ImageColor& color) {
    if (!color.isFinite()) return;
    cairo_t* cr = canvas_->cr;
    cairo_set_source_rgba(cr, color.red, color.green, color.blue, color.alpha);
    setPath(cr, path);
    cairo_fill(cr);
}

void CGContext::fillLinearGradient(const Path& path, const std::vector<GradientStop>& stops, CGPoint start,
                                   CGPoint end) {
    const bool usable = std::all_of(stops.begin(), stops.end(), [](const GradientStop& stop) {
        return stop.color.isFinite() && std::isfinite(stop.location);
    });
    if (stops.empty() || !usable || !isFinite(start) || !isFinite(end) || start == end) return;
    cairo_pattern_t* gradient = cairo_pattern_create_linear(start.x, start.y, end.x, end.y);
    for (const GradientStop& stop : stops)
        cairo_pattern_add_color_stop_rgba(gradient, std::clamp(stop.location, 0.0, 1.0), stop.color.red,
                                          stop.color.green, stop.color.blue, stop.color.alpha);
    cairo_pattern_set_extend(gradient, CAIRO_EXTEND_PAD);
    cairo_t* cr = canvas_->cr;
    cairo_set_source(cr, gradient);
    cairo_pattern_destroy(gradient);
    setPath(cr, path);
    cairo_fill(cr);
}

void CGContext::fillVerticalGradient(const Path& path, const std::vector<GradientStop>& stops) {
    const CGRect r = path.rect.standardized();
    const double midX = (r.minX() + r.maxX()) / 2;
    fillLinearGradient(path, stops, {midX, r.maxY()}, {midX, r.minY()});
}

void CGContext::strokeLine(CGPoint from, CGPoint to, double lineWidth, const ImageColor& color) {
    if (!isFinite(from) || !isFinite(to) || !std::isfinite(lineWidth) || lineWidth <= 0 || !color.isFinite()) return;
    cairo_t* cr = canvas_->cr;
    cairo_set_source_rgba(cr, color.red, color.green, color.blue, color.alpha);
    cairo_set_line_width(cr, lineWidth);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_BUTT);
    cairo_new_path(cr);
    cairo_move_to(cr, from.x, from.y);
    cairo_line_to(cr, to.x, to.y);
    cairo_stroke(cr);
}

CGImage CGContext::makeImage() const {
    cairo_surface_t* surface = canvas_->surface.get();
    cairo_surface_flush(surface);
    const unsigned char* data = cairo_image_surface_get_data(surface);
    const int stride = cairo_image_surface_get_stride(surface);
    std::vector<std::uint8_t> pixels(std::size_t(width_ * height_ * 4));
    for (std::int64_t y = 0; y < height_; ++y) {
        const auto* row = reinterpret_cast<const std::uint32_t*>(data + y * stride);
        for (std::int64_t x = 0; x < width_; ++x) bytes(row[x], pixels.data() + (y * width_ + x) * 4);
    }
    return CGImage(width_, height_, width_ * 4, std::move(pixels));
}

} // namespace ovik
