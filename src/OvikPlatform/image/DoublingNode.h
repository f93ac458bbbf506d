#pragma once
// Twice the resolution, the inverse step of `HalvingNode`: each output pixel takes 3/4 of the
// input pixel it lies in and 1/4 of the neighbour on its side, along both axes. Like halving,
// it keeps the mean and adds a fixed variance at every phase.
#include "OvikPlatform/image/ImageNode.h"

namespace ovik {

class DoublingNode final : public ImageNode {
public:
    explicit DoublingNode(Input input);
    bool isMaterialized() const override { return true; }
    PixelRect inputRegion(std::size_t index, const PixelRect& output) const override;
    void render(const PixelTile& output, NodeInputs& inputs) const override;
};

} // namespace ovik
