#pragma once
// Working pixels kept from an earlier render as a source, its lower left corner at the
// origin: a baked picture read back with no encoding in between.
#include <memory>

#include "OvikPlatform/image/Bitmap.h"
#include "OvikPlatform/image/ImageNode.h"

namespace ovik {

class FloatBitmapSourceNode final : public ImageNode {
public:
    explicit FloatBitmapSourceNode(std::shared_ptr<const BitmapFloat> bitmap);
    void render(const PixelTile& output, NodeInputs& inputs) const override;

private:
    std::shared_ptr<const BitmapFloat> bitmap_;
};

} // namespace ovik
