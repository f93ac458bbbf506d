#include <gtest/gtest.h>

#include "OvikPlatform/json/JSONCoding.h"
#include "OvikPlatform/json/JSONWriter.h"
#include "OvikPlatform/json/OpaqueJSON.h"

namespace ovik {
namespace {

// What a kept record holds is the text the generic value would write: keys sorted, the last of
// repeated keys, numbers in our layout, strings escaped as we escape them.
TEST(OpaqueJSON, HoldsTheCompactTextOfTheValueItRead) {
    const std::pair<const char*, const char*> cases[] = {
        {R"({"b": 1, "a": {"d": [], "c": {}}})", R"({"a":{"c":{},"d":[]},"b":1})"},
        {R"({"k": 1, "j": 0, "k": [2]})", R"({"j":0,"k":[2]})"},
        {"[18446744073709551615, -9223372036854775808, 1.5e300, 0.0001, 1e-5, 2.0, -0.0]",
         "[18446744073709551615,-9223372036854775808,1.5e+300,0.0001,1e-05,2,-0]"},
        {R"(["a/b\u0001\"\\", "音乐", "\/"])", R"(["a/b\u0001\"\\","音乐","/"])"},
        {" true ", "true"},
    };
    for (const auto& [input, text] : cases) {
        const OpaqueJSON kept = decodeJSON<OpaqueJSON>(std::string_view(input));
        EXPECT_EQ(kept.text(), text) << input;
        // Reading the text back gives the value again, whole doubles as integers.
        EXPECT_TRUE(kept.value().same(JSONValue::parse(input))) << input;
        EXPECT_EQ(kept, OpaqueJSON(JSONValue::parse(input))) << input;
    }
}

// Inside a document the text is laid out as the writer lays out the value itself: at the
// depth where it stands, indented or not, slashes escaped or not.
TEST(OpaqueJSON, IsWrittenAsTheValueItHoldsInEveryLayout) {
    const char* values[] = {
        R"({"s": "a,b:{c}[d] \"/\\/ \\\" \t", "e": [], "o": {}, "n": [[], {}, [{"a": [1, {"b": []}]}]]})",
        R"([1.25, -3, "音乐/曲"])", "[]", "{}", R"("x/y")", "7",
    };
    for (const char* text : values) {
        const JSONValue value = JSONValue::parse(text);
        const JSONValue kept = decodeJSON<OpaqueJSON>(std::string_view(text));
        const JSONValue::Object tree{{"m", JSONValue::Object{{"x", value}, {"z", JSONValue::Array{value}}}}};
        const JSONValue::Object held{{"m", JSONValue::Object{{"x", kept}, {"z", JSONValue::Array{kept}}}}};
        for (const bool pretty : {false, true})
            for (const bool escapeSlashes : {false, true}) {
                const JSONWriteOptions options{.pretty = pretty, .escapeSlashes = escapeSlashes};
                EXPECT_EQ(JSONWriter::write(JSONValue(held), options), JSONWriter::write(JSONValue(tree), options))
                    << text << (pretty ? " pretty" : "") << (escapeSlashes ? " escaping slashes" : "");
            }
    }
}

} // namespace
} // namespace ovik
