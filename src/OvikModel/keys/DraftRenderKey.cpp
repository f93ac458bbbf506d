#include "OvikModel/keys/DraftRenderKey.h"

#include <stdexcept>
#include <utility>

#include "OvikModel/keys/AudioSignature.h"
#include "OvikModel/keys/RenderKeyParts.h"
#include "OvikModel/objects/ObjectWalks.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {
namespace {

constexpr std::int64_t typingVersion = 1;
constexpr std::int64_t clickLookVersion = 1;
constexpr std::int64_t inkTextureRendererVersion = 2;
constexpr std::int64_t sketchRendererVersion = 2;
constexpr std::int64_t musicRendererVersion = 2;

const Recording* recordingOf(const Media& media) {
    if (!media.source.is<MediaSource::recording>()) return nullptr;
    return &media.source.as<MediaSource::recording>().value;
}

bool hasTrack(const Recording& recording, auto accepts) {
    for (const Segment& segment : recording.segments)
        for (const TrackRef& track : segment.tracks)
            if (accepts(track.role)) return true;
    return false;
}

bool recordsSound(const Recording& recording) {
    return hasTrack(recording, [](TrackRole role) { return role == TrackRole::microphone || role == TrackRole::system; });
}

/// The name of a media's recorded sound in a signature: its content first, its import next.
std::optional<std::string> soundName(const Media& media) {
    const Recording* recording = recordingOf(media);
    if (!recording || !recordsSound(*recording)) return std::nullopt;
    if (recording->contentSHA) return *recording->contentSHA;
    if (recording->imported) return recording->imported->sha256;
    return "media " + media.id.description();
}

bool hasTypingEvents(const Draft& draft) {
    for (const Media& media : draft.media)
        if (const Recording* recording = recordingOf(media); recording && recording->events) return true;
    return false;
}

bool anyNodeHasInkTexture(const ObjectNodes& nodes) {
    bool found = false;
    forEachNode(nodes, std::nullopt, [&](const ObjectNode& node, const ObjectLocation&) {
        found = found || node.inkTexture.has_value();
    });
    return found;
}

bool anyLeafIsSketched(const ObjectNodes& nodes) {
    return containsLeaf(nodes, [](const ObjectNode& node) {
        const Annotation* annotation = node.annotation();
        return annotation && annotation->visit([](const auto& c) {
            if constexpr (requires { c.value.pattern; }) return c.value.pattern == LinePattern::sketch;
            return false;
        });
    });
}

bool usesClickLook(const CursorSettings& cursor, const CursorSettings& drawn) {
    return cursor.isShown && (drawn.look == CursorLook::pointer || drawn.clickColor.has_value());
}

template <class List>
std::optional<List> unlessEmpty(const List& list) {
    return list.empty() ? std::nullopt : std::optional<List>(list);
}

Section withManualOrigins(Section section) {
    if (section.length.is<Section::Length::kept>())
        for (KeptStretch& stretch : section.length.as<Section::Length::kept>().value) stretch.origin = SpeedOrigin::manual;
    return section;
}

std::string payloadBytes(const JSONValue& value) {
    return JSONWriter::write(value, {.pretty = false, .escapeSlashes = true});
}

/// Puts `key` and its bytes in front of the first `marker`, where sorted keys place them.
void splice(std::string& text, std::string_view marker, std::string_view key, const std::string& bytes) {
    const std::size_t at = text.find(marker);
    if (at == std::string::npos) throw std::logic_error("render payload lacks " + std::string(marker));
    text.insert(at, "\"" + std::string(key) + "\":" + bytes + ",");
}

std::optional<MediaDuration> overlapWithNext(const Draft& draft, std::size_t index) {
    if (index + 1 >= draft.sections.size()) return std::nullopt;
    const std::optional<Transition>& next = draft.sections[index + 1].transitionIn;
    // A transition without actions is a plain cut: nothing overlaps.
    if (!next || (next->outgoing.empty() && next->incoming.empty())) return std::nullopt;
    return next->duration;
}

AudioSignature::Timing timing(const Draft& draft, std::size_t index) {
    const Section& section = draft.sections[index];
    AudioSignature::Timing out;
    for (const Media& media : draft.media)
        if (media.id == section.media) out.sound = soundName(media);
    if (section.length.is<Section::Length::still>()) {
        out.still = section.length.as<Section::Length::still>().value;
    } else {
        std::vector<AudioSignature::Piece> pieces;
        for (const KeptStretch& stretch : section.length.as<Section::Length::kept>().value)
            pieces.push_back({stretch.range, stretch.rate, stretch.hold});
        out.kept = std::move(pieces);
    }
    out.speed = section.speed;
    out.overlap = overlapWithNext(draft, index);
    return out;
}

std::optional<Instruments> musicInstruments(const Draft& draft, const std::optional<Instruments>& instruments) {
    if (!draft.music || !instruments || instruments->empty()) return std::nullopt;
    return instruments;
}

std::optional<std::int64_t> musicRenderer(const Draft& draft) {
    return draft.music ? std::optional(musicRendererVersion) : std::nullopt;
}

} // namespace

RenderKeyMedia renderKeyMedia(const Draft& draft) {
    std::vector<Section> sections;
    sections.reserve(draft.sections.size());
    for (const Section& section : draft.sections) sections.push_back(withManualOrigins(section));
    return RenderKeyMedia{draft.media, std::move(sections), draft.layout, draft.isAnimation};
}

