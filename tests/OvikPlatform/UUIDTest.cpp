#include <gtest/gtest.h>

#include "OvikPlatform/UUID.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {
namespace {

constexpr const char* sample = "E621E1F8-C36C-495A-93FC-0C247A3E6E5F";

TEST(UUID, TextIsCanonicalUpperCaseWhicheverCaseWasRead) {
    for (const char* text : {sample, "e621e1f8-c36c-495a-93fc-0c247a3e6e5f", "e621E1F8-c36C-495a-93Fc-0C247A3e6e5F"}) {
        const std::optional<UUID> uuid = UUID::parse(text);
        ASSERT_TRUE(uuid) << text;
        EXPECT_EQ(uuid->uuidString(), sample);
        EXPECT_EQ(uuid->bytes()[0], 0xE6);
        EXPECT_EQ(uuid->bytes()[15], 0x5F);
    }
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
        "+621E1F8-C36C-495A-93FC-0C247A3E6E5F",   // a sign is no digit
    };
    for (const char* text : refused) EXPECT_FALSE(UUID::parse(text).has_value()) << '"' << text << '"';
}

TEST(UUID, RandomIsVersionFourOfTheStandardVariant) {
    const UUID uuid = UUID::random();
    EXPECT_NE(uuid, UUID::random());
    EXPECT_EQ(uuid.bytes()[6] >> 4, 4);
    EXPECT_EQ(uuid.bytes()[8] >> 6, 2);
}

TEST(UUID, OrderFollowsTheBytes) {
    EXPECT_LT(*UUID::parse("00000000-0000-0000-0000-0000000000FF"), *UUID::parse("01000000-0000-0000-0000-000000000000"));
}

TEST(UUID, JSONIsTheBareUpperCaseText) {
    const UUID uuid = *UUID::parse(sample);
    EXPECT_EQ(JSONWriter::write(encodeJSON(uuid)), std::string("\"") + sample + "\"");
    EXPECT_EQ(decodeJSON<UUID>(std::string_view("\"e621e1f8-c36c-495a-93fc-0c247a3e6e5f\"")), uuid);
    const std::pair<const char*, DecodingError::Kind> refused[] = {
        {R"(["E621E1F8-C36C-495A-93FC-0C247A3E6E5"])", DecodingError::Kind::dataCorrupted},
        {R"([42])", DecodingError::Kind::typeMismatch},
    };
    for (const auto& [json, kind] : refused) {
        try {
            (void)decodeJSON<std::vector<UUID>>(std::string_view(json));
            ADD_FAILURE() << "accepted " << json;
        } catch (const DecodingError& error) {
            EXPECT_EQ(error.kind(), kind) << json;
            EXPECT_EQ(codingPathText(error.codingPath()), "[0]") << json;
            if (kind == DecodingError::Kind::dataCorrupted) {
                EXPECT_EQ(error.debugDescription(), "Attempted to decode UUID from invalid UUID string.");
            }
        }
    }
}

} // namespace
} // namespace ovik
