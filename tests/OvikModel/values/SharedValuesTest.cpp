#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "DecodingFailure.h"
#include "OvikModel/values/ExportFormatID.h"
#include "OvikModel/values/HeldIfSet.h"
#include "OvikModel/values/Identifier.h"
#include "OvikModel/values/PixelSize.h"
#include "OvikModel/values/RGBA.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {
namespace {

using testing::expectRefused;

TEST(RGBA, HexTextClampsAndRoundsEachChannel) {
    const std::tuple<RGBA, const char*, const char*> cases[] = {
        {{1.2, -0.5, 0.5, 1}, "#FF0080", "#FF0080FF"},
        {{0.5 / 255, 1.5 / 255, 254.49 / 255, 2.0}, "#0102FE", "#0102FEFF"}, // halves away from zero
        {{std::nan(""), INFINITY, -INFINITY, 0.5}, "#00FF00", "#00FF0080"},
    };
    for (const auto& [colour, hex, hexAlpha] : cases) {
        EXPECT_EQ(colour.hexText(), hex);
        EXPECT_EQ(colour.hexAlphaText(), hexAlpha);
    }
}

TEST(RGBA, HexTextReadsSixDigitsWithOptionalHash) {
    const RGBA expected{1, 0, 128.0 / 255, 1};
    for (const char* text : {"FF0080", "#ff0080"}) {
        EXPECT_EQ(RGBA::fromHexText(text), expected) << text;
        EXPECT_EQ(RGBA::fromHexOrAlphaText(text), expected) << text;
    }
    const char* refused[] = {"#FF008", "FF00800", "##FF0080", "#GG0080", "", " FF0080", "+F0080", "#FF0080FF"};
    for (const char* text : refused) EXPECT_FALSE(RGBA::fromHexText(text).has_value()) << '"' << text << '"';
}

TEST(RGBA, HexOrAlphaTextReadsEightDigitsToo) {
    EXPECT_EQ(RGBA::fromHexOrAlphaText("#FF000080"), (RGBA{1, 0, 0, 128.0 / 255}));
    EXPECT_EQ(RGBA::fromHex(0xFF8000, 0.5), (RGBA{1, 128.0 / 255, 0, 0.5}));
    for (const char* text : {"#FF00008", "FF0000800", "#FF0000G0"})
        EXPECT_FALSE(RGBA::fromHexOrAlphaText(text).has_value()) << text;
}

TEST(RGBA, JSONKeepsFullPrecisionAndUnclampedButFiniteChannels) {
    const RGBA colour{1.2, 0.1 + 0.2, -0.25, 1};
    const std::string text = JSONWriter::write(encodeJSON(colour));
    EXPECT_EQ(text, R"({"alpha":1,"blue":-0.25,"green":0.30000000000000004,"red":1.2})");
    EXPECT_EQ(decodeJSON<RGBA>(std::string_view(text)), colour);
    EXPECT_EQ(colour.exactJSON().compact(), "[1.2,0.30000000000000004,-0.25,1]");
    EXPECT_THROW((void)JSONWriter::write(encodeJSON(RGBA{NAN, 0, 0, 1})), EncodingError);
    expectRefused<RGBA>({R"({"red":1,"green":0,"blue":0})", DecodingError::Kind::keyNotFound, "alpha"});
}

TEST(PixelSize, Description) { EXPECT_EQ((PixelSize{1920, 1080}).description(), "1920 × 1080"); }

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

struct Large {
    std::string name;
    HeldIfSet<PixelSize> size;
    HeldIfSet<std::vector<double>> weights;
    bool operator==(const Large&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("name", &Large::name), optional("size", &Large::size),
                          optional("weights", &Large::weights)};
    }
};

TEST(HeldIfSet, AsAnOptionalFieldItsKeyIsLeftOutWhenEmpty) {
    const std::pair<Large, const char*> cases[] = {
        {Large{"a", std::nullopt, std::nullopt}, R"({"name":"a"})"},
        {Large{"b", PixelSize{4, 3}, std::nullopt}, R"({"name":"b","size":{"height":3,"width":4}})"},
        {Large{"c", std::nullopt, std::vector<double>{}}, R"({"name":"c","weights":[]})"},
    };
    for (const auto& [record, json] : cases) {
        EXPECT_EQ(JSONWriter::write(encodeJSON(record)), json);
        EXPECT_EQ(decodeJSON<Large>(std::string_view(json)), record) << json;
    }
    EXPECT_FALSE(decodeJSON<Large>(std::string_view(R"({"name":"n","size":null})")).size.has_value());
    EXPECT_THROW((void)decodeJSON<Large>(std::string_view(R"({"name":"n","size":{"width":1}})")), DecodingError);
}

TEST(HeldIfSet, EqualityComparesTheValueAndSettingLeavesCopiesAlone) {
    HeldIfSet<PixelSize> held = PixelSize{1, 2};
    const HeldIfSet<PixelSize> copy = held;
    EXPECT_EQ(copy, HeldIfSet<PixelSize>(PixelSize{1, 2})); // a box of its own
    EXPECT_NE(copy, HeldIfSet<PixelSize>());
    held = PixelSize{2, 2};
    EXPECT_EQ(*copy, (PixelSize{1, 2}));
    EXPECT_EQ(held->width, 2);
    EXPECT_EQ(std::hash<HeldIfSet<int>>()(HeldIfSet<int>()), std::hash<std::optional<int>>()(std::nullopt));
}

} // namespace
} // namespace ovik
