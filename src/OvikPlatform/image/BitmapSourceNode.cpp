#include "OvikPlatform/image/BitmapSourceNode.h"

#include "OvikPlatform/image/SRGBTransfer.h"

namespace ovik {

BitmapSourceNode::BitmapSourceNode(std::shared_ptr<const CGImage> bitmap)
    : ImageNode({{0, 0}, {double(bitmap->width()), double(bitmap->height())}}, {}), bitmap_(std::move(bitmap)) {}

void BitmapSourceNode::render(const PixelTile& output, NodeInputs&) const {
    const PixelRect& rect = output.rect();
    for (std::int64_t y = rect.y; y < rect.maxY(); ++y) {
        // Bitmaps keep their top row first; y counts up from the bottom.
        const std::uint8_t* source =
            bitmap_->pixels().data() + (bitmap_->height() - 1 - y) * bitmap_->bytesPerRow() + 4 * rect.x;
        Pixel* row = output.row(y);
        for (std::int64_t x = 0; x < rect.width; ++x, source += 4)
            row[x] = SRGBTransfer::decode8(source[0], source[1], source[2], source[3]);
    }
}

} // namespace ovik
