#include <gtest/gtest.h>

#include <tuple>

#include <cmath>

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
    // json, kind, path, text
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

TEST(DraftJSON, DocumentFilesSortKeysAndLeaveSlashesAlone) {
    const JSONValue value = JSONValue::parse(R"({"b": "x/y", "a": []})");
    EXPECT_EQ(DraftJSON::encode(value, false), R"({"a":[],"b":"x/y"})");
    EXPECT_EQ(DraftJSON::encode(value, true), "{\n  \"a\" : [\n\n  ],\n  \"b\" : \"x/y\"\n}");
}

TEST(DraftJSON, ANonFiniteNumberIsNeverWritten) {
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
    // package, path, expected
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
