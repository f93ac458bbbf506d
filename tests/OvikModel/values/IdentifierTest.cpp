#include <gtest/gtest.h>

#include "OvikModel/values/ExportFormatID.h"
#include "OvikModel/values/Identifier.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {
namespace {

constexpr const char* sample = "E621E1F8-C36C-495A-93FC-0C247A3E6E5F";

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
    // Lower case is read, upper case written.
    const auto id = decodeJSON<DraftID>(std::string_view("\"e621e1f8-c36c-495a-93fc-0c247a3e6e5f\""));
    EXPECT_EQ(encodeJSON(id).compact(), std::string("\"") + sample + "\"");
}

} // namespace
} // namespace ovik
