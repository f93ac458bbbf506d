#pragma once
// Where a property stands: on an object, a media, a section's look, a section's space or one
// of the space's nodes, or the draft itself; with the effect or generator parameter it names,
// if any.
//
// Text form: "<object id or name>.<property>", "<media id>.<property>",
// "<section id>.look.<effect>", "<section id>.space.<field>" and
// "<section id>.space.<node>.<field>" (a field by its place in the space's JSON, "fog.near" or
// "material.roughness", or by its dotted name less "space."; a node such as "objects.0.children.1"
// or "lights.2"), or a draft property's dotted name ("style.padding").
#include <optional>
#include <string>
#include <string_view>

#include "OvikModel/animation/EffectAddress.h"
#include "OvikModel/scene/PropertyKey.h"
#include "OvikModel/values/Identifier.h"

namespace ovik {

struct Draft;

struct PropertyPath {
    struct Target : Enumeration<Target> {
        struct object {
            static constexpr std::string_view name = "object";
            ObjectID id;
            bool operator==(const object&) const = default;
        };
        struct media {
            static constexpr std::string_view name = "media";
            MediaID id;
            bool operator==(const media&) const = default;
        };
        struct section {
            static constexpr std::string_view name = "section";
            SectionID id;
            bool operator==(const section&) const = default;
        };
        struct space {
            static constexpr std::string_view name = "space";
            SectionID id;
            bool operator==(const space&) const = default;
        };
        struct spaceNode {
            static constexpr std::string_view name = "spaceNode";
            SectionID id;
            /// The node's path in the space: "objects.0", "lights.2".
            std::string node;
            bool operator==(const spaceNode&) const = default;
        };
        struct draft {
            static constexpr std::string_view name = "draft";
            bool operator==(const draft&) const = default;
        };
        std::variant<object, space, spaceNode, media, section, draft> cases;
        bool operator==(const Target&) const = default;
    };

    Target target;
    PropertyKey key;
    std::optional<EffectAddress> effect;
    std::optional<std::string> param;

    /// The path's text, with ids.
    std::string description() const;

    /// Reads a path's text against a draft's objects, media and sections. Throws
    /// `PropertyError` naming what was not found.
    static PropertyPath parse(std::string_view text, const Draft& draft);

    bool operator==(const PropertyPath&) const = default;
};

} // namespace ovik
