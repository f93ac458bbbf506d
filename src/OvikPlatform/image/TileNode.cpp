#include "OvikPlatform/image/TileNode.h"

#include "OvikPlatform/image/ImageExtent.h"

namespace ovik {
namespace {

// Where `coordinate` falls within the period that starts at `origin`.
std::int64_t wrapped(std::int64_t coordinate, std::int64_t origin, std::int64_t period) {
    const std::int64_t offset = (coordinate - origin) % period;
    return origin + (offset < 0 ? offset + period : offset);
}

// The stretch of one period that the span [first, end) reads: all of it once the span wraps.
std::pair<std::int64_t, std::int64_t> readSpan(std::int64_t first, std::int64_t end, std::int64_t origin,
                                               std::int64_t period) {
    const std::int64_t from = wrapped(first, origin, period), to = wrapped(end - 1, origin, period);
    if (end - first >= period || to < from) return {origin, origin + period};
    return {from, to + 1};
}

} // namespace

TileNode::TileNode(Input input)
    : ImageNode(ImageExtent::infinite(), {input}), area_(PixelRect::nearest(input->extent())) {}

PixelRect TileNode::inputRegion(std::size_t, const PixelRect& output) const {
    const auto [minX, maxX] = readSpan(output.x, output.maxX(), area_.x, area_.width);
    const auto [minY, maxY] = readSpan(output.y, output.maxY(), area_.y, area_.height);
    return PixelRect::fromEdges(minX, minY, maxX, maxY);
}

void TileNode::render(const PixelTile& output, NodeInputs& inputs) const {
    const PixelRect& rect = output.rect();
    const PixelTile source = inputs.fetch(0, inputRegion(0, rect));
    for (std::int64_t y = rect.y; y < rect.maxY(); ++y) {
        const Pixel* line = source.row(wrapped(y, area_.y, area_.height));
        Pixel* row = output.row(y);
        for (std::int64_t x = rect.x; x < rect.maxX(); ++x)
            row[x - rect.x] = line[wrapped(x, area_.x, area_.width) - source.rect().x];
    }
}

} // namespace ovik
