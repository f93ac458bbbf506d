#pragma once
// What a media shows: a still, a recording, or a plain canvas. JSON form: tagged, where an
// imported still is written under "image" and an imported movie under "video", so that a
// reader sees at the key that the payload names the file it came from.
#include <variant>

#include "OvikModel/draft/Canvas.h"
#include "OvikModel/draft/Recording.h"
#include "OvikModel/draft/Screenshot.h"

namespace ovik {

struct MediaSource : Enumeration<MediaSource> {
    struct screenshot {
        static constexpr std::string_view name = "screenshot";
        Screenshot value;
        bool operator==(const screenshot&) const = default;
    };
    struct recording {
        static constexpr std::string_view name = "recording";
        Recording value;
        bool operator==(const recording&) const = default;
    };
    struct canvas {
        static constexpr std::string_view name = "canvas";
        Canvas value;
        bool operator==(const canvas&) const = default;
    };
    std::variant<screenshot, recording, canvas> cases;

    static MediaSource makeScreenshot(Screenshot value) { return MediaSource{{}, screenshot{std::move(value)}}; }
    static MediaSource makeRecording(Recording value) { return MediaSource{{}, recording{std::move(value)}}; }
    static MediaSource makeCanvas(Canvas value) { return MediaSource{{}, canvas{std::move(value)}}; }

    /// The picture's size in pixels, and its pixels per point.
    PixelSize pixelSize() const;
    double scale() const;

    bool operator==(const MediaSource&) const = default;
};

template <>
struct JSONCoding<MediaSource> {
    static JSONValue encode(const MediaSource& source);
    static MediaSource decode(JSONNode node, const CodingPath& path);
};

} // namespace ovik
