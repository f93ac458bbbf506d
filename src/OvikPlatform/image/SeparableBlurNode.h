#pragma once
// One pass of a separable blur: each pixel the weighted sum of its neighbours along one axis,
// the weights symmetric about the middle one. Gaussian and box blurs are two such passes.
#include "OvikPlatform/image/Image.h"
#include "OvikPlatform/image/ImageNode.h"

namespace ovik {

class SeparableBlurNode final : public ImageNode {
public:
    enum class Axis { horizontal, vertical };

    /// `image` blurred across and then down by the same weights.
    static Image bothAxes(const Image& image, const std::vector<float>& weights);

    /// An odd number of weights; the middle one weighs the pixel itself.
    SeparableBlurNode(Input input, Axis axis, std::vector<float> weights);
    bool isMaterialized() const override { return true; }
    PixelRect inputRegion(std::size_t index, const PixelRect& output) const override;
    void render(const PixelTile& output, NodeInputs& inputs) const override;

private:
    std::int64_t radius() const { return std::int64_t(weights_.size() / 2); }
    Axis axis_;
    std::vector<float> weights_;
};

} // namespace ovik
