#pragma once
// Where a property stands: on an object, a media, a section's look, a space, or the draft
// itself; with the effect or generator parameter it names, if any.
//
// Text form: "<object id or name>.<property>", "<media id>.<property>",
// "<section id>.look.<effect>", or a draft property's dotted name ("style.padding").
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
        struct draft {
            static constexpr std::string_view name = "draft";
            bool operator==(const draft&) const = default;
        };
        std::variant<object, media, section, draft> cases;
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
