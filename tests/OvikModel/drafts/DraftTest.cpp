#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "OvikModel/Draft.h"
#include "OvikModel/DraftJSON.h"
#include "OvikModel/DraftSchemaMismatch.h"
#include "OvikModel/SchemaProbe.h"

namespace ovik {
namespace {

// A draft file as it stands on disk: keys sorted, indented, slashes and non-ASCII text raw.
constexpr std::string_view storedDraft =
    "{\n"
    "  \"caption\" : \"Grüße / 你好 \\\"quoted\\\"\\n\",\n"
    "  \"empty\" : {\n"
    "  \n"
    "  },\n"
    "  \"list\" : [\n"
    "  \n"
    "  ],\n"
    "  \"nested\" : {\n"
    "    \"deeper\" : {\n"
    "      \"items\" : [\n"
    "        1,\n"
    "        -2.5,\n"
    "        1e-07,\n"
    "        true,\n"
    "        null\n"
    "      ],\n"
    "      \"path\" : \"media/x\"\n"
    "    },\n"
    "    \"zeta\" : [\n"
    "      {\n"
    "      \n"
    "      }\n"
    "    ]\n"
    "  },\n"
    "  \"schema\" : 8\n"
    "}";

TEST(Draft, ReadingAndWritingGivesBackTheSameBytes) {
    const Draft draft = DraftJSON::decode<Draft>(storedDraft);
    EXPECT_EQ(DraftJSON::encode(draft, true), storedDraft);
    EXPECT_EQ(draft.otherKeys.count("schema"), 0u);
}

TEST(Draft, SchemaIsAlwaysWrittenAsTheCurrentNumber) {
    Draft draft;
    draft.otherKeys.emplace("schema", JSONValue(3));
    draft.otherKeys.emplace("a/b", JSONValue("c/d"));
    EXPECT_EQ(DraftJSON::encode(draft, false), R"({"a/b":"c/d","schema":8})");
}

TEST(Draft, AnotherSchemaStopsWithItsNumber) {
    const std::pair<const char*, std::int64_t> cases[] = {
        {R"({"schema": 7, "name": "old"})", 7},
        {R"({"schema": 9})", 9},
        {R"({"schema": -1})", -1},
    };
    for (const auto& [json, schema] : cases) {
        try {
            (void)DraftJSON::decode<Draft>(json);
            ADD_FAILURE() << json;
        } catch (const DraftSchemaMismatch& mismatch) {
            EXPECT_EQ(mismatch.schema(), schema);
            EXPECT_EQ(mismatch.isNewer(), schema > Draft::currentSchema);
        }
    }
}

TEST(Draft, MalformedDraftsAreDecodingErrors) {
    struct Case {
        const char* json;
        DecodingError::Kind kind;
        const char* path;
    };
    const Case cases[] = {
        {"{}", DecodingError::Kind::keyNotFound, "schema"},
        {"[]", DecodingError::Kind::typeMismatch, ""},
        {R"({"schema": "8"})", DecodingError::Kind::typeMismatch, "schema"},
        {R"({"schema": 8.5})", DecodingError::Kind::dataCorrupted, "schema"},
        {R"({"schema": null})", DecodingError::Kind::valueNotFound, "schema"},
        {R"({"schema": 8,)", DecodingError::Kind::dataCorrupted, ""},
    };
    for (const Case& c : cases) {
        try {
            (void)DraftJSON::decode<Draft>(c.json);
            ADD_FAILURE() << c.json;
        } catch (const DecodingError& error) {
            EXPECT_EQ(error.kind(), c.kind) << c.json;
            EXPECT_EQ(codingPathText(error.codingPath()), c.path) << c.json;
        }
    }
}

TEST(Draft, TheProbeReadsTheNumberWhateverElseIsThere) {
    EXPECT_EQ(DraftJSON::decode<SchemaProbe>(R"({"schema": 12, "id": 3})").schema, 12);
    EXPECT_THROW((void)DraftJSON::decode<SchemaProbe>(R"({"id": 3})"), DecodingError);
}

TEST(DraftJSON, DocumentFilesSortKeysAndLeaveSlashesAlone) {
    const JSONValue value = JSONValue::parse(R"({"b": "x/y", "a": []})");
    EXPECT_EQ(DraftJSON::encode(value, false), R"({"a":[],"b":"x/y"})");
    EXPECT_EQ(DraftJSON::encode(value, true), "{\n  \"a\" : [\n  \n  ],\n  \"b\" : \"x/y\"\n}");
}

TEST(DraftJSON, ANonFiniteNumberIsNeverWritten) {
    Draft draft;
    draft.otherKeys.emplace("duration", JSONValue(std::nan("")));
    EXPECT_THROW((void)DraftJSON::encode(draft, true), EncodingError);
}

} // namespace
} // namespace ovik
