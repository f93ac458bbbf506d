#pragma once
// Where a property of a 3D space lives in the section's space JSON: the part of the space it
// belongs to, the key it is stored under (inside a sub-object such as "fog" or "material"), the
// node types that have it, the value that stands when it is absent, its words, and the action
// row that moves it.
#include <optional>
#include <string>
#include <vector>

#include "OvikPlatform/json/JSONValue.h"

namespace ovik {

struct SpaceField {
    enum class Part { renderer, environment, fog, camera, material, light, shadow, object, geometry };

    Part part = Part::renderer;
    /// Empty for a value the renderer works out, which nothing stores.
    std::string key;
    /// The JSON sub-object that holds the key; none: the space or the node itself.
    std::optional<std::string> section;
    /// The `type` names that have the field (a material's or geometry's own for those parts, the
    /// node's otherwise); empty: every type.
    std::vector<std::string> classes;
    /// What an absent field reads as; none: the field is optional, and "none" reads and clears it.
    std::optional<JSONValue> fallback;
    std::optional<std::vector<std::string>> choices;
    /// The dotted name of the action row that moves the field.
    std::optional<std::string> moves;

    /// Material, light, shadow, object and geometry fields stand on a node; the rest on the whole
    /// space.
    bool onNode() const;
    /// The key's dotted place under the space or node: "fog.near", "material.roughness", "fov".
    std::string place() const;

    bool operator==(const SpaceField&) const = default;
};

} // namespace ovik
