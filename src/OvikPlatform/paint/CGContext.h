#pragma once
// A bitmap context shaped like the platform's: premultiplied RGBA, origin at the bottom left,
// y up. Cairo paints underneath; its surfaces never leave this class.
#include <cstdint>
#include <memory>

#include "OvikPlatform/geometry/CGRect.h"
#include "OvikPlatform/image/CGImage.h"

namespace ovik {

class CGContext {
public:
    enum class InterpolationQuality { none, low, medium, high };

    /// A transparent bitmap; throws `std::invalid_argument` for a size outside 1...32768.
    CGContext(std::int64_t width, std::int64_t height);
    ~CGContext();
    CGContext(const CGContext&) = delete;
    CGContext& operator=(const CGContext&) = delete;

    std::int64_t width() const { return width_; }
    std::int64_t height() const { return height_; }

    void setInterpolationQuality(InterpolationQuality quality) { quality_ = quality; }
    /// Draws the whole image scaled into `rect`, not tiled.
    void draw(const CGImage& image, CGRect rect);
    /// A snapshot of the bitmap.
    CGImage makeImage() const;

private:
    struct Surface;
    std::int64_t width_;
    std::int64_t height_;
    InterpolationQuality quality_ = InterpolationQuality::medium;
    std::unique_ptr<Surface> surface_;
};

} // namespace ovik
