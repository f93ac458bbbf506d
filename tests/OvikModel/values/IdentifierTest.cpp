#include <gtest/gtest.h>

#include <type_traits>

#include "OvikModel/values/ExportFormatID.h"
#include "OvikModel/values/Identifier.h"
#include "OvikPlatform/json/JSONWriter.h"
#include "DecodingFailure.h"

namespace ovik {
namespace {

using testing::DecodingFailure;
using testing::expectRefused;

constexpr const char* sample = "E621E1F8-C36C-495A-93FC-0C247A3E6E5F";

// One kind of identifier can't stand where another is expected.
static_assert(!std::is_convertible_v<DraftID, MediaID>);
static_assert(!std::is_convertible_v<ObjectID, SectionID>);
static_assert(!std::is_same_v<MarkerID, ZoomID> && !std::is_same_v<CaptionID, VersionID>);

struct Holder {
    ObjectID object;
    std::optional<MediaID> media;
    ExportFormatID format;
    bool operator==(const Holder&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("object", &Holder::object), optional("media", &Holder::media),
                          required("format", &Holder::format)};
    }
};

TEST(Identifier, JSONIsTheBareCanonicalText) {
    const Holder holder{ObjectID{*UUID::parse(sample)}, MediaID{*UUID::parse("00000000-0000-0000-0000-00000000000A")},
                        ExportFormatID{"gif"}};
    const std::string text = JSONWriter::write(encodeJSON(holder));
    EXPECT_EQ(text, R"({"format":"gif","media":"00000000-0000-0000-0000-00000000000A",)"
                    R"("object":"E621E1F8-C36C-495A-93FC-0C247A3E6E5F"})");
    EXPECT_EQ(decodeJSON<Holder>(std::string_view(text)), holder);
    EXPECT_EQ(holder.object.description(), sample);
    EXPECT_EQ(holder.format.description(), "gif");
}

TEST(Identifier, ReadingAcceptsLowerCaseAndWritesUpper) {
    const auto id = decodeJSON<DraftID>(std::string_view("\"e621e1f8-c36c-495a-93fc-0c247a3e6e5f\""));
    EXPECT_EQ(id.description(), sample);
    EXPECT_EQ(encodeJSON(id).compact(), std::string("\"") + sample + "\"");
}

TEST(Identifier, EqualityOrderAndHashFollowTheUUID) {
    const DraftID a{*UUID::parse(sample)};
    const DraftID b{*UUID::parse("E621E1F8-C36C-495A-93FC-0C247A3E6E60")};
    EXPECT_EQ(a, DraftID{*UUID::parse(sample)});
    EXPECT_LT(a, b);
    EXPECT_EQ(std::hash<DraftID>()(a), std::hash<UUID>()(a.rawValue));
    EXPECT_NE(DraftID::random(), DraftID::random());
}

TEST(Identifier, MalformedIdentifiersAreRefusedWithTheirPath) {
    const DecodingFailure failures[] = {
        {R"({"object":"E621E1F8-C36C-495A-93FC","format":"gif"})", DecodingError::Kind::dataCorrupted, "object",
         "Attempted to decode UUID from invalid UUID string."},
        {R"({"object":"E621E1F8-C36C-495A-93FC-0C247A3E6E5F","media":"x","format":"gif"})",
         DecodingError::Kind::dataCorrupted, "media", "Attempted to decode UUID from invalid UUID string."},
        {R"({"object":7,"format":"gif"})", DecodingError::Kind::typeMismatch, "object",
         "Expected to decode String but found a number instead."},
        {R"({"object":"E621E1F8-C36C-495A-93FC-0C247A3E6E5F","format":["gif"]})", DecodingError::Kind::typeMismatch,
         "format", "Expected to decode String but found an array instead."},
        {R"({"format":"gif"})", DecodingError::Kind::keyNotFound, "object", "No value associated with key \"object\"."},
    };
    for (const DecodingFailure& failure : failures) expectRefused<Holder>(failure);
}

} // namespace
} // namespace ovik
