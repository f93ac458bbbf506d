#include "OvikPlatform/paint/CGContext.h"

#include <cairo.h>

#include <cstring>
#include <stdexcept>

namespace ovik {
namespace {

constexpr std::int64_t maximumSide = 32768;

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

} // namespace

struct CGContext::Surface {
    cairo_surface_t* surface;
    explicit Surface(cairo_surface_t* s) : surface(s) {}
    ~Surface() { cairo_surface_destroy(surface); }
};

CGContext::CGContext(std::int64_t width, std::int64_t height) : width_(width), height_(height) {
    if (width < 1 || height < 1 || width > maximumSide || height > maximumSide)
        throw std::invalid_argument("bitmap context size out of range");
    surface_ = std::make_unique<Surface>(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, int(width), int(height)));
    if (cairo_surface_status(surface_->surface) != CAIRO_STATUS_SUCCESS) throw std::bad_alloc();
}

CGContext::~CGContext() = default;

void CGContext::draw(const CGImage& image, CGRect rect) {
    if (image.width() <= 0 || image.height() <= 0) return;
    Surface source(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, int(image.width()), int(image.height())));
    if (cairo_surface_status(source.surface) != CAIRO_STATUS_SUCCESS) throw std::bad_alloc();
    cairo_surface_flush(source.surface);
    unsigned char* data = cairo_image_surface_get_data(source.surface);
    const int stride = cairo_image_surface_get_stride(source.surface);
    for (std::int64_t y = 0; y < image.height(); ++y) {
        const std::uint8_t* row = image.pixels().data() + y * image.bytesPerRow();
        auto* out = reinterpret_cast<std::uint32_t*>(data + y * stride);
        for (std::int64_t x = 0; x < image.width(); ++x) out[x] = word(row + x * 4);
    }
    cairo_surface_mark_dirty(source.surface);

    const CGRect target = rect.standardized();
    cairo_t* cr = cairo_create(surface_->surface);
    // From y up to Cairo's y down: the rectangle's top edge is height - maxY.
    cairo_translate(cr, target.minX(), double(height_) - target.maxY());
    cairo_scale(cr, target.width() / double(image.width()), target.height() / double(image.height()));
    cairo_set_source_surface(cr, source.surface, 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cr), filter(quality_));
    cairo_pattern_set_extend(cairo_get_source(cr), CAIRO_EXTEND_PAD);
    cairo_rectangle(cr, 0, 0, double(image.width()), double(image.height()));
    cairo_fill(cr);
    cairo_destroy(cr);
}

CGImage CGContext::makeImage() const {
    cairo_surface_flush(surface_->surface);
    const unsigned char* data = cairo_image_surface_get_data(surface_->surface);
    const int stride = cairo_image_surface_get_stride(surface_->surface);
    std::vector<std::uint8_t> pixels(std::size_t(width_ * height_ * 4));
    for (std::int64_t y = 0; y < height_; ++y) {
        const auto* row = reinterpret_cast<const std::uint32_t*>(data + y * stride);
        for (std::int64_t x = 0; x < width_; ++x) bytes(row[x], pixels.data() + (y * width_ + x) * 4);
    }
    return CGImage(width_, height_, width_ * 4, std::move(pixels));
}

} // namespace ovik
