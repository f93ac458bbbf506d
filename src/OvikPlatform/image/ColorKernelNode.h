#pragma once
// A colour kernel applied: each pixel from the input pixels at the same place.
#include "OvikPlatform/image/ImageKernel.h"
#include "OvikPlatform/image/ImageNode.h"

namespace ovik {

class ColorKernelNode final : public ImageNode {
public:
    ColorKernelNode(const CGRect& extent, std::vector<Input> inputs, ImageKernel::ColorFunction function,
                    std::vector<double> values);
    void render(const PixelTile& output, NodeInputs& inputs) const override;

private:
    ImageKernel::ColorFunction function_;
    std::vector<double> values_;
};

} // namespace ovik
