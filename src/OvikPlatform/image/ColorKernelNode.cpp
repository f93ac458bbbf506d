#include "OvikPlatform/image/ColorKernelNode.h"

#include <array>

namespace ovik {

ColorKernelNode::ColorKernelNode(const CGRect& extent, std::vector<Input> inputs, ImageKernel::ColorFunction function,
                                 std::vector<double> values)
    : ImageNode(extent, std::move(inputs)), function_(std::move(function)), values_(std::move(values)) {}

void ColorKernelNode::render(const PixelTile& output, NodeInputs& inputs) const {
    const PixelRect& rect = output.rect();
    std::vector<PixelTile> tiles;
    for (std::size_t i = 0; i < this->inputs().size(); ++i) tiles.push_back(inputs.fetch(i, rect));
    std::array<const Pixel*, ImageKernel::maximumImages> rows{};
    for (std::int64_t y = rect.y; y < rect.maxY(); ++y) {
        for (std::size_t i = 0; i < tiles.size(); ++i) rows[i] = tiles[i].row(y);
        function_(ColorKernelRow{{rows.data(), tiles.size()}, output.row(y), rect.width, rect.x, y, values_});
    }
}

} // namespace ovik
