#include "OvikPlatform/image/SeparableBlurNode.h"

#include <algorithm>

#include "OvikPlatform/image/ImageExtent.h"

namespace ovik {
namespace {

CGRect spread(const CGRect& extent, SeparableBlurNode::Axis axis, std::size_t weights) {
    const double radius = double(weights / 2);
    return axis == SeparableBlurNode::Axis::horizontal ? ImageExtent::grown(extent, radius, 0)
                                                       : ImageExtent::grown(extent, 0, radius);
}

} // namespace

Image SeparableBlurNode::bothAxes(const Image& image, const std::vector<float>& weights) {
    if (image.isEmpty()) return image;
    const auto across = std::make_shared<SeparableBlurNode>(image.node(), Axis::horizontal, weights);
    return Image(std::make_shared<SeparableBlurNode>(across, Axis::vertical, weights));
}

SeparableBlurNode::SeparableBlurNode(Input input, Axis axis, std::vector<float> weights)
    : ImageNode(spread(input->extent(), axis, weights.size()), {input}), axis_(axis), weights_(std::move(weights)) {}

PixelRect SeparableBlurNode::inputRegion(std::size_t, const PixelRect& output) const {
    return axis_ == Axis::horizontal ? output.grown(radius(), 0) : output.grown(0, radius());
}

void SeparableBlurNode::render(const PixelTile& output, NodeInputs& inputs) const {
    const PixelRect& rect = output.rect();
    const PixelTile source = inputs.fetch(0, inputRegion(0, rect));
    const std::size_t taps = weights_.size();
    for (std::int64_t y = rect.y; y < rect.maxY(); ++y) {
        Pixel* row = output.row(y);
        if (axis_ == Axis::horizontal) {
            const Pixel* line = source.row(y);
            for (std::int64_t x = 0; x < rect.width; ++x) {
                Pixel sum;
                for (std::size_t k = 0; k < taps; ++k) sum = sum + line[x + std::int64_t(k)] * weights_[k];
                row[x] = sum;
            }
        } else {
            // Row by row, so that the inner loop runs along memory; each pixel still sums its
            // taps in the same order.
            std::fill_n(row, rect.width, Pixel{});
            for (std::size_t k = 0; k < taps; ++k) {
                const Pixel* line = source.row(y - radius() + std::int64_t(k));
                for (std::int64_t x = 0; x < rect.width; ++x) row[x] = row[x] + line[x] * weights_[k];
            }
        }
    }
}

} // namespace ovik
