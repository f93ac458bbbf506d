#pragma once
// A bitmap as a source, its lower left corner at the origin; decoded tile by tile as read.
#include "OvikPlatform/image/CGImage.h"
#include "OvikPlatform/image/ImageNode.h"

namespace ovik {

class BitmapSourceNode final : public ImageNode {
public:
    explicit BitmapSourceNode(std::shared_ptr<const CGImage> bitmap);
    void render(const PixelTile& output, NodeInputs& inputs) const override;

private:
    std::shared_ptr<const CGImage> bitmap_;
};

} // namespace ovik
