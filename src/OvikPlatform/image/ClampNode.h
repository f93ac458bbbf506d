#pragma once
// An image's edge pixels repeated outward to infinity: each pixel outside reads the nearest
// pixel of the extent (rounded to whole pixels).
#include "OvikPlatform/image/ImageNode.h"

namespace ovik {

class ClampNode final : public ImageNode {
public:
    /// `input` has a finite, non-null extent.
    explicit ClampNode(Input input);
    PixelRect inputRegion(std::size_t index, const PixelRect& output) const override;
    void render(const PixelTile& output, NodeInputs& inputs) const override;

private:
    std::int64_t clampedX(std::int64_t x) const;
    std::int64_t clampedY(std::int64_t y) const;
    PixelRect area_;
};

} // namespace ovik
