#pragma once
// An image recipe: a lazy, immutable graph of operations over sources, with an extent in the
// y-up picture space (pixel (x, y) covers the unit square at (x, y); a bitmap sits with its
// lower left corner at the origin). Nothing is computed until a `RenderContext` renders a
// rectangle of it. Copies are cheap and share the graph; every operation returns a new image.
//
// Working pixels are premultiplied linear extended sRGB; a bitmap's sRGB values are decoded
// on reading and encoded again on output. An image is clear outside its extent. An extent may
// be infinite (a constant colour, a clamped or tiled image, a gradient) or null (the empty
// image). Invalid arguments (NaN, a singular transform) throw `ImageError`.
#include <memory>
#include <string>

#include "OvikPlatform/geometry/CGAffineTransform.h"
#include "OvikPlatform/geometry/CGRect.h"
#include "OvikPlatform/image/Bitmap.h"
#include "OvikPlatform/image/ImageSampler.h"

namespace ovik {

class CGImage;
class FilterInputs;
class ImageNode;
struct ColorMatrix;
struct ImageColor;

class Image {
public:
    /// The empty image: clear, with a null extent.
    Image() = default;
    /// A bitmap (sRGB, premultiplied) with its lower left corner at the origin.
    static Image fromCGImage(std::shared_ptr<const CGImage> bitmap);
    /// Working pixels from an earlier render, with their lower left corner at the origin.
    static Image fromBitmap(std::shared_ptr<const BitmapFloat> bitmap);
    /// A colour over the whole plane.
    static Image fromColor(const ImageColor& color);
    /// An image of the layer's own graph; a null node is the empty image.
    explicit Image(std::shared_ptr<const ImageNode> node) : node_(std::move(node)) {}

    CGRect extent() const;
    bool isEmpty() const { return node_ == nullptr; }
    bool isInfinite() const;

    /// Only what lies within `rect`; a pixel that `rect` covers in part keeps that share.
    Image cropped(const CGRect& rect) const;
    /// Moved by `transform`, reading the source through `sampler`.
    Image transformed(const CGAffineTransform& transform, ImageSampler sampler = ImageSampler::linear) const;
    /// The edge pixels repeated outward to infinity; the extent's edges are first rounded to
    /// whole pixels.
    Image clampedToExtent() const;
    /// The extent (rounded to whole pixels) repeated over the whole plane.
    Image tiled() const;
    /// This image over `background` (source-over).
    Image composited(const Image& background) const;
    Image applyingColorMatrix(const ColorMatrix& matrix) const;
    /// A Gaussian blur of standard deviation `sigma` pixels; see `GaussianBlur`.
    Image applyingGaussianBlur(double sigma) const;
    /// The registered filter `name` with this image as its "inputImage".
    Image applyingFilter(const std::string& name, const FilterInputs& inputs) const;

    const std::shared_ptr<const ImageNode>& node() const { return node_; }

private:
    std::shared_ptr<const ImageNode> node_;
};

} // namespace ovik
