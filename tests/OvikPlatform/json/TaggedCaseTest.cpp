#include <gtest/gtest.h>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {
namespace {

// A stand-in for a stored enumeration with payload: no payload, one value, a record of fields.
struct Source : Enumeration<Source> {
    struct wallpaper {
        static constexpr std::string_view name = "wallpaper";
        bool operator==(const wallpaper&) const = default;
    };
    struct image {
        static constexpr std::string_view name = "image";
        std::string value;
        bool operator==(const image&) const = default;
    };
    struct gradient {
        static constexpr std::string_view name = "gradient";
        double angle = 0;
        std::vector<std::string> stops;
        bool operator==(const gradient&) const = default;
        static constexpr auto jsonFields() {
            return std::tuple{required("angle", &gradient::angle), required("stops", &gradient::stops)};
        }
    };
    // A record of one field is written as that one value; unless it says its field is named.
    struct steps {
        static constexpr std::string_view name = "steps";
        std::int64_t count = 0;
        bool operator==(const steps&) const = default;
        static constexpr auto jsonFields() { return std::tuple{required("count", &steps::count)}; }
    };
    struct random {
        static constexpr std::string_view name = "random";
        std::uint64_t seed = 0;
        static constexpr bool namedPayload = true;
        bool operator==(const random&) const = default;
        static constexpr auto jsonFields() { return std::tuple{required("seed", &random::seed)}; }
    };
    std::variant<wallpaper, image, gradient, steps, random> cases;
    bool operator==(const Source&) const = default;
};

TEST(TaggedCase, CasesRoundTripInTheirTaggedForm) {
    struct Case {
        Source value;
        const char* json;
    };
    const Case cases[] = {
        {Source{{}, Source::wallpaper{}}, R"("wallpaper")"},
        {Source{{}, Source::image{"a/b.png"}}, R"({"image":"a/b.png"})"},
        {Source{{}, Source::gradient{90, {"red", "blue"}}}, R"({"gradient":{"angle":90,"stops":["red","blue"]}})"},
        {Source{{}, Source::steps{4}}, R"({"steps":4})"},
        {Source{{}, Source::random{7}}, R"({"random":{"seed":7}})"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(encodeJSON(c.value).compact(), c.json);
        EXPECT_EQ(decodeJSON<Source>(std::string_view(c.json)), c.value) << c.json;
    }
}

TEST(TaggedCase, RefusalsSayWhatIsWrong) {
    struct Case {
        const char* json;
        const char* description;
        const char* path;
    };
    const Case cases[] = {
        {R"("image")", "Case image needs a value", "[0]"},
        {R"({"image":"a","gradient":{}})", "Expected a case name or an object with one key", "[0]"},
        {"3", "Expected a case name or an object with one key", "[0]"},
        {R"("video")", "Unknown case video", "[0]"},
        {R"({"gradient":{"angle":1}})", "No value associated with key \"stops\".", "[0].gradient.stops"},
        {R"({"steps":{"count":4}})", "Expected to decode Int but found a dictionary instead.", "[0].steps"},
        {R"({"random":7})", "Expected to decode Dictionary<String, Any> but found a number instead.", "[0].random"},
    };
    for (const Case& c : cases) {
        const std::string list = std::string("[") + c.json + "]";
        try {
            (void)decodeJSON<std::vector<Source>>(std::string_view(list));
            ADD_FAILURE() << "accepted " << c.json;
        } catch (const DecodingError& error) {
            EXPECT_EQ(error.debugDescription(), c.description);
            EXPECT_EQ(codingPathText(error.codingPath()), c.path);
        }
    }
}

} // namespace
} // namespace ovik
