#pragma once
// A bitmap context shaped like the platform's: premultiplied RGBA, origin at the bottom left,
// y up. Cairo paints underneath; its surfaces never leave this class.
//
// Drawing goes through a graphics state (transform and clip) that saveGState and
// restoreGState bracket. Input that can't be drawn (a non-finite number, an empty shape, a
// restore without a save) draws nothing and leaves the context usable.
#include <cstdint>
#include <memory>
#include <vector>

#include "OvikPlatform/geometry/CGRect.h"
#include "OvikPlatform/image/CGImage.h"
#include "OvikPlatform/image/ImageColor.h"

namespace ovik {

class CGContext {
public:
    enum class InterpolationQuality { none, low, medium, high };

    /// One closed outline, y up: a rectangle whose top corners and bottom corners round by
    /// radii of their own, or the ellipse inscribed in a rectangle.
    struct Path {
        enum class Kind { rectangle, ellipse };
        Kind kind = Kind::rectangle;
        CGRect rect;
        double topRadius = 0;
        double bottomRadius = 0;
        bool operator==(const Path&) const = default;
    };

    /// A colour of a gradient at `location`, 0 at the gradient's start and 1 at its end.
    struct GradientStop {
        ImageColor color;
        double location = 0;
    };

    /// The longest side a bitmap may have.
    static constexpr std::int64_t maximumSide = 32768;

    /// A transparent bitmap; throws `std::invalid_argument` for a size outside 1...maximumSide.
    CGContext(std::int64_t width, std::int64_t height);
    ~CGContext();
    CGContext(const CGContext&) = delete;
    CGContext& operator=(const CGContext&) = delete;

    std::int64_t width() const { return width_; }
    std::int64_t height() const { return height_; }

    static Path rectPath(CGRect rect);
    /// Each radius is limited to half the rectangle's smaller side; a negative or non-finite
    /// one is 0.
    static Path roundedPath(CGRect rect, double topRadius, double bottomRadius);
    static Path ellipsePath(CGRect rect);

    void saveGState();
    /// Back to the state of the matching save; without one, nothing changes.
    void restoreGState();
    void translateBy(double tx, double ty);
    /// Narrows the clip to the path's inside; an empty path clips everything away.
    void clip(const Path& path);

    void setInterpolationQuality(InterpolationQuality quality) { quality_ = quality; }
    /// Draws the whole image scaled into `rect`, not tiled.
    void draw(const CGImage& image, CGRect rect);
    /// Fills with a colour of sRGB components and straight alpha.
    void fill(const Path& path, const ImageColor& color);
    /// Fills with a gradient along the line from `start` to `end`, each end colour carried on
    /// past its end.
    void fillLinearGradient(const Path& path, const std::vector<GradientStop>& stops, CGPoint start, CGPoint end);
    /// A linear gradient from the top of the path's rectangle (location 0) to its bottom.
    void fillVerticalGradient(const Path& path, const std::vector<GradientStop>& stops);
    /// A straight line of `lineWidth`, cut square at its ends.
    void strokeLine(CGPoint from, CGPoint to, double lineWidth, const ImageColor& color);

    /// A snapshot of the bitmap.
    CGImage makeImage() const;

private:
    struct Canvas;
    std::int64_t width_;
    std::int64_t height_;
    InterpolationQuality quality_ = InterpolationQuality::medium;
    int savedStates_ = 0;
    std::unique_ptr<Canvas> canvas_;
};

} // namespace ovik
