#pragma once
// The rules of a section look's actions: they move only the numbers of the look's effects,
// and only in the ways a look can move.
#include <optional>
#include <string>
#include <vector>

#include "OvikModel/animation/ActionMode.h"
#include "OvikModel/scene/PropertyKey.h"

namespace ovik::LookActions {

/// The keys a look's action may move.
const std::vector<PropertyKey>& properties();
/// Why a look can't move `property`, or none when it can.
std::optional<std::string> refuses(PropertyKey property);
/// Why a look can't move in the manner of `mode`, or none when it can.
std::optional<std::string> refuses(const ActionMode& mode);

} // namespace ovik::LookActions
