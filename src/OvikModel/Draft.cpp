#include "OvikModel/Draft.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <set>

#include "OvikModel/DraftSchemaMismatch.h"
#include "OvikModel/objects/ObjectWalks.h"

namespace ovik {
namespace {

constexpr std::string_view schemaKey = "schema";

// The stored fields in the order they are read; `schema` is handled beside them.
struct StoredDraft : Draft {
    static constexpr auto jsonFields();
};

template <class Member>
constexpr Member StoredDraft::*field(Member Draft::*member) {
    return member;
}

constexpr auto StoredDraft::jsonFields() {
    return std::tuple{required("id", field(&Draft::id)),
                      required("name", field(&Draft::name)),
                      required("createdAt", field(&Draft::createdAt)),
                      required("kept", field(&Draft::kept)),
                      required("edited", field(&Draft::edited)),
                      optional("recovered", field(&Draft::recovered)),
                      required("media", field(&Draft::media)),
                      required("sections", field(&Draft::sections)),
                      writtenAlways("layout", field(&Draft::layout)),
                      defaulted("isAnimation", field(&Draft::isAnimation)),
                      required("style", field(&Draft::style)),
                      optional("presetID", field(&Draft::presetID)),
                      writtenAlways("objects", field(&Draft::objects)),
                      defaulted("newMarksHandDrawn", field(&Draft::handDrawn)),
                      defaulted("newMarksInk", field(&Draft::newMarksInk)),
                      writtenAlways("zoom", field(&Draft::zoom)),
                      writtenAlways("zoomSettings", field(&Draft::zoomSettings)),
                      writtenAlways("cursor", field(&Draft::cursor)),
                      writtenAlways("keys", field(&Draft::keys)),
                      writtenAlways("captions", field(&Draft::captions)),
                      writtenAlways("audio", field(&Draft::audio)),
                      defaulted("camera", field(&Draft::camera)),
                      defaulted("byAutomation", field(&Draft::byAutomation)),
                      defaulted("markers", field(&Draft::markers)),
                      defaulted("skipsIdle", field(&Draft::skipsIdle)),
                      defaulted("sounds", field(&Draft::sounds)),
                      defaulted("fonts", field(&Draft::fonts)),
                      optional("music", field(&Draft::music)),
                      optional("narration", field(&Draft::narration)),
                      defaulted("importedSounds", field(&Draft::importedSounds)),
                      defaulted("importedModels", field(&Draft::importedModels)),
                      optional("theme", field(&Draft::theme)),
                      optional("letterbox", field(&Draft::letterbox)),
                      optional("grid", field(&Draft::grid)),
                      optional("frame", field(&Draft::frame))};
}

void checkSchema(JSONNode node, const CodingPath& path) {
    JSONNode value = node;
    if (!node.find(schemaKey, value)) throw DecodingError::keyNotFound(path, schemaKey);
    const auto schema = JSONCoding<std::int64_t>::decode(value, path.appending(schemaKey));
    if (schema != Draft::currentSchema) throw DraftSchemaMismatch(schema);
}

template <class Identified>
bool idsRepeat(const CowList<Identified>& list) {
    std::set<decltype(Identified::id)> seen;
    return std::any_of(list.begin(), list.end(), [&](const Identified& item) { return !seen.insert(item.id).second; });
}

bool showsMissingMedia(const Draft& draft) {
    std::set<MediaID> ids;
    for (const Media& media : draft.media) ids.insert(media.id);
    return std::any_of(draft.sections.begin(), draft.sections.end(),
                       [&](const Section& section) { return ids.count(section.media) == 0; });
}

// A canvas scale that can't be drawn with becomes 1.
Canvas drawableCanvas(Canvas canvas) {
    if (!(std::isfinite(canvas.scale) && canvas.scale > 0)) canvas.scale = 1;
    return canvas;
}

std::string twoDigits(std::int64_t value) {
    char text[24];
    std::snprintf(text, sizeof text, "%02lld", static_cast<long long>(value));
    return text;
}

std::string yearAndMonth(const CalendarFields& fields) {
    char year[24];
    std::snprintf(year, sizeof year, "%04lld", static_cast<long long>(fields.year));
    return std::string(year) + "-" + twoDigits(fields.month);
}

bool isPlacedAsIs(const Media& media) {
    return media.placement == Placement{} && media.actions.empty() && media.isPlainPicture();
}

// The blur of a background only shows on a picture behind the capture.
bool isOriginalStyle(const Style& style) {
    Style effective = style.effective();
    const Background& background = effective.background;
    if (!background.is<Background::image>() && !background.is<Background::catalog>() &&
        !background.is<Background::wallpaper>())
        effective.backgroundBlur = 0;
    return effective == Style::original();
}

// Every leaf is hidden itself or lies in a hidden group.
bool showsNoLeaf(const std::vector<ObjectNode>& nodes) {
    return std::all_of(nodes.begin(), nodes.end(), [](const ObjectNode& node) {
        const auto* children = node.content.children();
        return node.isHidden || (children != nullptr && showsNoLeaf(*children));
    });
}

using FontDigests = std::map<std::string, std::string>;

// The digest that a text's font should name and doesn't yet; none for anything else.
const std::string* missingBinding(const ObjectNode& node, const FontDigests& digests) {
    const Annotation* annotation = node.annotation();
    if (annotation == nullptr || !annotation->is<Annotation::text>()) return nullptr;
    const std::optional<TextFont>& font = annotation->as<Annotation::text>().value.font;
    if (!font) return nullptr;
    const auto found = digests.find(font->postScriptName);
    if (found == digests.end() || font->packageCopy == found->second) return nullptr;
    return &found->second;
}

} // namespace

DraftKind Draft::kind() const {
    const bool recorded = std::any_of(media.begin(), media.end(),
                                      [](const Media& m) { return m.source.is<MediaSource::recording>(); });
    return recorded ? DraftKind::recording : DraftKind::screenshot;
}

OutputKind Draft::outputKind() const {
    if (kind() == DraftKind::recording) return OutputKind::recording;
    return isAnimation ? OutputKind::animation : OutputKind::screenshot;
}

bool Draft::isTimed() const { return kind() == DraftKind::recording || isAnimation; }

std::size_t Draft::primaryMediaIndex() const {
    if (sections.empty()) return 0;
    const MediaID first = sections[0].media;
    const auto found = std::find_if(media.begin(), media.end(), [&](const Media& m) { return m.id == first; });
    return found == media.end() ? 0 : std::size_t(found - media.begin());
}

const MediaSource& Draft::source() const { return media[primaryMediaIndex()].source; }

bool Draft::isCaptureAsIs() const {
    return media.size() == 1 && isPlacedAsIs(media[0]) && isOriginalStyle(style) && showsNoLeaf(objects);
}

void Draft::bindPackageFonts() {
    FontDigests digests;
    for (const DraftFont& font : fonts) digests.insert_or_assign(font.postScriptName, font.sha256);
    const auto needsBinding = [&](const ObjectNode& node) { return missingBinding(node, digests) != nullptr; };
    if (digests.empty() || !containsLeaf(objects, needsBinding)) return;
    updateEveryNode(objects.mutableItems(), [&](ObjectNode& node) {
        if (const std::string* digest = missingBinding(node, digests))
            node.content.as<ObjectContent::annotation>().value.as<Annotation::text>().value.font->packageCopy = *digest;
    });
    memo.clear();
}

std::optional<std::string> Draft::structureProblem() const {
    if (media.empty() || sections.empty()) return "A draft needs at least one media and one section";
    if (idsRepeat(media) || idsRepeat(sections)) return "Media or section ids repeat";
    if (showsMissingMedia(*this)) return "A section shows a media the draft does not have";
    return std::nullopt;
}

Draft Draft::newAnimation(const Canvas& canvas, MediaDuration length, Date createdAt, DraftID id, TimeZone zone) {
    Media media;
    media.id = MediaID::random();
    media.source = MediaSource::makeCanvas(drawableCanvas(canvas));
    Section section;
    section.id = SectionID::random();
    section.media = media.id;
    section.length = Section::Length::makeStill(clampedStill(length.seconds()));
    Draft draft;
    draft.id = id;
    draft.name = baseName(OutputKind::animation, createdAt, zone);
    draft.createdAt = createdAt;
    draft.media = {media};
    draft.sections = {section};
    draft.isAnimation = true;
    draft.style = Style::original();
    return draft;
}

Draft Draft::newAnimation(const Canvas& canvas, MediaDuration length, Date createdAt, DraftID id) {
    return newAnimation(canvas, length, createdAt, id, TimeZone::current(createdAt));
}

std::string Draft::baseName(std::string_view prefix, Date createdAt, TimeZone zone) {
    const CalendarFields fields = createdAt.fields(zone);
    return yearAndMonth(fields) + "-" + twoDigits(fields.day) + " " + std::string(prefix) + " " +
           twoDigits(fields.hour) + "." + twoDigits(fields.minute);
}

std::string Draft::baseName(OutputKind kind, Date createdAt, TimeZone zone) {
    switch (kind) {
    case OutputKind::screenshot: return baseName("截图", createdAt, zone);
    case OutputKind::animation: return baseName("动画", createdAt, zone);
    case OutputKind::recording: break;
    }
    return baseName("录屏", createdAt, zone);
}

std::string Draft::monthFolderName(Date createdAt, TimeZone zone) { return yearAndMonth(createdAt.fields(zone)); }

std::string Draft::uniqueName(const std::string& name, const std::function<bool(const std::string&)>& isTaken) {
    if (!isTaken(name)) return name;
    for (std::int64_t number = 2;; ++number)
        if (std::string candidate = name + " " + std::to_string(number); !isTaken(candidate)) return candidate;
}

MediaDuration Draft::clampedStill(double seconds) {
    if (!std::isfinite(seconds)) return Screenshot::defaultAnimationLength;
    return MediaDuration::fromSeconds(std::clamp(seconds, 1.0, 30.0));
}

JSONValue JSONCoding<Draft>::encode(const Draft& draft) {
    JSONValue out = encodeJSON(StoredDraft{draft});
    out.object()->insert_or_assign(std::string(schemaKey), JSONValue(Draft::currentSchema));
    return out;
}

Draft JSONCoding<Draft>::decode(JSONNode node, const CodingPath& path) {
    json_detail::expect(node, JSONNode::Kind::object, path, "Dictionary<String, Any>");
    checkSchema(node, path);
    Draft draft = decodeJSON<StoredDraft>(node, path);
    draft.bindPackageFonts();
    if (auto problem = draft.structureProblem()) throw DecodingError::dataCorrupted(path, std::move(*problem));
    return draft;
}

} // namespace ovik
