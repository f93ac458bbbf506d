#include "OvikModel/draft/MediaSource.h"

namespace ovik {
namespace {

constexpr std::string_view importedImageKey = "image";
constexpr std::string_view importedVideoKey = "video";

template <class Payload>
JSONValue tagged(std::string_view plainKey, std::string_view importedKey, const Payload& payload) {
    return taggedValue(CaseKey{std::string(payload.imported ? importedKey : plainKey)}, encodeJSON(payload));
}

// The imported keys promise a payload that names its file; one without it is refused.
template <class Payload>
Payload importedPayload(const TaggedCase& tagged, const char* missingText) {
    Payload payload = tagged.value<Payload>();
    if (!payload.imported) throw DecodingError::dataCorrupted(tagged.codingPath.appending(tagged.name), missingText);
    return payload;
}

} // namespace

JSONValue JSONCoding<MediaSource>::encode(const MediaSource& source) {
    struct Encoder {
        JSONValue operator()(const MediaSource::screenshot& c) const {
            return tagged(MediaSource::screenshot::name, importedImageKey, c.value);
        }
        JSONValue operator()(const MediaSource::recording& c) const {
            return tagged(MediaSource::recording::name, importedVideoKey, c.value);
        }
        JSONValue operator()(const MediaSource::canvas& c) const {
            return taggedValue(CaseKey{std::string(MediaSource::canvas::name)}, encodeJSON(c.value));
        }
    };
    return source.visit(Encoder{});
}

MediaSource JSONCoding<MediaSource>::decode(JSONNode node, const CodingPath& path) {
    const TaggedCase tagged = TaggedCase::read(node, path);
    const std::string_view name = tagged.name;
    if (name == MediaSource::screenshot::name) return MediaSource::makeScreenshot(tagged.value<Screenshot>());
    if (name == importedImageKey)
        return MediaSource::makeScreenshot(
            importedPayload<Screenshot>(tagged, "An imported image needs the file it came from"));
    if (name == MediaSource::recording::name) return MediaSource::makeRecording(tagged.value<Recording>());
    if (name == importedVideoKey)
        return MediaSource::makeRecording(
            importedPayload<Recording>(tagged, "An imported video needs the file it came from"));
    if (name == MediaSource::canvas::name) return MediaSource::makeCanvas(tagged.value<Canvas>());
    throw DecodingError::dataCorrupted(path, "Unknown media kind " + std::string(name) + ": the draft was made by a newer Ovik");
}

PixelSize MediaSource::pixelSize() const {
    return std::visit([](const auto& each) { return each.value.pixelSize; }, cases);
}

double MediaSource::scale() const {
    if (const auto* shot = std::get_if<screenshot>(&cases)) return shot->value.scale;
    if (const auto* movie = std::get_if<recording>(&cases)) return movie->value.area.scale;
    return std::get<canvas>(cases).value.scale;
}

} // namespace ovik
