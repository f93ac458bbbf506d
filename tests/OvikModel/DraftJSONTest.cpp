#include <gtest/gtest.h>

#include <cmath>

#include "OvikModel/Draft.h"
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
    const Draft draft = DraftJSON::decode<Draft>(draftJSON());
    EXPECT_EQ(draft.layout.gap, 16);
    EXPECT_EQ(draft.zoomSettings.defaultFactor, 2);
    EXPECT_EQ(draft.cursor, CursorSettings::plain());
    EXPECT_EQ(draft.camera, CameraOverlay{});
    const JSONValue written = encodeJSON(draft);
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
std::string withKeys(const std::string& keys) { return draftJSON(testing::canvasMedia, testing::stillSection, keys); }

TEST(Draft, BadDraftsAreRefusedWithTextAndPlace) {
    const std::string still(testing::stillSection), media(testing::canvasMedia);
    const std::string canvasSection = R"("media":"00000000-0000-0000-0000-00000000000A",)";
    const std::string recording = R"({"segments":[],"pixelSize":{"height":1,"width":1},"frameRate":30,)"
                                  R"("area":{"displayID":1,"rect":[[0,0],[1,1]],"scale":1}})";
    const std::string shot = R"({"image":"a.png","pixelSize":{"height":1,"width":1},"scale":1,"colorSpaceName":"s"})";
    const char* noParts = "A draft needs at least one media and one section";
    struct Case {
        std::string json;
        Kind kind;
        const char* path;
        const char* text;
    };
    const Case cases[] = {
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
        {withMedia(R"("canvas")"), Kind::dataCorrupted, "media[0].source", nullptr},
        {withKeys(R"(,"camera":{"corner":"middle"})"), Kind::dataCorrupted, "camera.corner", nullptr},
        {withKeys(R"(,"frame":[[0,0]])"), Kind::dataCorrupted, "frame",
         "Expected an origin and a size but found 1 values."},
        {R"({"schema":8,"id":"6F1C2B9A-0D4E-4B7A-9C3E-2A1B0C9D8E7F","name":"n"})", Kind::keyNotFound, "createdAt",
         nullptr},
        {"[]", Kind::typeMismatch, "", nullptr},
    };
    for (const Case& c : cases) testing::expectRefused<Draft>({c.json.c_str(), c.kind, c.path, c.text});
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

} // namespace
} // namespace ovik
