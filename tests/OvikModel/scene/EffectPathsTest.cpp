#include <gtest/gtest.h>

#include "PropertyRefusal.h"

#include "OvikL10n/L10n.h"
#include "OvikModel/objects/AnnotationDefaults.h"
#include "OvikModel/scene/DraftProperties.h"
#include "OvikModel/scene/PropertyError.h"

namespace ovik {
namespace {

const char* const mediaText = "0E0E0E0E-0000-4000-8000-0000000000AA";
const char* const sectionText = "0E0E0E0E-0000-4000-8000-0000000000BB";

EffectStack stack(const char* stored) { return decodeJSON<EffectStack>(std::string_view(stored)); }

// "Box" with a shadow and a blur, a canvas media with a glow, a section with a grain look and
// a style look with exposure.
Draft effectsDraft() {
    Draft draft;
    ObjectNode box;
    box.id = ObjectID{*UUID::parse("0E0E0E0E-0000-4000-8000-000000000001")};
    box.name = "Box";
    box.content = ObjectContent::makeAnnotation(AnnotationDefaults::standard().rectangle(CGRect{{10, 10}, {50, 40}}));
    box.effects = stack(R"({"entries":[{"primitive":"shadow"},{"params":[{"name":"radius","value":{"number":2}}],)"
                        R"("primitive":"blur"}]})");
    Media media;
    media.id = MediaID{*UUID::parse(mediaText)};
    media.source = MediaSource::makeCanvas(Canvas{PixelSize{640, 480}});
    media.effects = stack(R"({"entries":[{"primitive":"glow"}]})");
    Section section;
    section.id = SectionID{*UUID::parse(sectionText)};
    section.media = media.id;
    section.length = Section::Length::makeStill(MediaDuration::fromSeconds(5));
    section.look = stack(R"({"entries":[{"primitive":"grain"}]})");
    draft.objects = CowList<ObjectNode>({box});
    draft.media = CowList<Media>({media});
    draft.sections = CowList<Section>({section});
    draft.style.look = stack(R"({"entries":[{"primitive":"exposure"}]})");
    return draft;
}

std::string on(const char* id, const char* rest) { return std::string(id) + rest; }

std::string compact(const std::optional<JSONValue>& value) { return value ? value->compact() : "none"; }

TEST(EffectPaths, UnsetParametersReadAsTheDefaultsOfTheirPlace) {
    const Draft draft = effectsDraft();
    const std::pair<std::string, const char*> cases[] = {
        {"Box.effects[0].opacity", "0.5"},
        {"Box.effects[0].color", R"("#000000")"},
        {"Box.effects[1].radius", "2"},
        {on(mediaText, ".effects[0].radius"), "12"},
        {on(mediaText, ".effects[0].place"), R"("behind")"},
        {on(sectionText, ".look.effects[0].size"), "1"},
        {"look.effects[0].amount", "0.3"},
    };
    for (const auto& [path, expected] : cases)
        EXPECT_EQ(compact(propertyValue(draft, PropertyPath::parse(path, draft))), expected) << path;
}

TEST(EffectPaths, SetThenGetOnEveryKindOfTarget) {
    const L10n::LanguageOverride english("en");
    struct Case {
        std::string path;
        JSONValue value;
        const char* read;
    };
    const Case cases[] = {
        {"Box.effects[0].opacity", JSONValue(0.75), "0.75"},
        {"Box.effects[0].color", JSONValue(std::string("#F2542D")), R"("#F2542D")"},
        {"Box.effects[1].radius", JSONValue(40.0), "40"},
        {on(mediaText, ".effects[0].place"), JSONValue(std::string("over")), R"("over")"},
        {on(mediaText, ".effects[0].strength"), JSONValue(0.0), "0"},
        {on(sectionText, ".look.effects[0].size"), JSONValue(0.2), "0.5"},
        {on(sectionText, ".look.effects[0].amount"), JSONValue(0.1), "0.1"},
        {"look.effects[0].amount", JSONValue(-2.5), "-2.5"},
    };
    for (const Case& c : cases) {
        Draft draft = effectsDraft();
        EXPECT_EQ(setProperty(draft, c.value, PropertyPath::parse(c.path, draft)), "Change Effect parameter") << c.path;
        EXPECT_EQ(compact(propertyValue(draft, PropertyPath::parse(c.path, draft))), c.read) << c.path;
    }
}

TEST(EffectPaths, AWrittenParameterIsStoredWithTheBoundsOfItsPrimitive) {
    Draft draft = effectsDraft();
    setProperty(draft, JSONValue(0.75), PropertyPath::parse("Box.effects[0].opacity", draft));
    setProperty(draft, JSONValue(5.0), PropertyPath::parse("Box.effects[1].radius", draft));
    setProperty(draft, JSONValue(0.1), PropertyPath::parse(on(sectionText, ".look.effects[0].amount"), draft));
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
    EXPECT_EQ(setProperty(draft, JSONValue(0.5), PropertyPath::parse("Box.effects[0].opacity", draft)), std::nullopt);
    EXPECT_EQ(setProperty(draft, JSONValue(2.0), PropertyPath::parse("Box.effects[1].radius", draft)), std::nullopt);
    EXPECT_EQ(encodeJSON(draft).compact(), before);
}

TEST(EffectPaths, RefusalsLeaveTheDraftAsItWas) {
    const L10n::LanguageOverride english("en");
    struct Case {
        std::string path;
        JSONValue value;
        const char* message;
    };
    const Case cases[] = {
        {"Box.effects[2].radius", JSONValue(1.0), "effects[2].radius names no effect: the effects here are numbered 0 to 1"},
        {on(sectionText, ".look.effects[1].amount"), JSONValue(0.1), "numbered 0 to 0"},
        {"Box.effects[0].radius", JSONValue(1.0), "effects[0].radius names no parameter of shadow; it has angle,"},
        {"look.effects[0].strength", JSONValue(1.0), "no parameter of exposure"},
        {"Box.effects[0].opacity", JSONValue(1.5), "effects[0].opacity takes 0 to 1, but got 1.5"},
        {"look.effects[0].amount", JSONValue(-4.0), "takes -3 to 3"},
        {"Box.effects[0].opacity", JSONValue(std::string("half")), "needs a number"},
        {"Box.effects[0].color", JSONValue(0.5), "#RRGGBB"},
        {on(mediaText, ".effects[0].place"), JSONValue(true), "needs text"},
    };
    for (const Case& c : cases) testing::expectRefused(effectsDraft(), c.path, c.value, c.message);
}

TEST(EffectPaths, AMissingEffectCanNotBeRead) {
    const L10n::LanguageOverride english("en");
    Draft draft = effectsDraft();
    draft.sections.mutableItems()[0].look.reset();
    EXPECT_THROW(propertyValue(draft, PropertyPath::parse(on(sectionText, ".look.effects[0].amount"), draft)),
                 PropertyError);
    EXPECT_THROW(propertyValue(draft, PropertyPath::parse("Box.effects[0].spin", draft)), PropertyError);
}

} // namespace
} // namespace ovik
