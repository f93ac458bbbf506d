#include "OvikPlatform/image/ClampNode.h"

#include <algorithm>

#include "OvikPlatform/image/ImageExtent.h"

namespace ovik {

ClampNode::ClampNode(Input input)
    : ImageNode(ImageExtent::infinite(), {input}), area_(PixelRect::nearest(input->extent())) {}

std::int64_t ClampNode::clampedX(std::int64_t x) const { return std::clamp(x, area_.x, area_.maxX() - 1); }
std::int64_t ClampNode::clampedY(std::int64_t y) const { return std::clamp(y, area_.y, area_.maxY() - 1); }

PixelRect ClampNode::inputRegion(std::size_t, const PixelRect& output) const {
    return PixelRect::fromEdges(clampedX(output.x), clampedY(output.y), clampedX(output.maxX() - 1) + 1,
                                clampedY(output.maxY() - 1) + 1);
}

void ClampNode::render(const PixelTile& output, NodeInputs& inputs) const {
    const PixelRect& rect = output.rect();
    const PixelTile source = inputs.fetch(0, inputRegion(0, rect));
    for (std::int64_t y = rect.y; y < rect.maxY(); ++y) {
        const Pixel* line = source.row(clampedY(y));
        Pixel* row = output.row(y);
        for (std::int64_t x = rect.x; x < rect.maxX(); ++x) row[x - rect.x] = line[clampedX(x) - source.rect().x];
    }
}

} // namespace ovik
