#pragma once
// Half the resolution: each pixel of the result stands for a 2×2 block of the input and is
// its [1 3 3 1]/8 weighted average along both axes, centred on the block. The filter keeps the
// mean and adds a fixed variance, whatever the phase, which is what lets a blurred pyramid
// account for it exactly. The result lives in a coordinate space of half the scale.
#include "OvikPlatform/image/ImageNode.h"

namespace ovik {

class HalvingNode final : public ImageNode {
public:
    explicit HalvingNode(Input input);
    bool isMaterialized() const override { return true; }
    PixelRect inputRegion(std::size_t index, const PixelRect& output) const override;
    void render(const PixelTile& output, NodeInputs& inputs) const override;
};

} // namespace ovik
