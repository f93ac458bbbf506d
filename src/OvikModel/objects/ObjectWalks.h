#pragma once
// The walks over a list of object nodes. They work on the list itself, so that they serve the
// top level of a draft and the children of any group alike. Order is painting order: depth
// first, each list from its first node (the furthest back), a group before its children.
#include <functional>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "OvikModel/objects/ObjectLocation.h"
#include "OvikModel/objects/ObjectNode.h"

namespace ovik {

using ObjectNodes = std::vector<ObjectNode>;
using ObjectIDs = std::set<ObjectID>;

/// Every node, each before its children; the location names the list it stands in, whose
/// group is `parent` at the top of this walk.
void forEachNode(const ObjectNodes& nodes, const std::optional<ObjectID>& parent,
                 const std::function<void(const ObjectNode&, const ObjectLocation&)>& visit);

/// Every leaf that is in `under` or lies below a group in it, in painting order. With
/// `inherited`, every leaf of the list counts.
void forEachLeaf(const ObjectNodes& nodes, const ObjectIDs& under, bool inherited,
                 const std::function<void(const ObjectNode&)>& visit);

/// The node with this id at any depth, or none.
const ObjectNode* node(const ObjectNodes& nodes, const ObjectID& id);

std::optional<ObjectLocation> location(const ObjectNodes& nodes, const ObjectID& id,
                                       const std::optional<ObjectID>& parent = std::nullopt);

/// Changes one node in place wherever it stands; false when there is no such node.
bool updateNode(ObjectNodes& nodes, const ObjectID& id, const std::function<void(ObjectNode&)>& change);

/// Changes in place the leaves that `forEachLeaf` would visit.
void updateLeaves(ObjectNodes& nodes, const ObjectIDs& under, bool inherited,
                  const std::function<void(ObjectNode&)>& change);

/// Changes every node in place, each before its children.
void updateEveryNode(ObjectNodes& nodes, const std::function<void(ObjectNode&)>& change);

/// Replaces every leaf by what `transform` makes of it.
void mapLeaves(ObjectNodes& nodes, const std::function<ObjectNode(const ObjectNode&)>& transform);

/// Removes the nodes with these ids at any depth; with pruning, a group that this removal
/// empties goes too, and so on upward. A group that was empty before stays. True when any
/// node went.
bool removeNodes(ObjectNodes& nodes, const ObjectIDs& ids, bool pruningEmptiedGroups);

/// Removes the groups among `ids` that are empty, and the groups that this empties in turn.
void pruneEmptyGroups(ObjectNodes& nodes, const ObjectIDs& among);

/// Of `among`, the ids that don't lie inside another member, with their locations, in
/// painting order.
std::vector<std::pair<ObjectID, ObjectLocation>>
outermost(const ObjectNodes& nodes, const std::optional<ObjectID>& parent, const ObjectIDs& among);

bool containsLeaf(const ObjectNodes& nodes, const std::function<bool(const ObjectNode&)>& where);

/// Every file of the package that the nodes refer to, at any depth: sticker pictures and the
/// vector files that objects were imported from. A package is only sound when each of them
/// stays inside it.
std::set<PackagePath> objectPaths(const ObjectNodes& nodes);

// ---- views of a draft's whole tree ------------------------------------------------------------

/// All leaves in painting order.
std::vector<ObjectNode> leavesBackToFront(const ObjectNodes& nodes);

/// The ids of the groups that enclose the node, outermost first; empty at the top level or
/// when there is no such node.
std::vector<ObjectID> ancestors(const ObjectNodes& nodes, const ObjectID& id);

/// Whether the node or any group that encloses it is hidden; a node that can't be found
/// counts as shown.
bool isEffectivelyHidden(const ObjectNodes& nodes, const ObjectID& id);

} // namespace ovik
