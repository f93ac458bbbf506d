#include "OvikPlatform/image/FloatBitmapSourceNode.h"

#include "OvikPlatform/image/PixelTile.h"

namespace ovik {

FloatBitmapSourceNode::FloatBitmapSourceNode(std::shared_ptr<const BitmapFloat> bitmap)
    : ImageNode({{0, 0}, {double(bitmap->width), double(bitmap->height)}}, {}), bitmap_(std::move(bitmap)) {}

void FloatBitmapSourceNode::render(const PixelTile& output, NodeInputs&) const {
    const PixelRect& rect = output.rect();
    for (std::int64_t y = rect.y; y < rect.maxY(); ++y) {
        // Bitmaps keep their top row first; y counts up from the bottom.
        const float* source = bitmap_->at(rect.x, bitmap_->height - 1 - y);
        Pixel* row = output.row(y);
        for (std::int64_t x = 0; x < rect.width; ++x, source += 4) row[x] = Pixel{source[0], source[1], source[2], source[3]};
    }
}

} // namespace ovik
