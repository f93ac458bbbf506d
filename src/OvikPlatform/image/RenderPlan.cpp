#include "OvikPlatform/image/RenderPlan.h"

#include <algorithm>

#include "OvikPlatform/image/TilePool.h"

namespace ovik {

class RenderPlan::Inputs final : public NodeInputs {
public:
    Inputs(RenderPlan& plan, const ImageNode& node) : plan_(plan), node_(node) {}
    PixelTile fetch(std::size_t index, const PixelRect& rect) override {
        return plan_.evaluate(node_.inputs()[index].get(), rect);
    }

private:
    RenderPlan& plan_;
    const ImageNode& node_;
};

RenderPlan::RenderPlan(const ImageNode* root, const PixelRect& rect) : root_(root), rect_(rect) {
    std::set<const ImageNode*> seen;
    collect(root, seen);
    planRegions();
    for (const ImageNode* node : order_)
        if (node->isMaterialized() && !regions_[node].isEmpty()) passes_.push_back(node);
    for (const ImageNode* pass : passes_)
        for (const ImageNode* read : readsOfPass(pass)) ++readers_[read];
    for (const ImageNode* read : readsOfPass(nullptr)) ++readers_[read];
}

std::vector<PixelRect> RenderPlan::tiles(const PixelRect& rect) {
    std::vector<PixelRect> parts;
    for (std::int64_t y = rect.y; y < rect.maxY(); y += tileSize)
        for (std::int64_t x = rect.x; x < rect.maxX(); x += tileSize)
            parts.push_back(
                PixelRect::fromEdges(x, y, std::min(x + tileSize, rect.maxX()), std::min(y + tileSize, rect.maxY())));
    return parts;
}

void RenderPlan::collect(const ImageNode* node, std::set<const ImageNode*>& seen) {
    if (!node || !seen.insert(node).second) return;
    for (const ImageNode::Input& input : node->inputs()) collect(input.get(), seen);
    order_.push_back(node);
}

// Consumers before their inputs, so that each node's region is whole before it is passed on.
void RenderPlan::planRegions() {
    if (root_) regions_[root_] = rect_.intersection(root_->pixels());
    for (auto node = order_.rbegin(); node != order_.rend(); ++node) {
        const PixelRect region = regions_[*node];
        if (region.isEmpty()) continue;
        for (std::size_t i = 0; i < (*node)->inputs().size(); ++i) {
            const ImageNode* input = (*node)->inputs()[i].get();
            if (!input) continue;
            const PixelRect needed = (*node)->inputRegion(i, region).intersection(input->pixels());
            regions_[input] = regions_[input].unionWith(needed);
        }
    }
}

void RenderPlan::gatherReads(const ImageNode* node, std::set<const ImageNode*>& reads,
                             std::set<const ImageNode*>& seen) const {
    if (!node || !seen.insert(node).second) return;
    if (node->isMaterialized()) {
        reads.insert(node);
        return;
    }
    for (const ImageNode::Input& input : node->inputs()) gatherReads(input.get(), reads, seen);
}

// A null pass is the last one, which reads the root.
std::set<const ImageNode*> RenderPlan::readsOfPass(const ImageNode* pass) const {
    std::set<const ImageNode*> reads, seen;
    if (!pass)
        gatherReads(root_, reads, seen);
    else
        for (const ImageNode::Input& input : pass->inputs()) gatherReads(input.get(), reads, seen);
    return reads;
}

void RenderPlan::run(TilePool& pool, const std::function<void(const PixelTile&)>& deliver) {
    for (const ImageNode* pass : passes_) {
        finish(*pass, pool);
        release(readsOfPass(pass));
    }
    const std::vector<PixelRect> parts = tiles(rect_);
    pool.forEach(parts.size(), [&](std::size_t i) { deliver(evaluate(root_, parts[i])); });
}

RenderWork RenderPlan::work() const {
    RenderWork work{std::int64_t(passes_.size()) + 1, rect_.pixelCount()};
    for (const ImageNode* pass : passes_) work.pixelsProcessed += regions_.at(pass).pixelCount();
    return work;
}

void RenderPlan::finish(const ImageNode& node, TilePool& pool) {
    const PixelTile whole = PixelTile::uncleared(regions_[&node]);
    const std::vector<PixelRect> parts = tiles(whole.rect());
    pool.forEach(parts.size(), [&](std::size_t i) {
        Inputs inputs(*this, node);
        node.render(whole.view(parts[i]), inputs);
    });
    finished_[&node] = whole;
}

void RenderPlan::release(const std::set<const ImageNode*>& reads) {
    for (const ImageNode* read : reads)
        if (--readers_[read] == 0) finished_.erase(read);
}

PixelTile RenderPlan::evaluate(const ImageNode* node, const PixelRect& rect) {
    if (!node) return PixelTile(rect);
    if (const auto done = finished_.find(node); done != finished_.end()) return done->second.covering(rect);
    const PixelRect inside = rect.intersection(node->pixels());
    // The node writes every pixel inside its extent; only the rest must be cleared.
    const PixelTile tile = inside == rect ? PixelTile::uncleared(rect) : PixelTile(rect);
    if (!inside.isEmpty()) {
        Inputs inputs(*this, *node);
        node->render(tile.view(inside), inputs);
    }
    return tile;
}

} // namespace ovik
