#pragma once
// A picture named inside the draft: a media (seen through its own clock), an object or a
// section. Stored as one object whose key tells which: {"media": id, "clock": {...}},
// {"object": id} or {"section": id}, tried in that order.
#include <optional>

#include "OvikModel/objects/SpreadRecord.h"
#include "OvikModel/time/Clock.h"
#include "OvikModel/values/Identifier.h"

namespace ovik {

struct ImageSource : Enumeration<ImageSource> {
    struct media {
        static constexpr std::string_view name = "media";
        MediaID id;
        std::optional<Clock> clock; // none is the plain clock
        bool operator==(const media&) const = default;
        static constexpr auto jsonFields() {
            return std::tuple{required("media", &media::id), optional("clock", &media::clock)};
        }
    };
    struct object {
        static constexpr std::string_view name = "object";
        ObjectID id;
        bool operator==(const object&) const = default;
        static constexpr auto jsonFields() { return std::tuple{required("object", &object::id)}; }
    };
    struct section {
        static constexpr std::string_view name = "section";
        SectionID id;
        bool operator==(const section&) const = default;
        static constexpr auto jsonFields() { return std::tuple{required("section", &section::id)}; }
    };
    std::variant<media, object, section> cases;

    bool operator==(const ImageSource&) const = default;
};

template <>
struct JSONCoding<ImageSource> {
    static JSONValue encode(const ImageSource& source);
    static ImageSource decode(JSONNode node, const CodingPath& path);
};

} // namespace ovik
