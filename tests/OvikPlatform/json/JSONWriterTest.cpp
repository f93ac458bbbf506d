#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "OvikPlatform/json/DecodingError.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {
namespace {

struct NumberCase {
    JSONValue value;
    const char* text;
};

TEST(JSONWriter, NumberLayout) {
    const NumberCase cases[] = {
        {1.0, "1"}, {-0.0, "-0"}, {0.0, "0"}, {0.1, "0.1"}, {-1.5, "-1.5"}, {100.0, "100"}, {1e-05, "1e-05"},
        {9.999e-05, "9.999e-05"}, {0.0001, "0.0001"}, {1e-07, "1e-07"}, {123456789012.0, "123456789012"},
        {9007199254740991.0, "9007199254740991"}, {9007199254740992.0, "9.007199254740992e+15"}, {1e16, "1e+16"},
        {1.2345678901234568e+20, "1.2345678901234568e+20"}, {1e100, "1e+100"}, {5e-324, "5e-324"},
        {std::numeric_limits<double>::max(), "1.7976931348623157e+308"}, {double(0.1f), "0.10000000149011612"},
        {0.1f, "0.1"}, {16777215.0f, "16777215"}, {16777216.0f, "1.6777216e+07"}, {-33554432.0f, "-3.3554432e+07"},
        {1e-05f, "1e-05"}, {std::int64_t(9007199254740993), "9007199254740993"},
        {std::numeric_limits<std::int64_t>::min(), "-9223372036854775808"},
    };
    for (const auto& c : cases) EXPECT_EQ(c.value.compact(), c.text) << c.text;
}

TEST(JSONWriter, NonFiniteNumbersAreRefusedWithTheirPath) {
    const JSONValue values[] = {std::nan(""), std::numeric_limits<double>::infinity(),
                                -std::numeric_limits<float>::infinity()};
    for (const JSONValue& bad : values) {
        JSONValue doc(JSONValue::Object{{"list", JSONValue::Array{1, bad}}});
        try {
            (void)doc.prettyPrinted();
            FAIL() << "wrote a non-finite number";
        } catch (const EncodingError& error) {
            ASSERT_EQ(error.codingPath().size(), 2u);
            EXPECT_EQ(error.codingPath()[0].key, "list");
            EXPECT_EQ(error.codingPath()[1].index, 1);
        }
    }
}

TEST(JSONWriter, StringEscaping) {
    struct Case {
        std::string text;
        bool escapeSlashes;
        const char* json;
    };
    const Case cases[] = {
        {"a/b", false, R"("a/b")"}, {"a/b", true, R"("a\/b")"}, {"quote\" back\\", false, R"("quote\" back\\")"},
        {"\b\f\n\r\t", false, R"("\b\f\n\r\t")"}, {std::string("\x01\x1f\x00", 3), false, R"("\u0001\u001f\u0000")"},
        {"\x7f", false, "\"\x7f\""}, {"é中😀", false, "\"é中😀\""},
    };
    for (const auto& c : cases) {
        std::string out;
        JSONWriter::appendString(out, c.text, c.escapeSlashes);
        EXPECT_EQ(out, c.json);
    }
}

// An empty container keeps one empty line without spaces; its closing bracket carries the indent
// of the line that opened it.
TEST(JSONWriter, PrettyLayoutWithNestedEmptyContainers) {
    const JSONValue doc(JSONValue::Object{
        {"b", JSONValue::Array{1, JSONValue::Object{}, JSONValue::Array{}}},
        {"a", JSONValue::Object{{"x/y", "p/q"}, {"empty", JSONValue::Array{}}}},
        {"c", nullptr},
    });
    const char* expected = "{\n"
                           "  \"a\" : {\n"
                           "    \"empty\" : [\n"
                           "\n"
                           "    ],\n"
                           "    \"x/y\" : \"p/q\"\n"
                           "  },\n"
                           "  \"b\" : [\n"
                           "    1,\n"
                           "    {\n"
                           "\n"
                           "    },\n"
                           "    [\n"
                           "\n"
                           "    ]\n"
                           "  ],\n"
                           "  \"c\" : null\n"
                           "}";
    EXPECT_EQ(JSONWriter::write(doc, {.pretty = true}), expected);
    EXPECT_EQ(JSONWriter::write(doc, {.pretty = false, .escapeSlashes = true}),
              R"({"a":{"empty":[],"x\/y":"p\/q"},"b":[1,{},[]],"c":null})");
    EXPECT_EQ(JSONValue(JSONValue::Array{}).prettyPrinted(), "[\n\n]");
}

TEST(JSONWriter, KeysInUTF8ByteOrder) {
    // Upper case before lower case, and multi-byte characters after all of ASCII.
    const JSONValue doc(JSONValue::Object{{"é", 1}, {"b", 2}, {"B", 3}, {"~", 4}, {"_a", 5}, {"a", 6}});
    EXPECT_EQ(doc.compact(), R"({"B":3,"_a":5,"a":6,"b":2,"~":4,"é":1})");
}

} // namespace
} // namespace ovik
