#pragma once
// A node of a space by where it stands in the space's JSON: "objects.0", "lights.2",
// "objects.0.children.1". A path starts in the space's `objects` or `lights` list and goes
// down through `children` lists, one index a step.
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "OvikPlatform/json/JSONValue.h"

namespace ovik {

struct SpaceNodePath {
    struct Step {
        std::string list;
        std::size_t index = 0;
        bool operator==(const Step&) const = default;
    };
    std::vector<Step> steps;

    /// The longest node path at the start of `text` that ends at its end or at a dot, with the
    /// number of characters it takes; none when `text` doesn't begin with one.
    static std::optional<std::pair<SpaceNodePath, std::size_t>> leading(std::string_view text);
    /// The whole of `text` as a node path.
    static std::optional<SpaceNodePath> parse(std::string_view text);

    /// The node in `space`, when there is one and it is a JSON object.
    const JSONValue* in(const JSONValue& space) const;
    JSONValue* in(JSONValue& space) const;

    bool operator==(const SpaceNodePath&) const = default;
};

} // namespace ovik
