#include <gtest/gtest.h>

#include <cmath>

#include "OvikModel/effects/EffectStack.h"
#include "OvikPlatform/json/DecodingError.h"

namespace ovik {
namespace {

TEST(EffectStack, StoredFormsReadAndWriteBackByteForByte) {
    const char* const stored[] = {
        R"({"entries":[{"params":[{"name":"name","value":{"text":"Warm"}},{"name":"sha256","value":{"text":"ab"}}],)"
        R"("primitive":"lut"}]})",
        R"({"entries":[{"primitive":"grain"}]})",
        R"({"entries":[{"params":[{"high":1,"low":0,"name":"opacity","value":{"number":0.25}}],"primitive":"shadow"}]})",
        R"({"entries":[{"params":[{"name":"color","value":{"color":{"alpha":1,"blue":0.5,"green":0,"red":1}}}],)"
        R"("primitive":"stroke"}]})",
        R"({"entries":[{"params":[{"name":"mine","value":{"flag":true}}],"primitive":"blur"}]})",
        R"({"entries":[{"primitive":"vignette"},{"primitive":"grain"}]})",
        R"({"entries":[]})",
    };
    for (const char* text : stored)
        EXPECT_EQ(encodeJSON(decodeJSON<EffectStack>(std::string_view(text))).compact(), text);
}

TEST(EffectStack, ReadingRefusesWhatNoStackHolds) {
    const char* const refused[] = {
        R"({"entries":[{"primitive":"sparkle"}]})",
        R"({"items":[{"blur":{}}]})",
        R"({"entries":[{"params":[{"name":"amount","value":{"percent":3}}],"primitive":"grain"}]})",
        R"({"entries":[{"params":[{"value":{"number":3}}],"primitive":"grain"}]})",
    };
    for (const char* text : refused)
        EXPECT_THROW(decodeJSON<EffectStack>(std::string_view(text)), DecodingError) << text;
}

TEST(ProgramParam, AcceptingFitsNumbersToTheirBoundsAndKeepsKinds) {
    const auto number = ProgramValue::makeNumber;
    // The bounds of a parameter, a value offered, and what it accepts.
    const std::tuple<std::optional<double>, std::optional<double>, ProgramValue, std::optional<ProgramValue>> cases[] = {
        {0, 1, number(0.5), number(0.5)}, {0, 1, number(3), number(1)}, {0, 1, number(-3), number(0)},
        {0.5, std::nullopt, number(0.1), number(0.5)}, {std::nullopt, std::nullopt, number(-1e9), number(-1e9)},
        {0, 1, number(std::nan("")), std::nullopt}, {std::nullopt, std::nullopt, number(INFINITY), std::nullopt},
        {0, 1, ProgramValue::makeText("0.5"), std::nullopt}, {0, 1, ProgramValue::makeFlag(true), std::nullopt},
    };
    for (const auto& [low, high, offered, expected] : cases)
        EXPECT_EQ((ProgramParam{"amount", number(0), low, high}.accepting(offered)), expected);
    const ProgramParam place{"place", ProgramValue::makeText("behind"), std::nullopt, std::nullopt};
    EXPECT_EQ(place.accepting(ProgramValue::makeText("over")), ProgramValue::makeText("over"));
    EXPECT_EQ(place.accepting(number(1)), std::nullopt);
}

TEST(EffectPrimitive, GlowOverTheWholePictureTakesItsOwnDefaults) {
    const Effect glow{EffectPrimitive::glow, {}};
    for (const EffectPlace place : {EffectPlace::object, EffectPlace::media})
        EXPECT_EQ(glow.param("radius", place)->value, ProgramValue::makeNumber(12));
    EXPECT_EQ(glow.param("radius", EffectPlace::picture)->value, ProgramValue::makeNumber(24));
    EXPECT_EQ(glow.param("place", EffectPlace::object)->value, ProgramValue::makeText("behind"));
    EXPECT_EQ(glow.param("place", EffectPlace::picture)->value, ProgramValue::makeText("over"));
}

TEST(Effect, StoredParametersWinAndUnknownOnesAreKept) {
    const Effect effect = decodeJSON<Effect>(std::string_view(
        R"({"params":[{"name":"amount","value":{"number":0.1}},{"name":"seed","value":{"number":7}}],"primitive":"grain"})"));
    EXPECT_EQ(effect.param("amount", EffectPlace::object)->value, ProgramValue::makeNumber(0.1));
    EXPECT_EQ(effect.param("size", EffectPlace::object)->low, 0.5);
    EXPECT_EQ(effect.param("seed", EffectPlace::object)->value, ProgramValue::makeNumber(7));
    EXPECT_EQ(effect.param("radius", EffectPlace::object), std::nullopt);

    const Effect stored = effect.storing({"amount", ProgramValue::makeNumber(0.2), std::nullopt, std::nullopt})
                              .storing({"size", ProgramValue::makeNumber(2), 0.5, std::nullopt});
    EXPECT_EQ(encodeJSON(stored).compact(),
              R"({"params":[{"name":"amount","value":{"number":0.2}},{"name":"seed","value":{"number":7}},)"
              R"({"low":0.5,"name":"size","value":{"number":2}}],"primitive":"grain"})");
}

} // namespace
} // namespace ovik
