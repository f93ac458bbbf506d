#pragma once
// An image's extent (rounded to whole pixels) repeated over the whole plane, one copy beside
// the next, anchored where the extent lies.
#include "OvikPlatform/image/ImageNode.h"

namespace ovik {

class TileNode final : public ImageNode {
public:
    /// `input` has a finite, non-null extent.
    explicit TileNode(Input input);
    PixelRect inputRegion(std::size_t index, const PixelRect& output) const override;
    void render(const PixelTile& output, NodeInputs& inputs) const override;

private:
    PixelRect area_;
};

} // namespace ovik
