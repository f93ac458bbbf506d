#pragma once
// Ids, object nodes and the smallest canvas draft, built in code for the tests of the model.
#include <string>
#include <vector>

#include "OvikModel/Draft.h"

namespace ovik::testing {

/// The id numbered `n`: all zero bytes but the last, so its text ends in two upper-case digits.
inline UUID numbered(int n) {
    UUID::Bytes bytes{};
    bytes[15] = std::uint8_t(n);
    return UUID(bytes);
}
inline ObjectID objectID(int n) { return ObjectID{numbered(n)}; }

inline ObjectNode node(std::string name, int n, ObjectContent content) {
    ObjectNode out;
    out.id = objectID(n);
    out.name = std::move(name);
    out.content = std::move(content);
    return out;
}
inline ObjectNode leaf(std::string name, int n, Annotation annotation) {
    return node(std::move(name), n, ObjectContent::makeAnnotation(std::move(annotation)));
}
inline ObjectNode group(std::string name, int n, std::vector<ObjectNode> children) {
    return node(std::move(name), n, ObjectContent::makeGroup(std::move(children)));
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

} // namespace ovik::testing
