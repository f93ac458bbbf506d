#include <gtest/gtest.h>

#include "OvikPlatform/UUID.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {
namespace {

constexpr const char* sample = "E621E1F8-C36C-495A-93FC-0C247A3E6E5F";

TEST(UUID, TextIsCanonicalUpperCaseWhicheverCaseWasRead) {
    const std::optional<UUID> upper = UUID::parse(sample);
    const std::optional<UUID> lower = UUID::parse("e621e1f8-c36c-495a-93fc-0c247a3e6e5f");
    const std::optional<UUID> mixed = UUID::parse("e621E1F8-c36C-495a-93Fc-0C247A3e6e5F");
    ASSERT_TRUE(upper && lower && mixed);
    EXPECT_EQ(upper->uuidString(), sample);
    EXPECT_EQ(*lower, *upper);
    EXPECT_EQ(*mixed, *upper);
    EXPECT_EQ(upper->bytes()[0], 0xE6);
    EXPECT_EQ(upper->bytes()[15], 0x5F);
    EXPECT_EQ(UUID().uuidString(), "00000000-0000-0000-0000-000000000000");
}

TEST(UUID, AnythingButTheCanonicalFormIsRefused) {
    const char* refused[] = {
        "",
        "E621E1F8-C36C-495A-93FC-0C247A3E6E5",    // a digit short
        "E621E1F8-C36C-495A-93FC-0C247A3E6E5F0",  // a digit over
        "E621E1F8C36C495A93FC0C247A3E6E5F",       // no hyphens
        "{E621E1F8-C36C-495A-93FC-0C247A3E6E5F}", // braces
        "E621E1F8-C36C-495A-93FC0-C247A3E6E5F",   // hyphen out of place
        "E621E1F8-C36C-495A-93FC-0C247A3E6E5G",   // not hexadecimal
        "E621E1F8_C36C_495A_93FC_0C247A3E6E5F",   // wrong separator
        " E621E1F8-C36C-495A-93FC-0C247A3E6E5",   // leading space
        "+621E1F8-C36C-495A-93FC-0C247A3E6E5F",   // a sign is no digit
    };
    for (const char* text : refused) EXPECT_FALSE(UUID::parse(text).has_value()) << '"' << text << '"';
}

TEST(UUID, RandomIsVersionFourOfTheStandardVariant) {
    const UUID a = UUID::random();
    const UUID b = UUID::random();
    EXPECT_NE(a, b);
    for (const UUID& uuid : {a, b}) {
        EXPECT_EQ(uuid.bytes()[6] >> 4, 4);
        EXPECT_EQ(uuid.bytes()[8] >> 6, 2);
        EXPECT_EQ(uuid.uuidString()[14], '4');
        EXPECT_EQ(UUID::parse(uuid.uuidString()), uuid);
    }
}

TEST(UUID, OrderAndHashFollowTheBytes) {
    const UUID low = *UUID::parse("00000000-0000-0000-0000-0000000000FF");
    const UUID high = *UUID::parse("01000000-0000-0000-0000-000000000000");
    EXPECT_LT(low, high);
    EXPECT_EQ(std::hash<UUID>()(*UUID::parse(sample)), std::hash<UUID>()(*UUID::parse(sample)));
    EXPECT_NE(std::hash<UUID>()(low), std::hash<UUID>()(high));
}

TEST(UUID, JSONIsTheBareUpperCaseText) {
    const UUID uuid = *UUID::parse(sample);
    EXPECT_EQ(JSONWriter::write(encodeJSON(uuid)), std::string("\"") + sample + "\"");
    EXPECT_EQ(decodeJSON<UUID>(std::string_view("\"e621e1f8-c36c-495a-93fc-0c247a3e6e5f\"")), uuid);
}

TEST(UUID, JSONOfAnotherFormIsRefused) {
    struct Case {
        const char* json;
        DecodingError::Kind kind;
        const char* description;
    };
    const Case cases[] = {
        {R"(["E621E1F8-C36C-495A-93FC-0C247A3E6E5"])", DecodingError::Kind::dataCorrupted,
         "Attempted to decode UUID from invalid UUID string."},
        {R"([""])", DecodingError::Kind::dataCorrupted, "Attempted to decode UUID from invalid UUID string."},
        {R"([42])", DecodingError::Kind::typeMismatch, "Expected to decode String but found a number instead."},
        {R"([null])", DecodingError::Kind::valueNotFound, "Expected String value but found null instead."},
    };
    for (const Case& c : cases) {
        try {
            (void)decodeJSON<std::vector<UUID>>(std::string_view(c.json));
            ADD_FAILURE() << "accepted " << c.json;
        } catch (const DecodingError& error) {
            EXPECT_EQ(error.kind(), c.kind) << c.json;
            EXPECT_EQ(error.debugDescription(), c.description) << c.json;
            EXPECT_EQ(codingPathText(error.codingPath()), "[0]") << c.json;
        }
    }
}

} // namespace
} // namespace ovik
