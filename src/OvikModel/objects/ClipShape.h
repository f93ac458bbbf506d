#pragma once
// A shape through which an object or a media is seen: a drawn path, a picture (its alpha, or
// its brightness when the channel is "luma"), or another object of the tree. The source has
// no key of its own: it is whichever of `path`, `picture` and `object` is present, tried in
// that order, beside the clip's other keys.
#include <vector>

#include "OvikModel/animation/Action.h"
#include "OvikModel/objects/BezierPath.h"
#include "OvikModel/objects/ImageSource.h"

namespace ovik {

struct ClipShapeFields {
    double feather = 0;
    bool isInverted = false;
    std::vector<Action> actions;

    bool operator==(const ClipShapeFields&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{defaulted("feather", &ClipShapeFields::feather),
                          defaulted("isInverted", &ClipShapeFields::isInverted),
                          defaulted("actions", &ClipShapeFields::actions)};
    }
};

struct ClipShape : ClipShapeFields {
    /// Which part of a picture makes the mask.
    enum class Channel { alpha, luma };

    struct Source : Enumeration<Source> {
        struct path {
            static constexpr std::string_view name = "path";
            BezierPath value;
            bool operator==(const path&) const = default;
            static constexpr auto jsonFields() { return std::tuple{required("path", &path::value)}; }
        };
        struct picture {
            static constexpr std::string_view name = "picture";
            ImageSource value;
            Channel channel = Channel::alpha;
            bool operator==(const picture&) const = default;
            static constexpr auto jsonFields();
        };
        struct object {
            static constexpr std::string_view name = "object";
            ObjectID value;
            bool operator==(const object&) const = default;
            static constexpr auto jsonFields() { return std::tuple{required("object", &object::value)}; }
        };
        std::variant<path, picture, object> cases;

        bool operator==(const Source&) const = default;
    };

    Source source;

    bool operator==(const ClipShape&) const = default;

    using Declared = ClipShapeFields;
    struct Spread {
        static void encode(const ClipShape& clip, JSONValue::Object& object);
        static void decode(ClipShape& clip, JSONNode node, const CodingPath& path);
    };
};

/// "luma" is the one text that means brightness; any other text reads as alpha.
struct ClipChannelText {
    static JSONValue encode(ClipShape::Channel channel) {
        return JSONValue(channel == ClipShape::Channel::luma ? "luma" : "alpha");
    }
    static ClipShape::Channel decode(JSONNode node, const CodingPath& path) {
        return JSONCoding<std::string>::decode(node, path) == "luma" ? ClipShape::Channel::luma
                                                                     : ClipShape::Channel::alpha;
    }
};

constexpr auto ClipShape::Source::picture::jsonFields() {
    return std::tuple{required("picture", &picture::value), defaulted<ClipChannelText>("channel", &picture::channel)};
}

template <>
struct JSONCoding<ClipShape> : SpreadRecordCoding<ClipShape> {};

} // namespace ovik
