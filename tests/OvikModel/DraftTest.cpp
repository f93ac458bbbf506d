#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <tuple>

#include "OvikModel/Draft.h"
#include "OvikModel/DraftDocument.h"
#include "OvikModel/DraftJSON.h"
#include "OvikModel/DraftSchemaMismatch.h"
#include "OvikModel/SchemaProbe.h"
#include "OvikModel/draft/DraftSamples.h"
#include "OvikModel/values/DecodingFailure.h"

namespace ovik {
namespace {

using testing::draftJSON;

// 2024-03-05 14:07:59.9 UTC.
constexpr double march5 = 731340479.9;

constexpr std::string_view recordingMedia =
    R"({"id":"00000000-0000-0000-0000-00000000000B","source":{"recording":{"segments":[],)"
    R"("pixelSize":{"height":1,"width":1},"frameRate":30,"area":{"displayID":1,"rect":[[0,0],[1,1]],"scale":1}}}})";

Draft read(const std::string& json) { return decodeJSON<Draft>(std::string_view(json)); }

TEST(DraftNames, DateAndTimeInTheGivenZone) {
    // Date, offset of the time zone, kind, and the names of the draft and of its month folder.
    const std::tuple<Date, std::int64_t, OutputKind, const char*, const char*> cases[] = {
        {Date{march5}, 0, OutputKind::screenshot, "2024-03-05 截图 14.07", "2024-03"},
        {Date{march5}, 9 * 3600 + 1800, OutputKind::recording, "2024-03-05 录屏 23.37", "2024-03"},
        {Date{march5}, 10 * 3600, OutputKind::animation, "2024-03-06 动画 00.07", "2024-03"},
        {Date{0}, -3600, OutputKind::screenshot, "2000-12-31 截图 23.00", "2000-12"},
        {Date{-0.5}, 0, OutputKind::screenshot, "2000-12-31 截图 23.59", "2000-12"},
        {Date::fromSecondsSince1970(951782400), 0, OutputKind::screenshot, "2000-02-29 截图 00.00", "2000-02"},
    };
    for (const auto& [date, offset, kind, name, month] : cases) {
        EXPECT_EQ(Draft::baseName(kind, date, TimeZone{offset}), name) << name;
        EXPECT_EQ(Draft::monthFolderName(date, TimeZone{offset}), month) << name;
    }
    EXPECT_EQ(Draft::baseName("Take", Date{march5}, TimeZone{}), "2024-03-05 Take 14.07");
}

TEST(DraftNames, UniqueNameCountsUpFromTwo) {
    const std::set<std::string> taken{"a", "a 2", "b 2"};
    const auto isTaken = [&](const std::string& name) { return taken.count(name) > 0; };
    EXPECT_EQ(Draft::uniqueName("a", isTaken), "a 3");
    EXPECT_EQ(Draft::uniqueName("b", isTaken), "b");
}

TEST(DraftNames, StillsLastOneToThirtySeconds) {
    const std::pair<double, std::int64_t> cases[] = {{0.2, 1'000'000}, {90, 30'000'000}, {2.5, 2'500'000},
                                                     {-4, 1'000'000},  {NAN, 5'000'000}, {INFINITY, 5'000'000}};
    for (const auto& [seconds, microseconds] : cases)
        EXPECT_EQ(Draft::clampedStill(seconds), MediaDuration{microseconds}) << seconds;
}

TEST(Draft, ANewAnimationIsOneCanvasStill) {
    Canvas canvas;
    canvas.pixelSize = {1280, 720};
    canvas.scale = -2;
    const Draft draft = Draft::newAnimation(canvas, MediaDuration{90'000'000}, Date{march5}, DraftID{}, TimeZone{});
    EXPECT_EQ(draft.outputKind(), OutputKind::animation);
    EXPECT_EQ(draft.source().as<MediaSource::canvas>().value.scale, 1);
    EXPECT_EQ(draft.sections[0].length, Section::Length::makeStill(MediaDuration{30'000'000}));
    EXPECT_FALSE(draft.structureProblem().has_value());
    EXPECT_TRUE(draft.isCaptureAsIs());
    EXPECT_EQ(decodeJSON<Draft>(encodeJSON(draft)), draft);
}

TEST(Draft, KindsFollowTheMediaAndTheAnimationFlag) {
    const std::string both = std::string(testing::canvasMedia) + "," + std::string(recordingMedia);
    const std::string animated = R"(,"isAnimation":true)";
    // The stored draft, its kind, its output kind, and whether it is timed.
    const std::tuple<std::string, DraftKind, OutputKind, bool> cases[] = {
        {draftJSON(), DraftKind::screenshot, OutputKind::screenshot, false},
        {draftJSON(testing::canvasMedia, testing::stillSection, animated), DraftKind::screenshot,
         OutputKind::animation, true},
        {draftJSON(both, testing::stillSection, animated), DraftKind::recording, OutputKind::recording, true},
    };
    for (const auto& [json, kind, output, timed] : cases) {
        const Draft draft = read(json);
        EXPECT_EQ(draft.kind(), kind) << json;
        EXPECT_EQ(draft.outputKind(), output) << json;
        EXPECT_EQ(draft.isTimed(), timed) << json;
    }
    // The primary media is the one the first section shows, wherever it stands.
    Draft draft = read(draftJSON(both));
    std::swap(draft.media.mutableItems()[0], draft.media.mutableItems()[1]);
    EXPECT_EQ(draft.primaryMediaIndex(), 1u);
    EXPECT_TRUE(draft.source().is<MediaSource::canvas>());
    draft.sections.mutableItems()[0].media = MediaID{};
    EXPECT_EQ(draft.primaryMediaIndex(), 0u);
}

TEST(Draft, CaptureAsIsNeedsOneMediaPlacedAsItIsAndNothingShown) {
    const std::string hiddenText =
        R"(,"objects":[{"id":"00000000-0000-0000-0000-000000000001","name":"g","isHidden":true,"isLocked":false,)"
        R"("content":{"group":[{"id":"00000000-0000-0000-0000-000000000002","name":"t","isHidden":false,)"
        R"("isLocked":false,"content":{"annotation":{"text":{"origin":[0,0],"string":"x","fontSize":9,)"
        R"("weight":"regular","alignment":"leading","color":{"alpha":1,"blue":0,"green":0,"red":0}}}}}]}}])";
    const Draft plain = read(draftJSON(testing::canvasMedia, testing::stillSection, hiddenText));
    EXPECT_TRUE(plain.isCaptureAsIs());
    const std::pair<const char*, void (*)(Draft&)> changes[] = {
        {"shown object", [](Draft& d) { d.objects.mutableItems()[0].isHidden = false; }},
        {"moved", [](Draft& d) { d.media.mutableItems()[0].placement.rotation = 0.1; }},
        {"blended", [](Draft& d) { d.media.mutableItems()[0].blend = BlendMode::screen; }},
        {"padded", [](Draft& d) { d.style.padding = 4; }},
        {"two media", [](Draft& d) { d.media.mutableItems().push_back(d.media[0]); }},
        {"blur over a picture",
         [](Draft& d) { d.style.backgroundBlur = 8, d.style.background = {{}, Background::wallpaper{}}; }},
    };
    for (const auto& [name, change] : changes) {
        Draft draft = plain;
        change(draft);
        EXPECT_FALSE(draft.isCaptureAsIs()) << name;
    }
    // A blur counts only behind a picture; a disabled section counts as off.
    Draft blurred = plain;
    blurred.style.backgroundBlur = 8;
    EXPECT_TRUE(blurred.isCaptureAsIs());
    blurred.style.background = Background{{}, Background::wallpaper{}};
    blurred.style.disabled = {StyleSection::background};
    EXPECT_TRUE(blurred.isCaptureAsIs());
}

TEST(Draft, TextsAreBoundToTheLaterCopyOfTheirFont) {
    Draft draft = read(testing::richDraftText());
    const auto font = [](const Draft& d) {
        const auto& group = *d.objects[0].content.children();
        return *group[0].annotation()->as<Annotation::text>().value.font;
    };
    ASSERT_EQ(font(draft).packageCopy, "dd44");
    draft.fonts.mutableItems()[1].sha256 = "9999";
    const Draft before = draft;
    const auto memoValue = draft.memo.value<int>({"probe"}, [] { return 1; });
    draft.bindPackageFonts();
    EXPECT_EQ(font(draft).packageCopy, "9999");
    EXPECT_EQ(font(before).packageCopy, "dd44"); // the copy that shared the tree keeps it
    EXPECT_NE(draft.memo.value<int>({"probe"}, [] { return 2; }), memoValue);
    // A text whose font the package doesn't keep is left alone.
    EXPECT_FALSE(draft.objects[1].annotation()->as<Annotation::text>().value.font->packageCopy.has_value());
}

using Kind = DecodingError::Kind;

TEST(Draft, AStoredDraftReadAndWrittenAgainKeepsItsBytes) {
    const std::string stored = testing::richDraftText();
    ASSERT_FALSE(stored.empty());
    const Draft draft = DraftJSON::decode<Draft>(stored);
    EXPECT_EQ(DraftJSON::encode(draft, true), stored);

    // Saved and read again, a draft is the one that was saved, apart from what isn't stored.
    Draft edited = draft;
    edited.showsOutsideFrame = true;
    edited.sections.mutableItems()[0].length.as<Section::Length::kept>().value[0].reversed = true;
    Draft reread = DraftJSON::decode<Draft>(DraftJSON::encode(edited, false));
    EXPECT_FALSE(reread.showsOutsideFrame);
    EXPECT_EQ(reread, draft);
}

TEST(Draft, DefaultsLeaveOutTheKeysThatSayNothing) {
    const JSONValue written = encodeJSON(DraftJSON::decode<Draft>(draftJSON()));
    for (const char* key :
         {"schema", "layout", "objects", "zoom", "zoomSettings", "cursor", "keys", "captions", "audio"})
        EXPECT_NE(written.at(key), nullptr) << key;
    for (const char* key : {"isAnimation", "skipsIdle", "markers", "camera", "byAutomation", "newMarksHandDrawn",
                            "newMarksInk", "sounds", "fonts", "importedSounds", "importedModels"})
        EXPECT_EQ(written.at(key), nullptr) << key;
    EXPECT_EQ(written.at("keys")->compact(), R"({"isShown":true})");
    EXPECT_EQ(written.at("captions")->compact(), R"({"cues":[],"isShown":true})");
    EXPECT_EQ(written.at("cursor")->object()->count("clickColor"), 0u);
}

TEST(Draft, AnotherSchemaStopsWithItsNumber) {
    for (const std::int64_t schema : {7, 9, -1, 0}) {
        try {
            (void)DraftJSON::decode<Draft>(R"({"name": 1, "schema": )" + std::to_string(schema) + "}");
            ADD_FAILURE() << schema;
        } catch (const DraftSchemaMismatch& mismatch) {
            EXPECT_EQ(mismatch.schema(), schema);
            EXPECT_EQ(mismatch.isNewer(), schema > Draft::currentSchema);
        }
    }
}

std::string withMedia(const std::string& source) {
    return draftJSON(R"({"id":"00000000-0000-0000-0000-00000000000A","source":)" + source + "}");
}
std::string withSection(const std::string& keys) {
    return draftJSON(testing::canvasMedia, R"({"id":"00000000-0000-0000-0000-00000000000C",)" + keys + "}");
}

TEST(Draft, BadDraftsAreRefusedWithTextAndPlace) {
    const std::string still(testing::stillSection), media(testing::canvasMedia);
    const std::string canvasSection = R"("media":"00000000-0000-0000-0000-00000000000A",)";
    const std::string recording = R"({"segments":[],"pixelSize":{"height":1,"width":1},"frameRate":30,)"
                                  R"("area":{"displayID":1,"rect":[[0,0],[1,1]],"scale":1}})";
    const std::string shot = R"({"image":"a.png","pixelSize":{"height":1,"width":1},"scale":1,"colorSpaceName":"s"})";
    const char* noParts = "A draft needs at least one media and one section";
    // The stored draft, and the kind, place and text of its refusal (any text when null).
    const std::tuple<std::string, Kind, const char*, const char*> cases[] = {
        {draftJSON(media, ""), Kind::dataCorrupted, "", noParts},
        {draftJSON("", still), Kind::dataCorrupted, "", noParts},
        {draftJSON(media + "," + media), Kind::dataCorrupted, "", "Media or section ids repeat"},
        {draftJSON(media, still + "," + still), Kind::dataCorrupted, "", "Media or section ids repeat"},
        {withSection(R"("media":"00000000-0000-0000-0000-00000000000B","stillDuration":1)"), Kind::dataCorrupted, "",
         "A section shows a media the draft does not have"},
        {withSection(canvasSection + R"("keptRanges":[{"start":0,"end":1},{"start":1,"end":2},{"start":3,"end":4}],)"
                                     R"("rates":[1,2])"),
         Kind::dataCorrupted, "sections[0].rates", "2 rates for 3 kept ranges"},
        {withSection(canvasSection + R"("rates":[1])"), Kind::keyNotFound, "sections[0].keptRanges", nullptr},
        {withMedia(R"({"film":{}})"), Kind::dataCorrupted, "media[0].source",
         "Unknown media kind film: the draft was made by a newer Ovik"},
        {withMedia(R"({"image":)" + shot + "}"), Kind::dataCorrupted, "media[0].source.image",
         "An imported image needs the file it came from"},
        {withMedia(R"({"video":)" + recording + "}"), Kind::dataCorrupted, "media[0].source.video",
         "An imported video needs the file it came from"},
    };
    for (const auto& [json, kind, path, text] : cases) testing::expectRefused<Draft>({json.c_str(), kind, path, text});
}

TEST(Draft, TheProbeReadsTheNumberWhateverElseIsThere) {
    EXPECT_EQ(DraftJSON::decode<SchemaProbe>(R"({"schema": 12, "id": 3})").schema, 12);
    EXPECT_THROW((void)DraftJSON::decode<SchemaProbe>(R"({"id": 3})"), DecodingError);
}

TEST(DraftJSON, DocumentFilesSortKeysLeaveSlashesAloneAndRefuseNonFiniteNumbers) {
    const JSONValue value = JSONValue::parse(R"({"b": "x/y", "a": []})");
    EXPECT_EQ(DraftJSON::encode(value, false), R"({"a":[],"b":"x/y"})");
    EXPECT_EQ(DraftJSON::encode(value, true), "{\n  \"a\" : [\n\n  ],\n  \"b\" : \"x/y\"\n}");
    // A non-finite number is never written.
    Draft draft = DraftJSON::decode<Draft>(draftJSON());
    draft.layout.gap = std::nan("");
    EXPECT_THROW((void)DraftJSON::encode(draft, true), EncodingError);
}

TEST(PackagePath, IsABareStringAndTakesAnyText) {
    // Nothing is checked on reading: a path is tested only where a file is used.
    for (const char* text : {"media/screenshot.png", "../outside.mov", "/etc/passwd", ""}) {
        const std::string json = "[" + DraftJSON::encode(JSONValue(text), false) + "]";
        const auto paths = DraftJSON::decode<std::vector<PackagePath>>(json);
        ASSERT_EQ(paths.size(), 1u);
        EXPECT_EQ(paths[0].description(), text);
        EXPECT_EQ(DraftJSON::encode(paths, false), json);
    }
    testing::expectRefused<std::vector<PackagePath>>(
        {R"(["a", {"relative": "b"}])", DecodingError::Kind::typeMismatch, "[1]"});
}

TEST(DraftDocument, URLAppendsThePathTextToThePackage) {
    // Package, path inside it, and the URL.
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"/drafts/A.ovikwork", "media/screenshot.png", "/drafts/A.ovikwork/media/screenshot.png"},
        {"/drafts/A.ovikwork/", "draft.json", "/drafts/A.ovikwork/draft.json"},
        // A leading "/" doesn't make the path replace the package.
        {"/drafts/A.ovikwork", "/etc/passwd", "/drafts/A.ovikwork//etc/passwd"},
        {"/drafts/A.ovikwork", "", "/drafts/A.ovikwork"},
    };
    for (const auto& [package, path, expected] : cases) {
        const DraftDocument document{Draft{}, package};
        EXPECT_EQ(document.url(PackagePath{path}).string(), expected) << path;
    }
}

} // namespace
} // namespace ovik
