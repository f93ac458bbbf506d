#include "OvikPlatform/image/DoublingNode.h"

#include "OvikPlatform/image/ImageExtent.h"

namespace ovik {
namespace {

// Input pixel j covers output pixels 2j and 2j + 1 and reaches one further on each side.
CGRect doubledExtent(const ImageNode& input) {
    if (ImageExtent::isInfinite(input.extent())) return ImageExtent::infinite();
    const PixelRect& p = input.pixels();
    return PixelRect::fromEdges(2 * p.x - 1, 2 * p.y - 1, 2 * p.maxX() + 1, 2 * p.maxY() + 1).cgRect();
}

// Output pixel i reads the input pixel it lies in (3/4) and the neighbour on its side (1/4).
std::pair<std::int64_t, std::int64_t> sources(std::int64_t i) {
    const std::int64_t j = i >> 1;
    return {j, (i & 1) ? j + 1 : j - 1};
}

Pixel between(const Pixel& inside, const Pixel& beside) { return inside * 0.75f + beside * 0.25f; }

} // namespace

DoublingNode::DoublingNode(Input input) : ImageNode(doubledExtent(*input), {input}) {}

PixelRect DoublingNode::inputRegion(std::size_t, const PixelRect& output) const {
    return PixelRect::fromEdges((output.x >> 1) - 1, (output.y >> 1) - 1, ((output.maxX() - 1) >> 1) + 2,
                                ((output.maxY() - 1) >> 1) + 2);
}

void DoublingNode::render(const PixelTile& output, NodeInputs& inputs) const {
    const PixelRect& rect = output.rect();
    const PixelTile source = inputs.fetch(0, inputRegion(0, rect));
    const PixelRect& region = source.rect();
    // Across first, for every input row the result reads; then down, by the same rule.
    const PixelTile across = PixelTile::uncleared({rect.x, region.y, rect.width, region.height});
    for (std::int64_t j = region.y; j < region.maxY(); ++j) {
        const Pixel* line = source.row(j);
        Pixel* row = across.row(j);
        for (std::int64_t x = 0; x < rect.width; ++x) {
            const auto [inside, beside] = sources(rect.x + x);
            row[x] = between(line[inside - region.x], line[beside - region.x]);
        }
    }
    for (std::int64_t y = rect.y; y < rect.maxY(); ++y) {
        const auto [inside, beside] = sources(y);
        const Pixel* near = across.row(inside);
        const Pixel* far = across.row(beside);
        Pixel* row = output.row(y);
        for (std::int64_t x = 0; x < rect.width; ++x) row[x] = between(near[x], far[x]);
    }
}

} // namespace ovik
