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

TEST(ActionJSON, DefaultsAreLeftOut) {
    Action action = Action::holding(PropertyKey::opacity(), ActionValue::makeNumber(1));
    const JSONValue plain = encodeJSON(action);
    EXPECT_FALSE(plain.at("scope"));
    EXPECT_FALSE(plain.at("keyframe"));
    action.scope = ActionScope::whole;
    action.isKeyframe = true;
    const JSONValue marked = encodeJSON(action);
    EXPECT_EQ(marked.at("scope")->compact(), R"("whole")");
    EXPECT_EQ(marked.at("keyframe")->compact(), "true");
}

TEST(ActionJSON, BadTextsAreRefused) {
    const DecodingFailure failures[] = {
        {R"({"curve":"linear","mode":{"to":{"to":{"number":1}}},"range":"whole"})", Kind::keyNotFound, "property",
         "No value associated with key \"property\"."},
        {R"({"curve":"linear","property":"opacity","range":"whole"})", Kind::keyNotFound, "mode",
         "No value associated with key \"mode\"."},
        {R"({"mode":{"to":{"to":{"number":1}}},"property":"opacity","range":"whole"})", Kind::keyNotFound, "curve",
         "No value associated with key \"curve\"."},
        {R"({"curve":"linear","mode":{"to":{"to":{"number":1}}},"property":"opacity"})", Kind::keyNotFound, "range",
         "No value associated with key \"range\"."},
        {R"({"curve":"linear","mode":{"to":{"to":{"number":1}}},"property":"warp","range":"whole"})", Kind::dataCorrupted,
         "property", "warp is not a property"},
        {R"({"curve":"linear","mode":{"to":{"to":{"number":1}}},"property":"params.","range":"whole"})",
         Kind::dataCorrupted, "property", "params. is not a property"},
        {R"({"curve":"linear","mode":{"to":{"to":{"number":1}}},"property":"effects[-1].x","range":"whole"})",
         Kind::dataCorrupted, "property", "effects[-1].x is not a property"},
        {R"({"curve":"linear","mode":{"to":{"to":{"number":1}}},"property":"opacity","range":"later"})",
         Kind::dataCorrupted, "range", "Unknown later"},
        {R"({"curve":"linear","mode":{"to":{"to":{"number":1}}},"property":"opacity","range":{"sometime":{}}})",
         Kind::dataCorrupted, "range", "Unknown sometime"},
        {R"({"curve":"linear","mode":{"to":{"to":{"number":1}}},"property":"opacity","range":"opening"})",
         Kind::dataCorrupted, "range", "Case opening needs a value"},
        {R"(["opacity"])", Kind::typeMismatch, "", "Expected to decode Dictionary<String, Any> but found an array instead."},
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
