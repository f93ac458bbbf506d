#include "OvikPlatform/image/HalvingNode.h"

#include <array>

#include "OvikPlatform/image/ImageExtent.h"

namespace ovik {
namespace {

constexpr std::array<float, 4> weights{0.125f, 0.375f, 0.375f, 0.125f};

// Input pixel i feeds the halves j with 2j - 1 <= i <= 2j + 2.
CGRect halvedExtent(const ImageNode& input) {
    if (ImageExtent::isInfinite(input.extent())) return ImageExtent::infinite();
    const PixelRect& p = input.pixels();
    return PixelRect::fromEdges((p.x - 1) >> 1, (p.y - 1) >> 1, (p.maxX() >> 1) + 1, (p.maxY() >> 1) + 1).cgRect();
}

} // namespace

HalvingNode::HalvingNode(Input input) : ImageNode(halvedExtent(*input), {input}) {}

PixelRect HalvingNode::inputRegion(std::size_t, const PixelRect& output) const {
    return PixelRect::fromEdges(2 * output.x - 1, 2 * output.y - 1, 2 * output.maxX() + 1, 2 * output.maxY() + 1);
}

void HalvingNode::render(const PixelTile& output, NodeInputs& inputs) const {
    const PixelRect& rect = output.rect();
    const PixelTile source = inputs.fetch(0, inputRegion(0, rect));
    const PixelRect& region = source.rect();
    // Across first, every input row the result reads; then down.
    const PixelTile across = PixelTile::uncleared({rect.x, region.y, rect.width, region.height});
    for (std::int64_t j = region.y; j < region.maxY(); ++j) {
        const Pixel* line = source.row(j);
        Pixel* row = across.row(j);
        for (std::int64_t x = 0; x < rect.width; ++x) {
            const Pixel* taps = line + 2 * x;
            row[x] = taps[0] * weights[0] + taps[1] * weights[1] + taps[2] * weights[2] + taps[3] * weights[3];
        }
    }
    for (std::int64_t y = rect.y; y < rect.maxY(); ++y) {
        const Pixel* taps[4] = {across.row(2 * y - 1), across.row(2 * y), across.row(2 * y + 1), across.row(2 * y + 2)};
        Pixel* row = output.row(y);
        for (std::int64_t x = 0; x < rect.width; ++x)
            row[x] =
                taps[0][x] * weights[0] + taps[1][x] * weights[1] + taps[2][x] * weights[2] + taps[3][x] * weights[3];
    }
}

} // namespace ovik
