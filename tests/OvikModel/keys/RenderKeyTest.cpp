#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "OvikModel/ModelSamples.h"
#include "OvikModel/keys/DraftRenderKey.h"
#include "OvikModel/keys/EncodedParts.h"
#include "OvikModel/keys/ExportRequest.h"
#include "OvikModel/keys/RenderKey.h"
#include "OvikModel/keys/RenderKeyParts.h"
#include "OvikModel/keys/RenderOptions.h"
#include "OvikModel/keys/ResultKey.h"
#include "OvikModel/time/TimeSamples.h"
#include "OvikModel/values/DecodingFailure.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {

void PrintTo(const RenderKey& key, std::ostream* out) { *out << key.rawValue; }

namespace {

using namespace testing;

// One recording with screen and microphone tracks, its events, and two kept stretches.
Draft recordingDraft() {
    Recording recording;
    recording.segments = {Segment{PackagePath{"media/a/b.mov"},
                                  {TrackRef{TrackRole::screen, 1, {}}, TrackRef{TrackRole::microphone, 2, {}}}, 0,
                                  MediaDuration{9000000}}};
    recording.events = PackagePath{"events/events.json"};
    Draft draft = canvasDraft();
    draft.name = "录屏";
    draft.media.mutableItems()[0].source = MediaSource::makeRecording(recording);
    draft.sections.mutableItems()[0].length =
        Section::Length::makeKept({playing(0, 4000000), playing(5000000, 9000000, 2)});
    return draft;
}

ObjectNode rectangle(int n, LinePattern pattern = LinePattern::solid) {
    ShapeAnnotation shape;
    shape.frame = CGRect{{10, 20}, {30, 40}};
    shape.pattern = pattern;
    return leaf("a/" + std::to_string(n), n, Annotation{{}, Annotation::rectangle{shape}});
}

ObjectNode text(int n, std::string fontName) {
    TextAnnotation annotation;
    annotation.string = "Hi";
    annotation.fontSize = 18;
    annotation.font = TextFont{std::move(fontName), "Family", "Face", std::nullopt};
    return leaf("a/" + std::to_string(n), n, Annotation{{}, Annotation::text{annotation}});
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

TEST(DraftRenderKey, VisibleEditsAndOnlyThoseChangeTheKey) {
    // An edit, and whether it changes what is seen.
    const std::tuple<const char*, std::function<void(Draft&)>, bool> edits[] = {
        {"name and date", [](Draft& d) { d.name = "other", d.createdAt = Date{1000}; }, false},
        {"kept and edited", [](Draft& d) { d.kept = d.edited = true; }, false},
        {"markers", [](Draft& d) { d.markers = {Marker{MarkerID{numbered(1)}, SourceTime{5}, "m", {}, {}}}; }, false},
        {"grid and flags", [](Draft& d) { d.grid = LayoutGrid{}, d.byAutomation = d.skipsIdle = d.handDrawn = true; },
         false},
        {"zoom settings but speed", [](Draft& d) { d.zoomSettings.defaultFactor = 3; }, false},
        {"zoom speed without zoom", [](Draft& d) { d.zoomSettings.speed = ZoomSpeed::fast; }, false},
        {"speed origin", [](Draft& d) { stretches(d)[1].origin = SpeedOrigin::auto_; }, false},
        {"rate", [](Draft& d) { stretches(d)[1].rate = 3; }, true},
        {"frame", [](Draft& d) { d.frame = CGRect{{0, 0}, {10, 10}}; }, true},
        {"object", [](Draft& d) { d.objects = {rectangle(1)}; }, true},
        {"animation", [](Draft& d) { d.isAnimation = true; }, true},
        {"microphone level", [](Draft& d) { d.audio.microphone.volume = 0.5; }, true},
        {"cursor look", [](Draft& d) { d.cursor.look = CursorLook::pointer; }, true},
        {"zoom", [](Draft& d) { d.zoom = {OpaqueJSON(JSONValue::parse(R"({"factor":2})"))}; }, true},
        {"music", [](Draft& d) { d.music = OpaqueJSON(JSONValue::parse(R"({"seed":1})")); }, true},
    };
    const RenderKey base = thumbnailKey(recordingDraft(), 320);
    for (const auto& [what, edit, changes] : edits) {
        Draft draft = recordingDraft();
        edit(draft);
        EXPECT_EQ(thumbnailKey(draft, 320) != base, changes) << what;
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
    marked.objects = {group("g", 9, {inked, rectangle(2, LinePattern::sketch)})};
    Draft music = canvasDraft();
    music.music = OpaqueJSON(JSONValue::parse(R"({"seed":1})"));
    Draft clickColour = canvasDraft();
    clickColour.cursor.clickColor = RGBA{1, 0, 0, 1};
    Draft stylingOff = canvasDraft();
    stylingOff.cursor = clickColour.cursor;
    stylingOff.cursor.isStylingOff = true;
    Draft noEvents = recordingDraft();
    noEvents.media.mutableItems()[0].source.as<MediaSource::recording>().value.events.reset();
    // What, the draft, the instruments asked for, and the keys of the payload.
    const std::tuple<const char*, Draft, std::optional<Instruments>, std::set<std::string>> cases[] = {
        {"canvas, no objects", canvasDraft(), {}, always},
        {"recording with events", recordingDraft(), {}, with({"typing"})},
        {"typing hidden", hiddenKeys, {}, with({"keys"})}, {"camera track", camera, {}, with({"camera", "typing"})},
        {"ink and sketch in a group", marked, {}, with({"objects", "inkTextureRenderer", "sketchRenderer"})},
        {"music, no instruments", music, Instruments{}, with({"music", "musicRenderer"})},
        {"music with instruments", music, Instruments{{"lead", "piano"}}, with({"music", "musicRenderer", "instruments"})},
        {"instruments without music", canvasDraft(), Instruments{{"lead", "piano"}}, always},
        {"click colour", clickColour, {}, with({"cursor", "clickLook"})},
        {"styling off draws the plain cursor", stylingOff, {}, always},
        {"recording without events", noEvents, {}, always},
    };
    for (const auto& [what, draft, instruments, keys] : cases) {
        EXPECT_EQ(payloadKeys(draft, instruments), keys) << what;
        RenderKeyParts::InlineScope inlineOnly;
        EXPECT_EQ(payloadKeys(draft, instruments), keys) << what << " (inline)";
    }
}

TEST(DraftRenderKey, SplicedPartsGiveTheInlineBytes) {
    Draft draft = recordingDraft();
    draft.objects = {group("g", 7, {rectangle(1), text(2, "Héllo/Bold")}), rectangle(3)};
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
    // The bytes that a kept render's key was made of, down to the version of the renderer.
    EXPECT_EQ(renderPayloadText(draft, thumbnailRequest(320)),
              R"({"media":{"isAnimation":false,"layout":{"gap":16,"mode":"auto"},"media":[{"id":)"
              R"("00000000-0000-0000-0000-0000000000AA","source":{"canvas":{"color":{"alpha":1,"blue":0,"green":0,)"
              R"("red":0},"pixelSize":{"height":480,"width":640},"scale":1}}}],"sections":[{"id":)"
              R"("00000000-0000-0000-0000-0000000000BB","media":"00000000-0000-0000-0000-0000000000AA",)"
              R"("stillDuration":5000000}]},"output":{"format":"thumbnail","size":{"custom":{"height":320,)"
              R"("width":320}}},"renderVersion":9,"style":{"aspect":"free","background":"none","cornerRadius":0,)"
              R"("deviceFrame":"none","padding":0,"shadow":0}})");
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
    draft.objects = {group("g", 1, {group("g", 2, {text(3, "Deep")})})};
    draft.theme = Theme{};
    draft.theme->fonts = {ThemeToken<FontRole>{"body", FontRole{TextFont{"Themed", "F", "R", {}}, {}}}};
    EXPECT_EQ(renderKeyFonts(draft), (std::vector<DraftFont>{font("Deep"), font("Themed")}));
}

TEST(AudioSignature, NamesRecordedSoundByContentAndFollowsTiming) {
    Draft draft = recordingDraft();
    const std::string base = audioSignature(draft);
    EXPECT_NE(base.find(R"("tracks":["media 00000000-0000-0000-0000-0000000000AA"])"), std::string::npos) << base;
    EXPECT_NE(base.find(R"("sound":"media 00000000-0000-0000-0000-0000000000AA")"), std::string::npos);

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

// SHA-256("abc") is ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad.
const RenderKey abcKey{"ba7816bf8f01cfea414140de5dae2223"};

TEST(RenderKey, IsTheFirstHalfOfTheDigestAsText) {
    EXPECT_EQ(RenderKey::digestOf("abc"), abcKey);
    EXPECT_EQ(RenderKey::thumbnailFileName(520), "thumbnail-520.png");
    // Options fold a watermark in: SHA-256 of "ba7816bf8f01cfea414140de5dae2223|watermark:made-with-ovik-3", cut.
    EXPECT_EQ(abcKey.adding(RenderOptions::none()), abcKey);
    EXPECT_EQ(abcKey.adding(RenderOptions{Watermark::madeWithOvik()}).rawValue, "0a2eb76233544236e480a6615f7bc573");
}

TEST(RenderKey, JSONIsTheBareStringAndRefusesWhatCannotBeAKey) {
    EXPECT_EQ(JSONWriter::write(encodeJSON(abcKey)), "\"ba7816bf8f01cfea414140de5dae2223\"");
    EXPECT_EQ(decodeJSON<RenderKey>(std::string_view("\"ba7816bf8f01cfea414140de5dae2223\"")), abcKey);
    using testing::DecodingFailure;
    const DecodingFailure failures[] = {
        {"\"BA7816BF8F01CFEA414140DE5DAE2223\"", DecodingError::Kind::dataCorrupted, "",
         "Cannot initialize RenderKey from invalid String value BA7816BF8F01CFEA414140DE5DAE2223"},
        {"\"ba7816bf8f01cfea414140de5dae222\"", DecodingError::Kind::dataCorrupted, ""},
        {"\"../../ba7816bf8f01cfea414140de5d\"", DecodingError::Kind::dataCorrupted, ""},
        {"16", DecodingError::Kind::typeMismatch, ""},
    };
    for (const DecodingFailure& failure : failures) testing::expectRefused<RenderKey>(failure);
}

TEST(Watermark, IdNamesTheStandardMarkAndHashesEverythingElse) {
    const std::string emptyDigest = "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855";
    const std::vector<std::uint8_t> logo = {'L', 'O', 'G', 'O'};
    // A watermark and its id.
    const std::tuple<Watermark, std::string> cases[] = {
        {Watermark::madeWithOvik(), "made-with-ovik-3"},
        {Watermark{OvikWatermarkStyle::sticker, std::nullopt, std::nullopt}, "watermark-4|sticker|" + emptyDigest},
        {Watermark{std::nullopt, std::nullopt, std::nullopt}, "watermark-4|none|" + emptyDigest},
        // The preset is written compact with slashes escaped, the logo's bytes follow it.
        {Watermark{OvikWatermarkStyle::trailPill, JSONValue::parse(R"({"x":1,"name":"A/B"})"), logo},
         "watermark-4|trailPill|68d724f346b2347f2cda9478788bee975fb60759f7eaad62cd0cf6cac19b8734"},
    };
    for (const auto& [watermark, id] : cases) EXPECT_EQ(watermark.id(), id);
}

TEST(ResultKey, DigestIsTheSHA256OfSortedKeyValueLines) {
    // SHA-256 of "a=1\nb=2\n", whatever order the map was filled in.
    const ResultKey key({{"b", "2"}, {"a", "1"}});
    EXPECT_EQ(key.digest, "4a73850fde34aad40ff8649b93a66523a5fe744357a3931caea0f10609d0d930");
    EXPECT_EQ(ResultKey(std::map<std::string, std::string>{}).digest, "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
}

ExportRequest request(std::string format, ExportSize size) {
    ExportRequest out;
    out.format = ExportFormatID{std::move(format)};
    out.size = size;
    return out;
}

TEST(ExportRequest, JSONLeavesOutWhatIsAbsentAndReadsItBack) {
    ExportRequest gif = request("gif", ExportSize::makeShortSide(1080));
    gif.frameRate = 15;
    gif.range = OutputRange{OutputTime{0}, OutputTime{2000000}};
    gif.destination = ExportDestination::photos;
    gif.transparent = true;
    gif.watermark = "w/1";
    const char* json = R"({"destination":"photos","format":"gif","frameRate":15,"range":{"end":2000000,"start":0},)"
                       R"("size":{"shortSide":1080},"transparent":true,"watermark":"w/1"})";
    EXPECT_EQ(JSONWriter::write(encodeJSON(gif)), json);
    EXPECT_EQ(decodeJSON<ExportRequest>(std::string_view(json)), gif);
    EXPECT_EQ(JSONWriter::write(encodeJSON(request("png", ExportSize::makeOriginal()))),
              R"({"format":"png","size":"original"})");
}

// A stand-in for a node of the object tree: an id and a value that can change under it.
struct Node {
    int id = 0;
    std::string label;
    bool operator==(const Node&) const = default;
};

struct CountingEncoder {
    int* calls;
    std::string operator()(const Node& node) const {
        ++*calls;
        return std::to_string(node.id) + ":" + node.label;
    }
};

int idOf(const Node& node) { return node.id; }

TEST(EncodedPartTable, TheEntryPastCapacityEmptiesTheTableBeforeItIsStored) {
    constexpr int capacity = 20000;
    EncodedPartTable<int, Node> table(capacity);
    int calls = 0;
    std::vector<Node> full;
    for (int id = 0; id < capacity; ++id) full.push_back({id, "x"});
    table.parts(full, idOf, CountingEncoder{&calls});
    EXPECT_EQ(table.count(), std::size_t(capacity));

    table.parts(std::vector<Node>{{capacity, "new"}}, idOf, CountingEncoder{&calls});
    EXPECT_EQ(table.count(), 1u);
    calls = 0;
    table.parts(std::vector<Node>{{0, "x"}}, idOf, CountingEncoder{&calls});
    EXPECT_EQ(calls, 1);
}

TEST(RecentEncodedParts, KeepsTheLastFourAndDropsTheOldest) {
    RecentEncodedParts<Node> songs(4);
    int calls = 0;
    for (int id = 0; id < 5; ++id) EXPECT_EQ(songs.bytes({id, "s"}, CountingEncoder{&calls}), std::to_string(id) + ":s");
    EXPECT_EQ(songs.count(), 4u);
    songs.bytes({4, "s"}, CountingEncoder{&calls});

    EXPECT_EQ(calls, 5);
    songs.bytes({0, "s"}, CountingEncoder{&calls});
    EXPECT_EQ(calls, 6);
}

} // namespace
} // namespace ovik
