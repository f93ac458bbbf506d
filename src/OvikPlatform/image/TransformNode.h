#pragma once
// An image moved by an affine transform. A move by whole pixels copies them, whatever the
// sampler. Otherwise each output pixel reads the source at the point under its centre:
// nearest, bilinear, or Lanczos-3. Lanczos widens its kernel by the reduction along
// each source axis when the image shrinks (up to 256 times), so that a downsample averages
// instead of aliasing; it runs in two one-dimensional passes when the transform keeps the axes.
#include <optional>

#include "OvikPlatform/geometry/CGAffineTransform.h"
#include "OvikPlatform/image/ImageNode.h"
#include "OvikPlatform/image/ImageSampler.h"

namespace ovik {

class TransformNode final : public ImageNode {
public:
    /// The inverse, when the transform is finite and invertible.
    static std::optional<CGAffineTransform> inverse(const CGAffineTransform& transform);

    /// `transform` must have an inverse.
    TransformNode(Input input, const CGAffineTransform& transform, ImageSampler sampler);

    const CGAffineTransform& transform() const { return transform_; }
    ImageSampler sampler() const { return sampler_; }

    PixelRect inputRegion(std::size_t index, const PixelRect& output) const override;
    void render(const PixelTile& output, NodeInputs& inputs) const override;

private:
    CGPoint sourcePoint(std::int64_t x, std::int64_t y) const;
    void renderMove(const PixelTile& output, NodeInputs& inputs) const;
    void renderNearest(const PixelTile& output, const PixelTile& source) const;
    void renderLinear(const PixelTile& output, const PixelTile& source) const;
    void renderLanczos(const PixelTile& output, const PixelTile& source) const;
    void renderLanczosByAxes(const PixelTile& output, NodeInputs& inputs) const;

    CGAffineTransform transform_;
    CGAffineTransform inverse_;
    ImageSampler sampler_;
    bool movesWholePixels_;
    // The Lanczos kernel's scale along each source axis: the reduction, within 1/256...1.
    double filterX_;
    double filterY_;
};

} // namespace ovik
