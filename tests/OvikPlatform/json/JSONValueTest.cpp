#include <gtest/gtest.h>

#include "OvikPlatform/json/DecodingError.h"
#include "OvikPlatform/json/JSONValue.h"

namespace ovik {
namespace {

TEST(JSONValue, ParseKeepsIntegersApartFromDoubles) {
    const JSONValue v = JSONValue::parse(R"({"i": 1, "d": 1.0, "e": 1e3, "big": 18446744073709551615, "n": null,
                                           "s": "a\/b", "t": true, "a": [1, "x"]})");
    EXPECT_EQ(v.at("i")->storage().index(), JSONValue(std::int64_t(1)).storage().index());
    EXPECT_EQ(*v.at("d"), JSONValue(1.0));
    EXPECT_EQ(*v.at("e"), JSONValue(1000.0));
    EXPECT_EQ(*v.at("big"), JSONValue(std::uint64_t(18446744073709551615u)));
    EXPECT_TRUE(v.at("n")->isNull());
    EXPECT_EQ(*v.at("s"), JSONValue("a/b"));
    EXPECT_EQ(*v.at("a"), JSONValue(JSONValue::Array{1, "x"}));
}

TEST(JSONValue, ParseRefusesWhatIsNotJSON) {
    const std::string bad[] = {"", "{", "[1,]", "{\"a\":1,}", "nul", "\"\xff\xfe\"", "01", "1e999", "{'a':1}",
                               std::string(2000, '[') + std::string(2000, ']')};
    for (const std::string& text : bad) {
        try {
            (void)JSONValue::parse(text);
            ADD_FAILURE() << "accepted: " << text.substr(0, 20);
        } catch (const DecodingError& error) {
            EXPECT_EQ(error.kind(), DecodingError::Kind::dataCorrupted);
        }
    }
}

TEST(JSONValue, AtWalksDottedPaths) {
    const JSONValue v = JSONValue::parse(R"({"a": {"b": {"c": 3}}, "x": [1]})");
    EXPECT_EQ(*v.at("a.b.c"), JSONValue(3));
    EXPECT_EQ(*v.at(".a..b.c."), JSONValue(3));
    EXPECT_EQ(v.at(""), &v);
    EXPECT_EQ(v.at("a.q"), nullptr);
    EXPECT_EQ(v.at("x.0"), nullptr); // arrays are not walked
    EXPECT_EQ(v.at("a.b.c.d"), nullptr);
}

TEST(JSONValue, SettingReplacesOneLeafAndCreatesObjects) {
    const JSONValue v = JSONValue::parse(R"({"a": {"b": 1, "keep": true}, "s": "text"})");
    EXPECT_EQ(v.setting("a.b", 2).compact(), R"({"a":{"b":2,"keep":true},"s":"text"})");
    EXPECT_EQ(v.setting("n.m", "x").compact(), R"({"a":{"b":1,"keep":true},"n":{"m":"x"},"s":"text"})");
    EXPECT_EQ(v.setting("s.t", 1).compact(), R"({"a":{"b":1,"keep":true},"s":{"t":1}})");
    EXPECT_EQ(v.compact(), R"({"a":{"b":1,"keep":true},"s":"text"})"); // the original is untouched
}

TEST(JSONValue, SameIsLoose) {
    struct Case {
        const char* a;
        const char* b;
        bool same;
    };
    const Case cases[] = {
        {"1", "1.0", true}, {"1", "1.5", false}, {R"("#ff00AA")", R"("#FF00aa")", true}, {R"("abc")", R"("ABC")", false},
        {R"("abc#")", R"("ABC#")", true}, {"[1, 2]", "[1.0, 2]", true}, {"[1, 2]", "[1]", false},
        {R"({"a": 1})", R"({"a": 1.0})", true}, {R"({"a": 1})", R"({"b": 1})", false}, {"true", "1", false},
        {R"("1")", "1", false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(JSONValue::parse(c.a).same(JSONValue::parse(c.b)), c.same) << c.a << " vs " << c.b;
}

} // namespace
} // namespace ovik
