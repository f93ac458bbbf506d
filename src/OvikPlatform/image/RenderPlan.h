#pragma once
// One render of one rectangle of an image graph.
//
// Planning walks the graph from the root and gives every node the region its consumers need:
// the union of the regions of interest they ask of it, within its extent. Running finishes
// the materialized nodes first, inputs before consumers, each over its whole region in tiles
// spread over the pool; then it hands out the tiles of the rectangle. Every other node is
// computed on demand for the tile at hand (so a shared one is computed once per consumer). A
// finished intermediate is let go as soon as the last pass that reads it is done.
#include <functional>
#include <map>
#include <set>
#include <vector>

#include "OvikPlatform/image/ImageNode.h"
#include "OvikPlatform/image/RenderWork.h"

namespace ovik {

class TilePool;

class RenderPlan {
public:
    static constexpr std::int64_t tileSize = 256;

    /// `root` may be null: the empty image.
    RenderPlan(const ImageNode* root, const PixelRect& rect);

    /// Hands each tile of the rectangle to `deliver`, from the pool's threads.
    void run(TilePool& pool, const std::function<void(const PixelTile&)>& deliver);
    /// The passes of the plan and the pixels they cover.
    RenderWork work() const;

    /// `rect` cut into tiles of `tileSize`, row by row.
    static std::vector<PixelRect> tiles(const PixelRect& rect);

private:
    class Inputs;

    void collect(const ImageNode* node, std::set<const ImageNode*>& seen);
    void planRegions();
    /// The materialized nodes that computing `node` on demand reads.
    void gatherReads(const ImageNode* node, std::set<const ImageNode*>& reads, std::set<const ImageNode*>& seen) const;
    std::set<const ImageNode*> readsOfPass(const ImageNode* pass) const;
    void finish(const ImageNode& node, TilePool& pool);
    void release(const std::set<const ImageNode*>& reads);
    PixelTile evaluate(const ImageNode* node, const PixelRect& rect);

    const ImageNode* root_;
    PixelRect rect_;
    // Inputs before their consumers.
    std::vector<const ImageNode*> order_;
    std::vector<const ImageNode*> passes_;
    std::map<const ImageNode*, PixelRect> regions_;
    std::map<const ImageNode*, int> readers_;
    std::map<const ImageNode*, PixelTile> finished_;
};

} // namespace ovik
