#include <gtest/gtest.h>

#include "OvikModel/animation/Action.h"
#include "OvikModel/values/DecodingFailure.h"

namespace ovik {
namespace {

using testing::DecodingFailure;
using testing::expectRefused;
using Kind = DecodingError::Kind;

Action decoded(std::string_view json) { return decodeJSON<Action>(json); }

TEST(ActionJSON, CanonicalTextsRoundTrip) {
    const std::string_view texts[] = {
        R"({"curve":"linear","mode":{"to":{"to":{"number":0}}},"property":"opacity","range":"whole"})",
        R"({"curve":"smooth","mode":{"oscillate":{"amplitude":{"number":0.2},"decay":0,"frequency":2}},)"
        R"("property":"effects[2].amount","range":{"opening":{"length":500000}}})",
        R"({"curve":{"steps":4},"mode":{"noise":{"amplitude":{"number":3},"frequency":1,)"
        R"("seed":18446744073709551615}},"property":"params.radius","range":{"closing":{"advance":1,"length":2}}})",
        // Every optional field at once.
        R"({"about":[640,360.5],"axis":"GRAD","by":"script","curve":{"spring":{"damping":10,"stiffness":200}},)"
        R"("into":"00000000-0000-0000-0000-000000000007","keyframe":true,"mode":{"to":{"from":{"vector":{"dx":1,"dy":2}},)"
        R"("to":{"vector":{"dx":3,"dy":4}}}},"pace":"length","pins":{"start":{"anchor":"cut"}},"property":"lens.orbit",)"
        R"("range":{"between":{"end":9,"start":5}},"scope":"whole","shape":{"path":{"path":{"anchors":[{"point":[0,0]},)"
        R"({"point":[1,1]}]},"width":12}},"stagger":60000,"term":"x"})",
        R"({"curve":{"bezier":{"x1":0.25,"x2":0.25,"y1":0.1,"y2":1}},"mode":{"alongPath":{"anchors":[{"point":[0,0]}]}},)"
        R"("property":"position","range":{"opening":{}},"shape":"circle"})",
    };
    for (const std::string_view text : texts) EXPECT_EQ(encodeJSON(decoded(text)).compact(), text);
}

TEST(ActionJSON, FoldedPropertyTextsRestoreTheirFields) {
    const Action effect = decoded(R"({"curve":"linear","mode":{"to":{"to":{"number":1}}},"property":"effects[2].amount","range":"whole"})");
    EXPECT_EQ(effect.property, PropertyKey::effect());
    EXPECT_EQ(effect.effect, (EffectAddress{2, "amount"}));
    EXPECT_FALSE(effect.param);

    const Action param = decoded(R"({"curve":"linear","mode":{"to":{"to":{"number":1}}},"property":"params.radius","range":"whole"})");
    EXPECT_EQ(param.property, PropertyKey::param());
    EXPECT_EQ(param.param, "radius");
    EXPECT_FALSE(param.effect);
}

TEST(ActionJSON, ScriptNameReadsAsTheRowAndWritesItsDottedName) {
    const Action action = decoded(R"({"curve":"linear","mode":{"to":{"to":{"number":1}}},"property":"orbit","range":"whole"})");
    EXPECT_EQ(action.property, PropertyKey::orbit());
    EXPECT_EQ(encodeJSON(action).at("property")->compact(), R"("lens.orbit")");
}

TEST(ActionJSON, BadTextsAreRefused) {
    const std::string valid = R"({"curve":"linear","mode":{"to":{"to":{"number":1}}},"property":"opacity","range":"whole"})";
    const auto with = [&](const char* key, const char* value) {
        JSONValue json = JSONValue::parse(valid);
        json.object()->insert_or_assign(key, JSONValue::parse(value));
        return json.compact();
    };
    const std::string texts[] = {with("property", R"("warp")"), with("property", R"("params.")"),
                                 with("property", R"("effects[-1].x")"), with("range", R"("later")"),
                                 with("range", R"({"sometime":{}})"), with("range", R"("opening")")};
    const DecodingFailure failures[] = {
        {texts[0].c_str(), Kind::dataCorrupted, "property", "warp is not a property"},
        {texts[1].c_str(), Kind::dataCorrupted, "property", "params. is not a property"},
        {texts[2].c_str(), Kind::dataCorrupted, "property", "effects[-1].x is not a property"},
        {texts[3].c_str(), Kind::dataCorrupted, "range", "Unknown later"},
        {texts[4].c_str(), Kind::dataCorrupted, "range", "Unknown sometime"},
        {texts[5].c_str(), Kind::dataCorrupted, "range"}, {R"(["opacity"])", Kind::typeMismatch, ""},
    };
    for (const DecodingFailure& failure : failures) expectRefused<Action>(failure);
}

TEST(EffectAddress, ParsesOnlyTheIndexedForm) {
    EXPECT_EQ(EffectAddress::parse("effects[12].grain.amount"), (EffectAddress{12, "grain.amount"}));
    EXPECT_EQ((EffectAddress{3, "tint"}).text(), "effects[3].tint");
    for (const char* text : {"effects[].x", "effects[1]x", "effects[1].", "effects[+1].x", "effect[1].x", "effects[99999999999].x"})
        EXPECT_FALSE(EffectAddress::parse(text)) << text;
}

} // namespace
} // namespace ovik
