#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

#include "DecodingFailure.h"
#include "OvikModel/values/ExportFormatID.h"
#include "OvikModel/values/HeldIfSet.h"
#include "OvikModel/values/Identifier.h"
#include "OvikModel/values/NumberText.h"
#include "OvikModel/values/Numbers.h"
#include "OvikModel/values/PixelSize.h"
#include "OvikModel/values/RGBA.h"
#include "OvikModel/values/Times.h"
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

TEST(RGBA, HexTextReadsSixDigitsWithOptionalHashOrEightWithAlpha) {
    const RGBA expected{1, 0, 128.0 / 255, 1};
    for (const char* text : {"FF0080", "#ff0080"}) {
        EXPECT_EQ(RGBA::fromHexText(text), expected) << text;
        EXPECT_EQ(RGBA::fromHexOrAlphaText(text), expected) << text;
    }
    const char* refused[] = {"#FF008", "FF00800", "##FF0080", "#GG0080", "", " FF0080", "+F0080", "#FF0080FF"};
    for (const char* text : refused) EXPECT_FALSE(RGBA::fromHexText(text).has_value()) << '"' << text << '"';
    // The form with alpha reads eight digits too.
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
    EXPECT_EQ(std::hash<HeldIfSet<int>>()(HeldIfSet<int>()), std::hash<std::optional<int>>()(std::nullopt));
}

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();

TEST(Times, SecondsRoundHalvesAwayFromZeroAndSaturate) {
    const std::pair<double, std::int64_t> cases[] = {
        {0.0000005, 1}, {-0.0000005, -1}, {0.0000004, 0}, {9.2e12, 9200000000000000000}, {std::nan(""), 0},
        {-std::numeric_limits<double>::infinity(), 0}, {9.3e12, largest},
        {-1e300, smallest}, // the product itself overflows
        {-9223372036854.775808, smallest}, // exactly the lowest count
    };
    for (const auto& [seconds, microseconds] : cases) {
        EXPECT_EQ(SourceTime::fromSeconds(seconds).microseconds, microseconds) << seconds;
        EXPECT_EQ(MediaDuration::fromSeconds(seconds).microseconds, microseconds) << seconds;
    }
}

TEST(Times, MillisecondsDescriptionsAndArithmeticSaturate) {
    EXPECT_EQ(OutputTime::fromMilliseconds(largest / 10).microseconds, largest);
    EXPECT_EQ(OutputTime::fromMilliseconds(smallest / 10).microseconds, smallest);
    EXPECT_EQ(SourceTime{1500000}.description(), "src:1500000µs");
    EXPECT_EQ(OutputTime{-5}.description(), "out:-5µs");
    EXPECT_EQ(MediaDuration{42}.description(), "42µs");
    EXPECT_EQ(OutputTime{10} - OutputTime{25}, MediaDuration{-15});
    EXPECT_EQ(SourceTime{largest} + MediaDuration{1}, SourceTime{largest});
    EXPECT_EQ(SourceTime{smallest} - MediaDuration{1}, SourceTime{smallest});
    EXPECT_EQ(OutputTime{largest} - OutputTime{-1}, MediaDuration{largest});
    EXPECT_EQ(MediaDuration{0} - MediaDuration{smallest}, MediaDuration{largest});
}

TEST(Times, FrameIndexLeansIntoTheFrameABoundaryOpens) {
    const std::tuple<double, double, double> cases[] = {
        {1.0 / 30.0, 30, 1}, // exactly on a boundary: not one short
        {1.0 / 30.0 - 0.0001, 30, 0}, {10.0 / 3.0, 29.97, 99}, {-0.5, 2, -1},
    };
    for (const auto& [seconds, fps, index] : cases) EXPECT_EQ(frameIndex(seconds, fps), index) << seconds << " at " << fps;
}

TEST(Times, JSONIsTheBareMicrosecondCountWithoutAFraction) {
    EXPECT_EQ(JSONWriter::write(encodeJSON(MediaDuration{largest})), "9223372036854775807");
    EXPECT_EQ(decodeJSON<MediaDuration>(std::string_view("-9223372036854775808")), MediaDuration{smallest});
    expectRefused<std::vector<OutputTime>>({"[1.5]", DecodingError::Kind::dataCorrupted, "[0]"});
}

TEST(NumberText, FormatRoundsPadsAndGroups) {
    const std::tuple<double, int, bool, const char*> cases[] = {
        {1234567.891, 2, true, "1,234,567.89"},
        {-0.004, 2, false, "0.00"}, // no negative zero
        {-0.4, 0, false, "0"},
        {2.5, 0, false, "3"}, // halves away from zero
        {-2.5, 0, false, "-3"}, {0.125, 2, false, "0.13"}, {-123456, 0, true, "-123,456"},
        {999999.9996, 3, true, "1,000,000.000"}, // rounding carries into a new group
        {1, 9, false, "1.000000"},               // decimals clamped to 6
        {1.7, -3, false, "2"}, {1e20, 1, true, "100,000,000,000,000,000,000.0"}, {NAN, 2, true, "0"},
        {-INFINITY, 0, false, "0"},
    };
    for (const auto& [value, decimals, grouped, text] : cases)
        EXPECT_EQ(NumberText::format(value, decimals, grouped), text) << value << " " << decimals;
}

TEST(NumberText, FormatOfAValueTooLargeToScaleStillPrintsItsDigits) {
    const std::string text = NumberText::format(1.7976931348623157e308, 6, true);
    EXPECT_EQ(text.substr(0, 8), "179,769,");
    EXPECT_EQ(text.substr(text.size() - 7), ".000000");
    EXPECT_EQ(text.size(), 309 + 102 + 7); // 309 digits, 102 commas, point and decimals
}

TEST(NumberText, SubstituteKeepsTheLookOfTheFirstNumber) {
    const std::tuple<double, const char*, const char*> cases[] = {
        {42, "Step 1,000.50 of 9", "Step 42.00 of 9"},
        {42, "no digits", "42"},      // the text is dropped
        {3.14159, "Value: 7.5", "Value: 3.1"},
        {1234.5, "-5 items", "1235 items"}, // the sign belongs to the number
        {-1500, "+10", "-1500"}, {5, "x+-3", "x+5"},
        {5, "1234,567", "5,567"},      // four leading digits can't open a group
        {5, "12,3456", "56"},          // a group is exactly three digits
        {1000000, "v 0,000 w", "v 1,000,000 w"},
        {5, "1. then", "5. then"},     // a point needs a digit after it
        {2.5, "a 1.2345678 b", "a 2.500000 b"},
        {7, "1,2 and 3", "7,2 and 3"}, // a comma without three digits is no grouping
        {NAN, "x 5", "x 0"},
    };
    for (const auto& [value, text, result] : cases) EXPECT_EQ(NumberText::substitute(value, text), result) << text;
}


TEST(Numbers, OneValueIsABareNumberAnyOtherCountAnArray) {
    const std::pair<std::vector<double>, const char*> cases[] = {
        {{2.5}, "2.5"}, {{}, "[]"}, {{1, 2.5}, "[1,2.5]"},
    };
    for (const auto& [values, json] : cases) {
        EXPECT_EQ(JSONWriter::write(encodeJSON(Numbers{values})), json);
        EXPECT_EQ(decodeJSON<Numbers>(std::string_view(json)), Numbers{values}) << json;
    }
    EXPECT_EQ(decodeJSON<Numbers>(std::string_view("[0.5]")), (Numbers{{0.5}}));
    expectRefused<Numbers>({R"("2")", DecodingError::Kind::typeMismatch, ""});
}

} // namespace
} // namespace ovik
