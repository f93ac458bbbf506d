#pragma once
// One operation of the lazy image graph, private to the image layer. A node knows its
// extent, its inputs, which input pixels an output rectangle needs (its region of interest),
// and how to compute a rectangle of its pixels from its inputs'. Outside its extent a node is
// clear, and a pixel's value never depends on which rectangle it was asked for in: that is
// what makes a render independent of tiles and threads.
#include <memory>
#include <vector>

#include "OvikPlatform/geometry/CGRect.h"
#include "OvikPlatform/image/PixelRect.h"
#include "OvikPlatform/image/PixelTile.h"

namespace ovik {

/// What a rendering node reads its inputs through.
class NodeInputs {
public:
    /// Exactly `rect` of input `index`: clear where that input has nothing.
    virtual PixelTile fetch(std::size_t index, const PixelRect& rect) = 0;

protected:
    ~NodeInputs() = default;
};

class ImageNode {
public:
    /// An empty (null) input stands for a clear image.
    using Input = std::shared_ptr<const ImageNode>;

    ImageNode(const CGRect& extent, std::vector<Input> inputs);
    virtual ~ImageNode() = default;
    ImageNode(const ImageNode&) = delete;
    ImageNode& operator=(const ImageNode&) = delete;

    const CGRect& extent() const { return extent_; }
    /// The pixels the extent touches.
    const PixelRect& pixels() const { return pixels_; }
    const std::vector<Input>& inputs() const { return inputs_; }

    /// Neighbourhood operations are finished over their whole region before their consumers
    /// run, so that no pixel of theirs is computed twice at the margins of adjoining tiles.
    virtual bool isMaterialized() const { return false; }
    /// The pixels of input `index` that `output` depends on.
    virtual PixelRect inputRegion(std::size_t index, const PixelRect& output) const;
    /// Computes `output.rect()`, which lies within pixels().
    virtual void render(const PixelTile& output, NodeInputs& inputs) const = 0;

private:
    CGRect extent_;
    PixelRect pixels_;
    std::vector<Input> inputs_;
};

} // namespace ovik
