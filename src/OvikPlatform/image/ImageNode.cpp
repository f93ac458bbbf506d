#include "OvikPlatform/image/ImageNode.h"

namespace ovik {

ImageNode::ImageNode(const CGRect& extent, std::vector<Input> inputs)
    : extent_(extent), pixels_(PixelRect::covering(extent)), inputs_(std::move(inputs)) {}

PixelRect ImageNode::inputRegion(std::size_t, const PixelRect& output) const { return output; }

} // namespace ovik
