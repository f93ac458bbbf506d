#pragma once
// Drafts, paths and the shared check of a refused write, for the tests of properties.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "OvikL10n/L10n.h"
#include "OvikModel/Draft.h"
#include "OvikModel/objects/AnnotationDefaults.h"
#include "OvikModel/scene/DraftProperties.h"
#include "OvikModel/scene/PropertyError.h"
#include "OvikModel/scene/PropertyPath.h"
#include "OvikModel/scene/PropertyTable.h"

namespace ovik::testing {

/// The id numbered `n`: all zero bytes but the last. Its text ends in two upper-case digits.
inline UUID numbered(int n) {
    UUID::Bytes bytes{};
    bytes[15] = std::uint8_t(n);
    return UUID(bytes);
}
inline const std::string mediaText = numbered(0xAA).uuidString();
inline const std::string sectionText = numbered(0xBB).uuidString();

inline ObjectNode node(std::string name, int n, ObjectContent content) {
    ObjectNode out;
    out.id = ObjectID{numbered(n)};
    out.name = std::move(name);
    out.content = std::move(content);
    return out;
}
inline ObjectNode leaf(std::string name, int n, Annotation annotation) {
    return node(std::move(name), n, ObjectContent::makeAnnotation(std::move(annotation)));
}

/// The objects on a 640 by 480 canvas (media 0xAA) shown by one still section (0xBB) of 5 s.
inline Draft canvasDraft(std::vector<ObjectNode> objects = {}) {
    Draft draft;
    Media media;
    media.id = MediaID{numbered(0xAA)};
    media.source = MediaSource::makeCanvas(Canvas{PixelSize{640, 480}});
    Section section;
    section.id = SectionID{numbered(0xBB)};
    section.media = media.id;
    section.length = Section::Length::makeStill(MediaDuration::fromSeconds(5));
    draft.media = CowList<Media>({media});
    draft.sections = CowList<Section>({section});
    draft.objects = CowList<ObjectNode>(std::move(objects));
    return draft;
}

inline std::optional<JSONValue> get(const Draft& draft, const std::string& path) {
    return propertyValue(draft, PropertyPath::parse(path, draft));
}

inline std::optional<std::string> set(Draft& draft, const std::string& path, const JSONValue& value) {
    return setProperty(draft, value, PropertyPath::parse(path, draft));
}

/// The draft with its objects read back from their JSON.
inline Draft reread(const Draft& draft) {
    Draft out = draft;
    std::vector<ObjectNode> nodes;
    for (const ObjectNode& each : draft.objects.items()) nodes.push_back(decodeJSON<ObjectNode>(encodeJSON(each)));
    out.objects = CowList<ObjectNode>(nodes);
    return out;
}

/// The write throws an `invalid` `PropertyError` whose text holds `message` (any text when it is
/// empty), and the draft is left byte for byte as it was.
inline void expectRefused(Draft draft, const std::string& path, const JSONValue& value, const std::string& message) {
    const std::string before = encodeJSON(draft).compact();
    try {
        setProperty(draft, value, PropertyPath::parse(path, draft));
        ADD_FAILURE() << path << " was not refused";
    } catch (const PropertyError& error) {
        EXPECT_EQ(error.kind(), PropertyError::Kind::invalid) << path;
        EXPECT_NE(std::string(error.what()).find(message), std::string::npos) << error.what();
    }
    EXPECT_EQ(encodeJSON(draft).compact(), before) << path;
}

} // namespace ovik::testing
