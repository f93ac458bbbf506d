#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "DecodingFailure.h"
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

} // namespace
} // namespace ovik
