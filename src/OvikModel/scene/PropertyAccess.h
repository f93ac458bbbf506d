#pragma once
// How a row is read and written on the model. A row stands on objects (each node's value), on
// media (each media's value), on the draft (one value of its settings), or on none of them
// (actions alone move it). Values are
// in the property language: numbers, true/false, choice words, "#RRGGBB" colours, "none".
#include <functional>
#include <optional>
#include <string>

#include "OvikPlatform/json/JSONValue.h"

namespace ovik {

struct Draft;
struct Media;
struct ObjectNode;
struct Annotation;
struct PropertySpec;
struct PropertyValue;

struct ObjectAccess {
    /// The kinds of leaves that have the property; none: every node has it, groups too.
    std::function<bool(const Annotation&)> leaves;
    std::function<std::optional<JSONValue>(const ObjectNode&)> read;
    /// Writes one node; throws `PropertyError` for a value the row refuses.
    std::function<void(ObjectNode&, const PropertyValue&, const PropertySpec&)> write;
};

struct MediaAccess {
    std::function<std::optional<JSONValue>(const Media&)> read;
    std::function<void(Media&, const PropertyValue&, const PropertySpec&)> write;
};

struct SectionAccess {
    std::function<std::optional<JSONValue>(const Draft&)> read;
    std::function<void(Draft&, const PropertyValue&, const PropertySpec&)> write;
};

} // namespace ovik
