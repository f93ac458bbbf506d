#include "OvikPlatform/image/SamplingKernelNode.h"

namespace ovik {

SamplingKernelNode::SamplingKernelNode(const CGRect& extent, std::vector<Input> inputs,
                                       ImageKernel::SamplingFunction function, ImageKernel::RegionFunction region,
                                       std::vector<double> values)
    : ImageNode(extent, std::move(inputs)), function_(std::move(function)), region_(std::move(region)),
      values_(std::move(values)) {}

PixelRect SamplingKernelNode::inputRegion(std::size_t index, const PixelRect& output) const {
    return PixelRect::covering(region_(index, output.cgRect(), values_));
}

void SamplingKernelNode::render(const PixelTile& output, NodeInputs& inputs) const {
    const PixelRect& rect = output.rect();
    std::vector<PixelTile> tiles;
    for (std::size_t i = 0; i < this->inputs().size(); ++i) tiles.push_back(inputs.fetch(i, inputRegion(i, rect)));
    const KernelSampler sampler(tiles);
    for (std::int64_t y = rect.y; y < rect.maxY(); ++y) {
        Pixel* row = output.row(y);
        for (std::int64_t x = rect.x; x < rect.maxX(); ++x)
            row[x - rect.x] = function_(sampler, {double(x) + 0.5, double(y) + 0.5}, values_);
    }
}

} // namespace ovik
