#include "OvikPlatform/image/Image.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "OvikPlatform/image/BitmapSourceNode.h"
#include "OvikPlatform/image/ClampNode.h"
#include "OvikPlatform/image/ColorMatrix.h"
#include "OvikPlatform/image/FilterInputs.h"
#include "OvikPlatform/image/FloatBitmapSourceNode.h"
#include "OvikPlatform/image/GaussianBlur.h"
#include "OvikPlatform/image/ImageColor.h"
#include "OvikPlatform/image/ImageError.h"
#include "OvikPlatform/image/ImageExtent.h"
#include "OvikPlatform/image/ImageKernel.h"
#include "OvikPlatform/image/ImageRegistry.h"
#include "OvikPlatform/image/TileNode.h"
#include "OvikPlatform/image/TransformNode.h"

namespace ovik {
namespace {

const ImageKernel& constantKernel() {
    static const ImageKernel kernel = ImageKernel::perPixel("constant colour", 0, 4, [](const KernelPixel& p) {
        return Pixel{float(p.values[0]), float(p.values[1]), float(p.values[2]), float(p.values[3])};
    });
    return kernel;
}

// The share of the unit pixel around `centre` that lies between `low` and `high`.
float covered(double centre, double low, double high) {
    return float(std::clamp(std::min(centre + 0.5, high) - std::max(centre - 0.5, low), 0.0, 1.0));
}

// A crop along pixel edges keeps whole pixels: a copy, which the extent then bounds.
const ImageKernel& wholePixelCropKernel() {
    static const ImageKernel kernel = ImageKernel::color(
        "crop", 1, 0, [](const ColorKernelRow& row) { std::copy_n(row.inputs[0], row.count, row.output); });
    return kernel;
}

bool alongPixelEdges(const CGRect& rect) {
    const auto whole = [](double v) { return v == std::round(v); };
    return whole(rect.minX()) && whole(rect.minY()) && whole(rect.maxX()) && whole(rect.maxY());
}

const ImageKernel& cropKernel() {
    static const ImageKernel kernel = ImageKernel::perPixel("crop", 1, 4, [](const KernelPixel& p) {
        const auto& v = p.values;
        return p.inputs[0] * (covered(p.position.x, v[0], v[2]) * covered(p.position.y, v[1], v[3]));
    });
    return kernel;
}

const ImageKernel& sourceOverKernel() {
    static const ImageKernel kernel = ImageKernel::perPixel("source over", 2, 0, [](const KernelPixel& p) {
        const Pixel& source = p.inputs[0];
        return source + p.inputs[1] * (1 - source.a);
    });
    return kernel;
}

// Values: the red, green, blue and alpha vectors, then the bias.
const ImageKernel& colorMatrixKernel() {
    static const ImageKernel kernel = ImageKernel::color("colour matrix", 1, 20, [](const ColorKernelRow& row) {
        std::array<float, 20> m;
        std::transform(row.values.begin(), row.values.end(), m.begin(), [](double v) { return float(v); });
        for (std::int64_t i = 0; i < row.count; ++i) {
            const Pixel p = row.inputs[0][i].unpremultiplied();
            const auto dot = [&](int k) {
                return m[k] * p.r + m[k + 1] * p.g + m[k + 2] * p.b + m[k + 3] * p.a + m[16 + k / 4];
            };
            row.output[i] = Pixel{dot(0), dot(4), dot(8), dot(12)}.premultiplied();
        }
    });
    return kernel;
}

} // namespace

Image Image::fromBitmap(std::shared_ptr<const BitmapFloat> bitmap) {
    if (!bitmap || bitmap->width == 0 || bitmap->height == 0) return Image();
    return Image(std::make_shared<FloatBitmapSourceNode>(std::move(bitmap)));
}

Image Image::fromCGImage(std::shared_ptr<const CGImage> bitmap) {
    if (!bitmap || bitmap->width() == 0 || bitmap->height() == 0) return Image();
    return Image(std::make_shared<BitmapSourceNode>(std::move(bitmap)));
}

Image Image::fromColor(const ImageColor& color) {
    if (!color.isFinite()) throw ImageError::invalidParameter("colour image", "the colour must be finite numbers");
    const Pixel p = color.working();
    return constantKernel().apply(ImageExtent::infinite(), {}, {p.r, p.g, p.b, p.a});
}

CGRect Image::extent() const { return node_ ? node_->extent() : ImageExtent::null(); }

bool Image::isInfinite() const { return ImageExtent::isInfinite(extent()); }

Image Image::cropped(const CGRect& rect) const {
    if (!ImageExtent::isFinite(rect))
        throw ImageError::invalidParameter("crop", "the rectangle must be finite numbers");
    const CGRect kept = ImageExtent::intersection(extent(), rect);
    if (ImageExtent::isNull(kept)) return Image();
    // A rectangle round every pixel of the image changes nothing.
    const PixelRect& pixels = node_->pixels();
    if (rect.minX() <= double(pixels.x) && rect.minY() <= double(pixels.y) && rect.maxX() >= double(pixels.maxX()) &&
        rect.maxY() >= double(pixels.maxY()))
        return *this;
    if (alongPixelEdges(rect)) return wholePixelCropKernel().apply(kept, {*this}, {});
    return cropKernel().apply(kept, {*this}, {rect.minX(), rect.minY(), rect.maxX(), rect.maxY()});
}

Image Image::transformed(const CGAffineTransform& transform, ImageSampler sampler) const {
    if (!TransformNode::inverse(transform))
        throw ImageError::invalidParameter("transform", "the transform must be finite numbers and invertible");
    if (isEmpty() || transform == CGAffineTransform::identity()) return *this;
    // A transform of a transform reads the source once, through the product.
    if (const auto* inner = dynamic_cast<const TransformNode*>(node_.get()); inner && inner->sampler() == sampler) {
        const CGAffineTransform product = inner->transform().concatenating(transform);
        return Image(inner->inputs().front()).transformed(product, sampler);
    }
    return Image(std::make_shared<TransformNode>(node_, transform, sampler));
}

Image Image::clampedToExtent() const {
    if (isEmpty() || isInfinite()) return *this;
    return Image(std::make_shared<ClampNode>(node_));
}

Image Image::tiled() const {
    if (isEmpty() || isInfinite()) return *this;
    return Image(std::make_shared<TileNode>(node_));
}

Image Image::composited(const Image& background) const {
    if (isEmpty()) return background;
    if (background.isEmpty()) return *this;
    return sourceOverKernel().apply(ImageExtent::unionOf(extent(), background.extent()), {*this, background}, {});
}

Image Image::applyingColorMatrix(const ColorMatrix& m) const {
    if (isEmpty()) return *this;
    std::vector<double> values;
    for (const Vector4* v : {&m.red, &m.green, &m.blue, &m.alpha, &m.bias})
        values.insert(values.end(), v->begin(), v->end());
    // Bias in alpha makes clear pixels visible: the result covers the plane.
    const CGRect reach = m.bias[3] > 0 ? ImageExtent::infinite() : extent();
    return colorMatrixKernel().apply(reach, {*this}, std::move(values));
}

Image Image::applyingGaussianBlur(double sigma) const { return GaussianBlur::apply(*this, sigma); }

Image Image::applyingFilter(const std::string& name, const FilterInputs& inputs) const {
    FilterInputs withImage = inputs;
    withImage.set("inputImage", *this);
    return ImageRegistry::shared().applyFilter(name, withImage);
}

} // namespace ovik
