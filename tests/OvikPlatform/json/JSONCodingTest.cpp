#include <gtest/gtest.h>

#include "OvikPlatform/json/JSONCoding.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {
namespace {

enum class Fit { fill, fit, stretch };
constexpr auto enumCases(Fit*) {
    return EnumCases<Fit, 3>{"Fit", {{Fit::fill, "fill"}, {Fit::fit, "fit"}, {Fit::stretch, "stretch"}}};
}

struct Inner {
    std::int64_t width = 0;
    float weight = 0.5f;
    bool operator==(const Inner&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("width", &Inner::width), defaulted("weight", &Inner::weight)};
    }
};

// Writes its number as text: a custom form for one field.
struct TextNumber {
    static JSONValue encode(std::int64_t v) { return JSONValue(std::to_string(v)); }
    static std::int64_t decode(JSONNode node, const CodingPath& path) {
        return std::stoll(JSONCoding<std::string>::decode(node, path));
    }
};

struct Outer {
    std::string name;
    std::optional<double> scale;
    Fit fit = Fit::fit;
    std::vector<Inner> items;
    std::map<std::string, std::int32_t> counts;
    std::int64_t code = 0;
    JSONValue extra;
    bool operator==(const Outer&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("name", &Outer::name),       optional("scale", &Outer::scale),
                          defaulted("fit", &Outer::fit),        defaulted("items", &Outer::items),
                          defaulted("counts", &Outer::counts), required<TextNumber>("code", &Outer::code),
                          defaulted("extra", &Outer::extra)};
    }
};

TEST(JSONCoding, RecordRoundTripLeavesDefaultsOut) {
    Outer full{"a/b", 2.0, Fit::stretch, {{3, 0.25f}, {4, 0.5f}}, {{"z", 1}, {"a", 2}}, 42, JSONValue::parse("[null]")};
    const std::string text = JSONWriter::write(encodeJSON(full));
    EXPECT_EQ(text, R"({"code":"42","counts":{"a":2,"z":1},"extra":[null],"fit":"stretch",)"
                    R"("items":[{"weight":0.25,"width":3},{"width":4}],"name":"a/b","scale":2})");
    EXPECT_EQ(decodeJSON<Outer>(std::string_view(text)), full);

    const Outer sparse{"n", std::nullopt, Fit::fit, {}, {}, 7, {}};
    EXPECT_EQ(encodeJSON(sparse).compact(), R"({"code":"7","name":"n"})");
    EXPECT_EQ(decodeJSON<Outer>(std::string_view(R"({"code":"7","name":"n","unknown":{"x":1}})")), sparse);
    // Null stands for absence except where required.
    EXPECT_EQ(decodeJSON<Outer>(std::string_view(R"({"code":"7","name":"n","scale":null,"fit":null})")), sparse);
}

struct Failure {
    const char* json;
    DecodingError::Kind kind;
    const char* path;
    const char* description;
};

TEST(JSONCoding, FirstFailingFieldIsReportedWithItsPath) {
    const Failure failures[] = {
        {R"({"code":"1"})", DecodingError::Kind::keyNotFound, "name", "No value associated with key \"name\"."},
        {R"({"name":null,"code":"1"})", DecodingError::Kind::valueNotFound, "name",
         "Expected String value but found null instead."},
        // "code" is stored first but declared after "name": the error is the name's.
        {R"({"code":5,"name":5})", DecodingError::Kind::typeMismatch, "name",
         "Expected to decode String but found a number instead."},
        {R"({"name":"n","code":"1","items":[{"width":1},{"width":2.5}]})", DecodingError::Kind::dataCorrupted,
         "items[1].width", "Parsed JSON number <2.5> does not fit in Int."},
        {R"({"name":"n","code":"1","counts":{"k":3000000000}})", DecodingError::Kind::dataCorrupted, "counts.k",
         "Parsed JSON number <3000000000> does not fit in Int."},
        {R"({"name":"n","code":"1","fit":"zoom"})", DecodingError::Kind::dataCorrupted, "fit",
         "Cannot initialize Fit from invalid String value zoom"},
        {R"({"name":"n","code":"1","items":{}})", DecodingError::Kind::typeMismatch, "items",
         "Expected to decode Array<Any> but found a dictionary instead."},
        {R"([])", DecodingError::Kind::typeMismatch, "",
         "Expected to decode Dictionary<String, Any> but found an array instead."},
        {R"({"name":"n","code":"1","items":[{"width":1,"weight":1e39}]})", DecodingError::Kind::dataCorrupted,
         "items[0].weight", "Parsed JSON number <1e+39> does not fit in Float."},
    };
    for (const Failure& f : failures) {
        try {
            (void)decodeJSON<Outer>(std::string_view(f.json));
            ADD_FAILURE() << "accepted " << f.json;
        } catch (const DecodingError& error) {
            EXPECT_EQ(error.kind(), f.kind) << f.json;
            EXPECT_EQ(codingPathText(error.codingPath()), f.path) << f.json;
            EXPECT_EQ(error.debugDescription(), f.description) << f.json;
        }
    }
}

TEST(JSONCoding, ALaterDuplicateWins) {
    const struct {
        const char* json;
        Outer expected;
    } cases[] = {
        // The first is not even valid: only the last one counts.
        {R"({"code":"1","name":5,"name":"b"})", {"b", std::nullopt, Fit::fit, {}, {}, 1, {}}},
        // A later null takes the field back to its default.
        {R"({"code":"1","name":"a","fit":"fill","fit":null,"scale":2,"scale":null})",
         {"a", std::nullopt, Fit::fit, {}, {}, 1, {}}},
    };
    for (const auto& c : cases) EXPECT_EQ(decodeJSON<Outer>(std::string_view(c.json)), c.expected) << c.json;
}

TEST(JSONCoding, FieldsAreFoundInAnyOrderAlsoInAGenericValue) {
    // The look-up remembers where the last key was: keys stored out of order must still be found.
    EXPECT_EQ(decodeJSON<Inner>(std::string_view(R"({"weight": 2, "x": 0, "width": 1})")), (Inner{1, 2.0f}));
    EXPECT_EQ(decodeJSON<Inner>(JSONValue::parse(R"({"width": 9, "x": 0, "weight": 0.125})")), (Inner{9, 0.125f}));
}

TEST(JSONCoding, UnsignedFieldsKeepTheirWholeRange) {
    struct Case {
        const char* json;
        std::uint64_t value;
    };
    const Case cases[] = {{"18446744073709551615", 18446744073709551615u}, {"9223372036854775808", 9223372036854775808u}};
    for (const Case& c : cases) {
        EXPECT_EQ(decodeJSON<std::uint64_t>(std::string_view(c.json)), c.value);
        EXPECT_EQ(encodeJSON(c.value).compact(), c.json);
        EXPECT_EQ(JSONValue::parse(c.json).compact(), c.json);
    }
    const char* refused[] = {"-1", "1.5", "18446744073709551616", "\"3\""};
    for (const char* text : refused) EXPECT_THROW((void)decodeJSON<std::uint64_t>(std::string_view(text)), DecodingError) << text;
    EXPECT_THROW((void)decodeJSON<std::uint32_t>(std::string_view("4294967296")), DecodingError);
}

} // namespace
} // namespace ovik