std::set<std::string> usedFontNames(const Draft& draft) {
    std::set<std::string> names;
    forEachLeaf(draft.objects, {}, true, [&](const ObjectNode& node) {
        const Annotation* annotation = node.annotation();
        if (!annotation || !annotation->is<Annotation::text>()) return;
        const std::optional<TextFont>& font = annotation->as<Annotation::text>().value.font;
        if (font) names.insert(font->postScriptName);
    });
    if (draft.theme)
        for (const ThemeToken<FontRole>& token : draft.theme->fonts)
            if (token.value.font) names.insert(token.value.font->postScriptName);
    return names;
}

std::optional<std::vector<DraftFont>> renderKeyFonts(const Draft& draft) {
    if (draft.fonts.empty()) return std::nullopt;
    const std::set<std::string> used = usedFontNames(draft);
    std::vector<DraftFont> fonts;
    for (const DraftFont& font : draft.fonts)
        if (used.contains(font.postScriptName)) fonts.push_back(font);
    return fonts;
}

bool hasCameraTrack(const Draft& draft) {
    for (const Media& media : draft.media)
        if (const Recording* recording = recordingOf(media);
            recording && hasTrack(*recording, [](TrackRole role) { return role == TrackRole::camera; }))
            return true;
    return false;
}

DraftPayload renderPayload(const Draft& draft, const ExportRequest& request,
                           const std::optional<Instruments>& instruments) {
    DraftPayload payload;
    payload.media = renderKeyMedia(draft);
    payload.style = draft.style;
    payload.objects = unlessEmpty(draft.objects);
    payload.zoom = unlessEmpty(draft.zoom);
    if (payload.zoom) payload.zoomSpeed = draft.zoomSettings.speed;
    const CursorSettings drawn = draft.cursor.drawn();
    if (drawn != CursorSettings::plain()) payload.cursor = drawn;
    if (usesClickLook(draft.cursor, drawn)) payload.clickLook = clickLookVersion;
    const bool keysInFull = draft.keys.isShown && draft.keys.showsTyping;
    if (!keysInFull) payload.keys = draft.keys;
    if (keysInFull && hasTypingEvents(draft)) payload.typing = typingVersion;
    if (anyNodeHasInkTexture(draft.objects)) payload.inkTextureRenderer = inkTextureRendererVersion;
    if (anyLeafIsSketched(draft.objects)) payload.sketchRenderer = sketchRendererVersion;
    if (!draft.captions.cues.empty()) payload.captions = draft.captions;
    if (draft.audio != AudioSettings{}) payload.audio = draft.audio;
    if (hasCameraTrack(draft)) payload.camera = draft.camera;
    payload.sounds = unlessEmpty(draft.sounds);
    payload.fonts = renderKeyFonts(draft);
    payload.music = draft.music;
    payload.musicRenderer = musicRenderer(draft);
    payload.instruments = musicInstruments(draft, instruments);
    payload.narration = draft.narration;
    payload.importedSounds = unlessEmpty(draft.importedSounds);
    payload.importedModels = unlessEmpty(draft.importedModels);
    payload.frame = draft.frame;
    payload.letterbox = draft.letterbox;
    payload.theme = draft.theme;
    payload.output = DraftOutput::of(request);
    return payload;
}

std::string renderPayloadText(const Draft& draft, const ExportRequest& request,
                              const std::optional<Instruments>& instruments) {
    DraftPayload payload = renderPayload(draft, request, instruments);
    if (RenderKeyParts::inlineOnly()) return payloadBytes(encodeJSON(payload));

    const auto objects = std::exchange(payload.objects, std::nullopt);
    const auto music = std::exchange(payload.music, std::nullopt);
    std::string text = payloadBytes(encodeJSON(payload));
    RenderKeyParts& parts = RenderKeyParts::shared();
    if (objects) splice(text, "\"output\":{", "objects", parts.json(*objects));
    if (music) splice(text, "\"musicRenderer\":", "music", parts.json(*music));
    return text;
}

RenderKey renderKey(const Draft& draft, const ExportRequest& request, const std::optional<Instruments>& instruments) {
    return RenderKey::digestOf(renderPayloadText(draft, request, instruments));
}

ExportRequest thumbnailRequest(std::int64_t maxPixel) {
    ExportRequest request;
    request.format = ExportFormatID{"thumbnail"};
    request.size = ExportSize::makeCustom(PixelSize{maxPixel, maxPixel});
    return request;
}

RenderKey thumbnailKey(const Draft& draft, std::int64_t maxPixel) {
    return renderKey(draft, thumbnailRequest(maxPixel));
}

std::string audioSignature(const Draft& draft, const std::optional<Instruments>& instruments) {
    AudioSignature signature;
    for (const Media& media : draft.media)
        if (std::optional<std::string> name = soundName(media)) signature.tracks.push_back(std::move(*name));
    signature.audio = draft.audio;
    signature.sounds = draft.sounds;
    signature.music = draft.music;
    signature.musicRenderer = musicRenderer(draft);
    signature.instruments = musicInstruments(draft, instruments);
    signature.narration = draft.narration;
    signature.importedSounds = draft.importedSounds;
    for (std::size_t index = 0; index < draft.sections.size(); ++index)
        signature.sections.push_back(timing(draft, index));
    return encodeJSON(signature).compact();
}

} // namespace ovik
