#include <gtest/gtest.h>

#include <tuple>

#include "PropertySamples.h"

namespace ovik {
namespace {

using namespace testing;

EffectStack stack(const char* stored) { return decodeJSON<EffectStack>(std::string_view(stored)); }

// "Box" with a shadow and a blur, a canvas media with a glow, a section with a grain look and
// a style look with exposure.
Draft effectsDraft() {
    ObjectNode box = leaf("Box", 1, AnnotationDefaults::standard().rectangle(CGRect{{10, 10}, {50, 40}}));
    box.effects = stack(R"({"entries":[{"primitive":"shadow"},{"params":[{"name":"radius","value":{"number":2}}],)"
                        R"("primitive":"blur"}]})");
    Draft draft = canvasDraft({box});
    draft.media.mutableItems()[0].effects = stack(R"({"entries":[{"primitive":"glow"}]})");
    draft.sections.mutableItems()[0].look = stack(R"({"entries":[{"primitive":"grain"}]})");
    draft.style.look = stack(R"({"entries":[{"primitive":"exposure"}]})");
    return draft;
}

std::string compact(const std::optional<JSONValue>& value) { return value ? value->compact() : "none"; }

TEST(EffectPaths, UnsetParametersReadAsTheDefaultsOfTheirPlace) {
    const Draft draft = effectsDraft();
    const std::pair<std::string, const char*> cases[] = {
        {"Box.effects[0].opacity", "0.5"}, {"Box.effects[0].color", R"("#000000")"}, {"Box.effects[1].radius", "2"},
        {(mediaText + ".effects[0].radius"), "12"}, {(mediaText + ".effects[0].place"), R"("behind")"},
        {(sectionText + ".look.effects[0].size"), "1"}, {"look.effects[0].amount", "0.3"},
    };
    for (const auto& [path, expected] : cases)
        EXPECT_EQ(compact(get(draft, path)), expected) << path;
}

TEST(EffectPaths, SetThenGetOnEveryKindOfTarget) {
    const L10n::LanguageOverride english("en");
    // path, value, read
    const std::tuple<std::string, JSONValue, const char*> cases[] = {
        {"Box.effects[0].opacity", JSONValue(0.75), "0.75"},
        {"Box.effects[0].color", JSONValue(std::string("#F2542D")), R"("#F2542D")"},
        {"Box.effects[1].radius", JSONValue(40.0), "40"},
        {(mediaText + ".effects[0].place"), JSONValue(std::string("over")), R"("over")"},
        {(mediaText + ".effects[0].strength"), JSONValue(0.0), "0"},
        {(sectionText + ".look.effects[0].size"), JSONValue(0.2), "0.5"},
        {(sectionText + ".look.effects[0].amount"), JSONValue(0.1), "0.1"},
        {"look.effects[0].amount", JSONValue(-2.5), "-2.5"},
    };
    for (const auto& [path, value, read] : cases) {
        Draft draft = effectsDraft();
        EXPECT_EQ(set(draft, path, value), "Change Effect parameter") << path;
        EXPECT_EQ(compact(get(draft, path)), read) << path;
    }
}

TEST(EffectPaths, AWrittenParameterIsStoredWithTheBoundsOfItsPrimitive) {
    Draft draft = effectsDraft();
    set(draft, "Box.effects[0].opacity", JSONValue(0.75));
    set(draft, "Box.effects[1].radius", JSONValue(5.0));
    set(draft, sectionText + ".look.effects[0].amount", JSONValue(0.1));
    EXPECT_EQ(encodeJSON(draft.objects[0].effects).compact(),
              R"({"entries":[{"params":[{"high":1,"low":0,"name":"opacity","value":{"number":0.75}}],)"
              R"("primitive":"shadow"},{"params":[{"name":"radius","value":{"number":5}}],"primitive":"blur"}]})");
    EXPECT_EQ(encodeJSON(*draft.sections[0].look).compact(),
              R"({"entries":[{"params":[{"high":0.2,"low":0,"name":"amount","value":{"number":0.1}}],)"
              R"("primitive":"grain"}]})");
}

TEST(EffectPaths, TheValueAlreadyThereChangesNothing) {
    Draft draft = effectsDraft();
    const std::string before = encodeJSON(draft).compact();
    EXPECT_EQ(set(draft, "Box.effects[0].opacity", JSONValue(0.5)), std::nullopt);
    EXPECT_EQ(set(draft, "Box.effects[1].radius", JSONValue(2.0)), std::nullopt);
    EXPECT_EQ(encodeJSON(draft).compact(), before);
}

TEST(EffectPaths, RefusalsLeaveTheDraftAsItWas) {
    const L10n::LanguageOverride english("en");
    // path, value, message
    const std::tuple<std::string, JSONValue, const char*> cases[] = {
        {"Box.effects[2].radius", JSONValue(1.0), "effects[2].radius names no effect: the effects here are numbered 0 to 1"},
        {(sectionText + ".look.effects[1].amount"), JSONValue(0.1), "numbered 0 to 0"},
        {"Box.effects[0].radius", JSONValue(1.0), "effects[0].radius names no parameter of shadow; it has angle,"},
        {"look.effects[0].strength", JSONValue(1.0), "no parameter of exposure"},
        {"Box.effects[0].opacity", JSONValue(1.5), ""},
        {"Box.effects[0].color", JSONValue(0.5), ""},
        {(mediaText + ".effects[0].place"), JSONValue(true), ""},
    };
    for (const auto& [path, value, message] : cases) expectRefused(effectsDraft(), path, value, message);
}

TEST(EffectPaths, AMissingEffectCanNotBeRead) {
    const L10n::LanguageOverride english("en");
    Draft draft = effectsDraft();
    draft.sections.mutableItems()[0].look.reset();
    EXPECT_THROW(get(draft, sectionText + ".look.effects[0].amount"), PropertyError);
    EXPECT_THROW(get(draft, "Box.effects[0].spin"), PropertyError);
}

} // namespace
} // namespace ovik
