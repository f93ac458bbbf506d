#pragma once
// A sampling kernel applied: each pixel from anywhere in its inputs' regions of interest.
#include "OvikPlatform/image/ImageKernel.h"
#include "OvikPlatform/image/ImageNode.h"

namespace ovik {

class SamplingKernelNode final : public ImageNode {
public:
    SamplingKernelNode(const CGRect& extent, std::vector<Input> inputs, ImageKernel::SamplingFunction function,
                       ImageKernel::RegionFunction region, std::vector<double> values);
    bool isMaterialized() const override { return true; }
    PixelRect inputRegion(std::size_t index, const PixelRect& output) const override;
    void render(const PixelTile& output, NodeInputs& inputs) const override;

private:
    ImageKernel::SamplingFunction function_;
    ImageKernel::RegionFunction region_;
    std::vector<double> values_;
};

} // namespace ovik
