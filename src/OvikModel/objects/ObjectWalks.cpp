#include "OvikModel/objects/ObjectWalks.h"

#include <algorithm>

namespace ovik {
namespace {

// One walk serves the reading and the changing forms: `Nodes` is a list, const or not.
template <class Nodes, class Visit>
void eachLeafUnder(Nodes& nodes, const ObjectIDs& under, bool inherited, const Visit& visit) {
    for (auto& node : nodes) {
        const bool counts = inherited || under.contains(node.id);
        if (auto* children = node.content.children())
            eachLeafUnder(*children, under, counts, visit);
        else if (counts)
            visit(node);
    }
}

template <class Nodes>
auto find(Nodes& nodes, const ObjectID& id) -> decltype(nodes.data()) {
    for (auto& node : nodes) {
        if (node.id == id) return &node;
        if (auto* children = node.content.children())
            if (auto* found = find(*children, id)) return found;
    }
    return nullptr;
}

// The chain of groups down to the node, outermost first, ending with the node itself.
bool pathTo(const ObjectNodes& nodes, const ObjectID& id, std::vector<const ObjectNode*>& chain) {
    for (const ObjectNode& node : nodes) {
        chain.push_back(&node);
        if (node.id == id) return true;
        if (const auto* children = node.content.children())
            if (pathTo(*children, id, chain)) return true;
        chain.pop_back();
    }
    return false;
}

// Removes the nodes that `doomed` picks, at any depth. With pruning, a group that had
// children and has none after this goes as well. True when any node went.
bool removeWhere(ObjectNodes& nodes, const std::function<bool(const ObjectNode&)>& doomed, bool pruning) {
    bool changed = false;
    for (auto it = nodes.begin(); it != nodes.end();) {
        bool goes = doomed(*it);
        auto* children = it->content.children();
        if (!goes && children && !children->empty() && removeWhere(*children, doomed, pruning)) {
            changed = true;
            goes = pruning && children->empty();
        }
        if (goes) {
            it = nodes.erase(it);
            changed = true;
        } else {
            ++it;
        }
    }
    return changed;
}

} // namespace

void forEachNode(const ObjectNodes& nodes, const std::optional<ObjectID>& parent,
                 const std::function<void(const ObjectNode&, const ObjectLocation&)>& visit) {
    for (std::size_t index = 0; index < nodes.size(); ++index) {
        visit(nodes[index], ObjectLocation{parent, index});
        if (const auto* children = nodes[index].content.children()) forEachNode(*children, nodes[index].id, visit);
    }
}

void forEachLeaf(const ObjectNodes& nodes, const ObjectIDs& under, bool inherited,
                 const std::function<void(const ObjectNode&)>& visit) {
    eachLeafUnder(nodes, under, inherited, visit);
}

const ObjectNode* node(const ObjectNodes& nodes, const ObjectID& id) { return find(nodes, id); }

std::optional<ObjectLocation> location(const ObjectNodes& nodes, const ObjectID& id,
                                       const std::optional<ObjectID>& parent) {
    std::optional<ObjectLocation> found;
    forEachNode(nodes, parent, [&](const ObjectNode& node, const ObjectLocation& at) {
        if (!found && node.id == id) found = at;
    });
    return found;
}

bool updateNode(ObjectNodes& nodes, const ObjectID& id, const std::function<void(ObjectNode&)>& change) {
    ObjectNode* target = find(nodes, id);
    if (target) change(*target);
    return target != nullptr;
}

void updateLeaves(ObjectNodes& nodes, const ObjectIDs& under, bool inherited,
                  const std::function<void(ObjectNode&)>& change) {
    eachLeafUnder(nodes, under, inherited, change);
}

void updateEveryNode(ObjectNodes& nodes, const std::function<void(ObjectNode&)>& change) {
    for (ObjectNode& node : nodes) {
        change(node);
        if (auto* children = node.content.children()) updateEveryNode(*children, change);
    }
}

void mapLeaves(ObjectNodes& nodes, const std::function<ObjectNode(const ObjectNode&)>& transform) {
    eachLeafUnder(nodes, {}, true, [&](ObjectNode& leaf) { leaf = transform(leaf); });
}

bool removeNodes(ObjectNodes& nodes, const ObjectIDs& ids, bool pruningEmptiedGroups) {
    return removeWhere(
        nodes, [&](const ObjectNode& node) { return ids.contains(node.id); }, pruningEmptiedGroups);
}

void pruneEmptyGroups(ObjectNodes& nodes, const ObjectIDs& among) {
    removeWhere(
        nodes,
        [&](const ObjectNode& node) {
            const auto* children = node.content.children();
            return children && children->empty() && among.contains(node.id);
        },
        true);
}

std::vector<std::pair<ObjectID, ObjectLocation>>
outermost(const ObjectNodes& nodes, const std::optional<ObjectID>& parent, const ObjectIDs& among) {
    std::vector<std::pair<ObjectID, ObjectLocation>> found;
    for (std::size_t index = 0; index < nodes.size(); ++index) {
        const ObjectNode& node = nodes[index];
        if (among.contains(node.id)) {
            found.emplace_back(node.id, ObjectLocation{parent, index});
        } else if (const auto* children = node.content.children()) {
            auto inner = outermost(*children, node.id, among);
            found.insert(found.end(), inner.begin(), inner.end());
        }
    }
    return found;
}

bool containsLeaf(const ObjectNodes& nodes, const std::function<bool(const ObjectNode&)>& where) {
    return std::any_of(nodes.begin(), nodes.end(), [&](const ObjectNode& node) {
        const auto* children = node.content.children();
        return children ? containsLeaf(*children, where) : where(node);
    });
}

std::set<PackagePath> objectPaths(const ObjectNodes& nodes) {
    std::set<PackagePath> paths;
    forEachNode(nodes, std::nullopt, [&](const ObjectNode& node, const ObjectLocation&) {
        if (node.vectorSource) paths.insert(node.vectorSource->file);
        const Annotation* annotation = node.annotation();
        if (annotation && annotation->is<Annotation::sticker>())
            paths.insert(annotation->as<Annotation::sticker>().value.image);
    });
    return paths;
}

std::vector<ObjectNode> leavesBackToFront(const ObjectNodes& nodes) {
    std::vector<ObjectNode> leaves;
    forEachLeaf(nodes, {}, true, [&](const ObjectNode& leaf) { leaves.push_back(leaf); });
    return leaves;
}

std::vector<ObjectID> ancestors(const ObjectNodes& nodes, const ObjectID& id) {
    std::vector<const ObjectNode*> chain;
    if (!pathTo(nodes, id, chain)) return {};
    std::vector<ObjectID> ids;
    for (std::size_t i = 0; i + 1 < chain.size(); ++i) ids.push_back(chain[i]->id);
    return ids;
}

bool isEffectivelyHidden(const ObjectNodes& nodes, const ObjectID& id) {
    std::vector<const ObjectNode*> chain;
    pathTo(nodes, id, chain);
    return std::any_of(chain.begin(), chain.end(), [](const ObjectNode* node) { return node->isHidden; });
}

} // namespace ovik
