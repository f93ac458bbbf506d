#include <gtest/gtest.h>

#include <functional>
#include <set>

#include "OvikModel/keys/DraftRenderKey.h"
#include "OvikModel/keys/RenderKeyParts.h"

namespace ovik {

void PrintTo(const RenderKey& key, std::ostream* out) { *out << key.rawValue; }

namespace {

template <class ID>
ID idNumbered(std::uint8_t n) {
    UUID::Bytes bytes{};
    bytes[15] = n;
    return ID{UUID(bytes)};
}

KeptStretch stretch(std::int64_t start, std::int64_t end, double rate) {
    KeptStretch out;
    out.range = {SourceTime{start}, SourceTime{end}};
    out.rate = rate;
    return out;
}

// One recording with screen and microphone tracks, its events, and two kept stretches.
Draft recordingDraft() {
    Recording recording;
    recording.segments = {Segment{PackagePath{"media/a/b.mov"},
                                  {TrackRef{TrackRole::screen, 1, {}}, TrackRef{TrackRole::microphone, 2, {}}},
                                  0,
                                  MediaDuration{9000000}}};
    recording.events = PackagePath{"events/events.json"};
    Media media;
    media.id = idNumbered<MediaID>(1);
    media.source = MediaSource::makeRecording(recording);
    Section section;
    section.id = idNumbered<SectionID>(1);
    section.media = media.id;
    section.length = Section::Length::makeKept({stretch(0, 4000000, 1), stretch(5000000, 9000000, 2)});
    Draft draft;
    draft.name = "录屏";
    draft.media = {media};
    draft.sections = {section};
    return draft;
}

Draft canvasDraft() {
    Media media;
    media.id = idNumbered<MediaID>(2);
    media.source = MediaSource::makeCanvas(Canvas{PixelSize{640, 360}});
    Section section;
    section.id = idNumbered<SectionID>(2);
    section.media = media.id;
    section.length = Section::Length::makeStill(MediaDuration{5000000});
    Draft draft;
    draft.media = {media};
    draft.sections = {section};
    return draft;
}

ObjectNode leaf(std::uint8_t n, Annotation annotation) {
    ObjectNode node;
    node.id = idNumbered<ObjectID>(n);
    node.name = "a/" + std::to_string(n);
    node.content = ObjectContent::makeAnnotation(std::move(annotation));
    return node;
}

ObjectNode rectangle(std::uint8_t n, LinePattern pattern = LinePattern::solid) {
    ShapeAnnotation shape;
    shape.frame = CGRect{{10, 20}, {30, 40}};
    shape.pattern = pattern;
    return leaf(n, Annotation{{}, Annotation::rectangle{shape}});
}

ObjectNode text(std::uint8_t n, std::string fontName) {
    TextAnnotation annotation;
    annotation.string = "Hi";
    annotation.fontSize = 18;
    annotation.font = TextFont{std::move(fontName), "Family", "Face", std::nullopt};
    return leaf(n, Annotation{{}, Annotation::text{annotation}});
}

ObjectNode group(std::uint8_t n, std::vector<ObjectNode> children) {
    ObjectNode node;
    node.id = idNumbered<ObjectID>(n);
    node.name = "g";
    node.content = ObjectContent::makeGroup(std::move(children));
    return node;
}

DraftFont font(std::string postScriptName) {
    return DraftFont{PackagePath{"fonts/" + postScriptName + ".otf"}, postScriptName, "F", "R", "sha", "src"};
}

std::vector<KeptStretch>& stretches(Draft& draft) {
    return draft.sections.mutableItems()[0].length.as<Section::Length::kept>().value;
}

std::set<std::string> payloadKeys(const Draft& draft, const std::optional<Instruments>& instruments = {}) {
    const JSONValue payload = JSONValue::parse(renderPayloadText(draft, thumbnailRequest(320), instruments));
    std::set<std::string> keys;
    for (const auto& [key, value] : *payload.object()) keys.insert(key);
    return keys;
}

struct Edit {
    const char* what;
    std::function<void(Draft&)> apply;
};

TEST(DraftRenderKey, AdministrativeEditsKeepTheKey) {
    const Edit edits[] = {
        {"name and date", [](Draft& d) { d.name = "other", d.createdAt = Date{1000}; }},
        {"kept and edited", [](Draft& d) { d.kept = d.edited = true; }},
        {"markers", [](Draft& d) { d.markers = {Marker{idNumbered<MarkerID>(1), SourceTime{5}, "m", {}, {}}}; }},
        {"grid and flags", [](Draft& d) { d.grid = LayoutGrid{}, d.byAutomation = d.skipsIdle = d.handDrawn = true; }},
        {"zoom settings but speed", [](Draft& d) { d.zoomSettings.defaultFactor = 3; }},
        {"zoom speed without zoom", [](Draft& d) { d.zoomSettings.speed = ZoomSpeed::fast; }},
        {"speed origin", [](Draft& d) { stretches(d)[1].origin = SpeedOrigin::auto_; }},
    };
    const RenderKey base = thumbnailKey(recordingDraft(), 320);
    for (const Edit& edit : edits) {
        Draft draft = recordingDraft();
        edit.apply(draft);
        EXPECT_EQ(thumbnailKey(draft, 320), base) << edit.what;
    }
}

TEST(DraftRenderKey, VisibleEditsChangeTheKey) {
    const Edit edits[] = {
        {"rate", [](Draft& d) { stretches(d)[1].rate = 3; }},
        {"frame", [](Draft& d) { d.frame = CGRect{{0, 0}, {10, 10}}; }},
        {"object", [](Draft& d) { d.objects = {rectangle(1)}; }},
        {"animation", [](Draft& d) { d.isAnimation = true; }},
        {"microphone level", [](Draft& d) { d.audio.microphone.volume = 0.5; }},
        {"cursor look", [](Draft& d) { d.cursor.look = CursorLook::pointer; }},
        {"zoom", [](Draft& d) { d.zoom = {OpaqueJSON(JSONValue::parse(R"({"factor":2})"))}; }},
        {"music", [](Draft& d) { d.music = OpaqueJSON(JSONValue::parse(R"({"seed":1})")); }},
    };
    const RenderKey base = thumbnailKey(recordingDraft(), 320);
    for (const Edit& edit : edits) {
        Draft draft = recordingDraft();
        edit.apply(draft);
        EXPECT_NE(thumbnailKey(draft, 320), base) << edit.what;
    }
}

TEST(DraftRenderKey, PayloadHoldsOnlyWhatTheDraftUses) {
    const std::set<std::string> always = {"media", "output", "renderVersion", "style"};
    const auto with = [&](std::set<std::string> more) {
        more.insert(always.begin(), always.end());
        return more;
    };
    Draft hiddenKeys = recordingDraft();
    hiddenKeys.keys.showsTyping = false;
    Draft camera = canvasDraft();
    Recording withCamera = recordingDraft().media[0].source.as<MediaSource::recording>().value;
    withCamera.segments[0].tracks[1].role = TrackRole::camera;
    camera.media.mutableItems()[0].source = MediaSource::makeRecording(withCamera);
    Draft marked = canvasDraft();
    ObjectNode inked = rectangle(1);
    inked.inkTexture = InkTexture{{}, InkTexture::dry{0.5, 1, 7}};
    marked.objects = {group(9, {inked, rectangle(2, LinePattern::sketch)})};
    Draft music = canvasDraft();
    music.music = OpaqueJSON(JSONValue::parse(R"({"seed":1})"));
    Draft pointer = canvasDraft();
    pointer.cursor.look = CursorLook::pointer;
    const struct {
        const char* what;
        Draft draft;
        std::optional<Instruments> instruments;
        std::set<std::string> keys;
    } cases[] = {
        {"canvas, no objects", canvasDraft(), {}, always},
        {"recording with events", recordingDraft(), {}, with({"typing"})},
        {"typing hidden", hiddenKeys, {}, with({"keys"})},
        {"camera track", camera, {}, with({"camera", "typing"})},
        {"ink and sketch in a group", marked, {}, with({"objects", "inkTextureRenderer", "sketchRenderer"})},
        {"music, no instruments", music, Instruments{}, with({"music", "musicRenderer"})},
        {"music with instruments", music, Instruments{{"lead", "piano"}}, with({"music", "musicRenderer", "instruments"})},
        {"instruments without music", canvasDraft(), Instruments{{"lead", "piano"}}, always},
        {"pointer look", pointer, {}, with({"cursor", "clickLook"})},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(payloadKeys(c.draft, c.instruments), c.keys) << c.what;
        RenderKeyParts::InlineScope inlineOnly;
        EXPECT_EQ(payloadKeys(c.draft, c.instruments), c.keys) << c.what << " (inline)";
    }
}

TEST(DraftRenderKey, SplicedPartsGiveTheInlineBytes) {
    Draft draft = recordingDraft();
    draft.objects = {group(7, {rectangle(1), text(2, "Héllo/Bold")}), rectangle(3)};
    draft.music = OpaqueJSON(JSONValue::parse(R"({"bank":"sf/gm","seed":3})"));
    const Instruments instruments = {{"bass", "a/b"}};
    std::string inlineText;
    {
        RenderKeyParts::InlineScope inlineOnly;
        inlineText = renderPayloadText(draft, thumbnailRequest(520), instruments);
    }
    EXPECT_NE(inlineText.find(R"("name":"a\/1")"), std::string::npos);
    EXPECT_EQ(renderPayloadText(draft, thumbnailRequest(520), instruments), inlineText);
    EXPECT_EQ(renderPayloadText(draft, thumbnailRequest(520), instruments), inlineText) << "from the cache";

    // A node that changed under the same id must not be answered from the cache.
    draft.objects.mutableItems()[1].name = "renamed";
    const std::string changed = renderPayloadText(draft, thumbnailRequest(520), instruments);
    EXPECT_NE(changed, inlineText);
    RenderKeyParts::InlineScope inlineOnly;
    EXPECT_EQ(renderPayloadText(draft, thumbnailRequest(520), instruments), changed);
}

TEST(DraftRenderKey, OutputEntersByWhatChangesThePicture) {
    const Draft draft = canvasDraft();
    const std::string text = renderPayloadText(draft, thumbnailRequest(320));
    EXPECT_NE(text.find(R"("output":{"format":"thumbnail","size":{"custom":{"height":320,"width":320}}})"),
              std::string::npos);
    EXPECT_NE(thumbnailKey(draft, 320), thumbnailKey(draft, 520));

    ExportRequest elsewhere = thumbnailRequest(320);
    elsewhere.destination = ExportDestination::photos;
    elsewhere.destinationFolderPath = "/tmp";
    elsewhere.watermark = "w";
    EXPECT_EQ(renderKey(draft, elsewhere), thumbnailKey(draft, 320));
    ExportRequest transparent = thumbnailRequest(320);
    transparent.transparent = true;
    EXPECT_NE(renderKey(draft, transparent), thumbnailKey(draft, 320));
}

TEST(DraftRenderKey, FontsAreTheKeptOnesInUse) {
    Draft draft = canvasDraft();
    EXPECT_FALSE(renderKeyFonts(draft).has_value());
    draft.fonts = {font("Unused"), font("Deep"), font("Themed")};
    EXPECT_EQ(renderKeyFonts(draft), std::vector<DraftFont>{});
    draft.objects = {group(1, {group(2, {text(3, "Deep")})})};
    draft.theme = Theme{};
    draft.theme->fonts = {ThemeToken<FontRole>{"body", FontRole{TextFont{"Themed", "F", "R", {}}, {}}}};
    EXPECT_EQ(renderKeyFonts(draft), (std::vector<DraftFont>{font("Deep"), font("Themed")}));
}

TEST(AudioSignature, NamesRecordedSoundByContentAndFollowsTiming) {
    Draft draft = recordingDraft();
    const std::string base = audioSignature(draft);
    EXPECT_NE(base.find(R"("tracks":["media 00000000-0000-0000-0000-000000000001"])"), std::string::npos) << base;
    EXPECT_NE(base.find(R"("sound":"media 00000000-0000-0000-0000-000000000001")"), std::string::npos);

    auto& recording = draft.media.mutableItems()[0].source.as<MediaSource::recording>().value;
    recording.imported = ImportedFile{"in/put.mov", "imported-sha", 0};
    EXPECT_NE(audioSignature(draft).find(R"("tracks":["imported-sha"])"), std::string::npos);
    recording.contentSHA = "content-sha";
    EXPECT_NE(audioSignature(draft).find(R"("tracks":["content-sha"])"), std::string::npos);

    draft.name = "renamed";
    stretches(draft)[0].origin = SpeedOrigin::auto_;
    const std::string named = audioSignature(draft);
    stretches(draft)[0].rate = 1.5;
    EXPECT_NE(audioSignature(draft), named);

    recording.segments[0].tracks.pop_back();
    EXPECT_EQ(audioSignature(draft).find("content-sha"), std::string::npos) << "no sound recorded";
}

} // namespace
} // namespace ovik
