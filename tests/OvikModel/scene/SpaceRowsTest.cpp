#include <gtest/gtest.h>

#include "PropertyRefusal.h"

#include <algorithm>
#include <numbers>

#include "OvikL10n/L10n.h"
#include "OvikModel/scene/DraftProperties.h"
#include "OvikModel/scene/PropertyError.h"
#include "OvikModel/scene/PropertyTable.h"

namespace ovik {
namespace {

const std::string spaceSection = "0B0B0B0B-0000-4000-8000-0000000000B1";
const std::string flatSection = "0B0B0B0B-0000-4000-8000-0000000000B2";
const std::string mediaText = "0B0B0B0B-0000-4000-8000-0000000000AA";

// A spot light with a shadow; a group holding a standard mesh; a physical mesh over a buffer of
// its own; and a key no row knows, which must come back as it was.
const char* const storedSpace = R"({
  "camera": {"type": "perspective"},
  "environment": {"intensity": 2},
  "fog": {"far": 500, "near": 10, "type": "linear"},
  "fov": 40,
  "lights": [{"intensity": 3, "shadow": {"bias": -0.001}, "type": "SpotLight"}],
  "objects": [
    {"children": [{"geometry": {"type": "BoxGeometry"},
                   "material": {"roughness": 0.5, "type": "MeshStandardMaterial"}, "type": "Mesh"}],
     "position": [10, 20, 30], "type": "Group"},
    {"geometry": {"attributes": {"position": {"array": [0, 0, 0, 1, 0, 0, 0, 1, 0], "itemSize": 3}},
                  "morphTargetsRelative": false, "type": "BufferGeometry"},
     "material": {"sheenColor": "#000000", "type": "MeshPhysicalMaterial"}, "type": "Mesh"}
  ],
  "toneMapping": "aces",
  "unknownKeyKept": {"a": [1, 2.5]}
})";

Section stillSection(const std::string& id) {
    Section section;
    section.id = SectionID{*UUID::parse(id)};
    section.media = MediaID{*UUID::parse(mediaText)};
    section.length = Section::Length::makeStill(MediaDuration::fromSeconds(5));
    return section;
}

// One canvas shown by two sections: the first a space, the second flat.
Draft spaceDraft(const char* space = storedSpace) {
    Draft draft;
    Media media;
    media.id = MediaID{*UUID::parse(mediaText)};
    media.source = MediaSource::makeCanvas(Canvas{PixelSize{640, 480}});
    draft.media = CowList<Media>({media});
    Section first = stillSection(spaceSection);
    first.space = OpaqueJSON(JSONValue::parse(space));
    draft.sections = CowList<Section>({first, stillSection(flatSection)});
    return draft;
}

std::string spaceBytes(const Draft& draft) { return std::string(draft.sections[0].space->text()); }

PropertyPath spacePath(const std::string& field, const Draft& draft) {
    return PropertyPath::parse(spaceSection + ".space." + field, draft);
}

JSONValue read(const Draft& draft, const std::string& field) { return *propertyValue(draft, spacePath(field, draft)); }

TEST(SpaceRows, EachPartWritesItsKeyInPlace) {
    const L10n::LanguageOverride english("en");
    struct Case {
        const char* field;
        const char* value;
        const char* undo;
    };
    const Case cases[] = {
        {"toneMapping", R"("agx")", "Change Tone mapping"},
        {"environment.intensity", "50", "Change Environment strength"},
        {"fog.near", "25", "Change Fog start"},
        {"camera.type", R"("orthographic")", "Change Camera type"},
        {"fov", "60", "Change Field of view"},
        {"objects.0.children.0.material.roughness", "0.25", "Change Roughness"},
        {"objects.1.material.sheenColor", R"("#112233")", "Change Sheen colour"},
        {"lights.0.intensity", "40", "Change Light strength"},
        {"lights.0.shadow.bias", "0.002", "Change Shadow bias"},
        {"objects.0.position", "[1, 2, 3]", "Change Node position"},
        {"objects.1.geometry.morphTargetsRelative", "true", "Change Relative morphs"},
    };
    for (const Case& c : cases) {
        Draft draft = spaceDraft();
        const std::string before = spaceBytes(draft);
        const JSONValue old = read(draft, c.field), value = JSONValue::parse(c.value);
        EXPECT_EQ(setProperty(draft, value, spacePath(c.field, draft)), c.undo) << c.field;
        EXPECT_TRUE(read(draft, c.field).same(value)) << c.field << " " << read(draft, c.field).compact();
        // Only that key changed: putting the old value back gives the same bytes.
        EXPECT_TRUE(setProperty(draft, old, spacePath(c.field, draft))) << c.field;
        EXPECT_EQ(spaceBytes(draft), before) << c.field;
    }
}

TEST(SpaceRows, AbsentFieldsReadTheirFallbackOrNothing) {
    const Draft draft = spaceDraft();
    struct Case {
        const char* field;
        std::optional<JSONValue> value; // none: the node's type hasn't the field
    };
    const Case cases[] = {
        {"toneMappingExposure", JSONValue(1)},
        {"fog.density", JSONValue(0.00025)},
        {"camera.zoom", JSONValue(1)},
        {"environment.name", JSONValue("studio")},
        {"environment.media", JSONValue("none")},
        {"objects.0.children.0.material.metalness", JSONValue(0)},
        {"objects.0.children.0.material.roughness", JSONValue(0.5)},
        {"objects.0.quaternion", JSONValue::parse("[0, 0, 0, 1]")},
        {"lights.0.angle", JSONValue(std::numbers::pi / 3)},
        {"lights.0.shadow.radius", JSONValue(1)},
        {"objects.0.children.0.material.ior", std::nullopt},       // a standard material
        {"objects.0.children.0.intensity", std::nullopt},          // a mesh, not a light
        {"objects.0.material.opacity", std::nullopt},              // a group has no material
        {"objects.0.children.0.geometry.attributes", std::nullopt}, // a box, not a buffer
    };
    for (const Case& c : cases) {
        const auto value = propertyValue(draft, spacePath(c.field, draft));
        ASSERT_EQ(value.has_value(), c.value.has_value()) << c.field;
        if (value) {
            EXPECT_TRUE(value->same(*c.value)) << c.field << " " << value->compact();
        }
    }
    EXPECT_EQ(read(draft, "objects.1.geometry.attributes").at("position.itemSize")->compact(), "3");
}

TEST(SpaceRows, AnAbsentFieldIsAddedAndNoneClearsIt) {
    Draft draft = spaceDraft(R"({"fov": 40})");
    setProperty(draft, JSONValue("#102030"), spacePath("fog.color", draft));
    EXPECT_EQ(spaceBytes(draft), R"({"fog":{"color":"#102030"},"fov":40})");
    setProperty(draft, JSONValue("none"), spacePath("fog.color", draft));
    EXPECT_EQ(spaceBytes(draft), R"({"fog":{},"fov":40})");

    draft = spaceDraft();
    const std::string before = spaceBytes(draft);
    const std::string map = "objects.0.children.0.material.map";
    const JSONValue texture = JSONValue::parse(R"({"media": ")" + mediaText + R"("})");
    setProperty(draft, texture, spacePath(map, draft));
    EXPECT_EQ(read(draft, map), texture);
    setProperty(draft, JSONValue("none"), spacePath(map, draft));
    EXPECT_EQ(spaceBytes(draft), before);
}

TEST(SpaceRows, EqualValuesChangeNothing) {
    struct Case {
        const char* field;
        JSONValue value;
    };
    const Case cases[] = {
        {"fog.near", JSONValue(10.0)},                   // stored as 10
        {"toneMappingExposure", JSONValue(1)},           // the fallback, not stored
        {"environment.media", JSONValue("none")},        // absent, no fallback
        {"objects.1.material.sheenColor", JSONValue("#000000")},
        {"objects.0.position", JSONValue::parse("[10.0, 20, 30]")},
    };
    for (const Case& c : cases) {
        Draft draft = spaceDraft();
        const Draft before = draft;
        EXPECT_FALSE(setProperty(draft, c.value, spacePath(c.field, draft))) << c.field;
        EXPECT_EQ(draft, before) << c.field;
    }
    Draft draft = spaceDraft();
    setProperty(draft, JSONValue("#AABBCC"), spacePath("lights.0.color", draft));
    EXPECT_FALSE(setProperty(draft, JSONValue("#aabbcc"), spacePath("lights.0.color", draft)));
}

TEST(SpaceRows, RefusalsNameTheProblemAndChangeNothing) {
    const L10n::LanguageOverride english("en");
    struct Case {
        std::string path;
        std::string value;
        const char* message;
    };
    const std::string s = spaceSection + ".space.";
    const Case cases[] = {
        // Paths that name no place in the space.
        {s + "near", "1", "the renderer decides it"},
        {s + "material.roughness", "0.5", "give a node such as objects.0"},
        {s + "objects.0.fog.near", "5", "no node is needed"},
        {s + "objects.7.position", "[1, 2, 3]", "The space has no node objects.7."},
        {s + "lights.0.children.0.color", R"("#FFFFFF")", "The space has no node lights.0.children.0."},
        {flatSection + ".space.fog.near", "5", "not a space section"},
        // Fields the node's type hasn't.
        {s + "objects.0.children.0.intensity", "2", "Mesh has no intensity."},
        {s + "objects.0.children.0.material.ior", "1.2", "MeshStandardMaterial has no ior."},
        {s + "objects.0.material.opacity", "0.5", "material needs a type."},
        {s + "objects.0.children.0.geometry.morphTargetsRelative", "true", "BoxGeometry has no morphTargetsRelative."},
        // Values out of range, of the wrong form, or not among the words.
        {s + "fog.density", "11", "takes 0 to 10, but got 11"},
        {s + "fov", "0.5", "takes 1 to 179, but got 0.5"},
        {s + "fov", "180", "takes 1 to 179, but got 180"},
        {s + "objects.0.children.0.material.roughness", "1.5", "takes 0 to 1, but got 1.5"},
        {s + "lights.0.shadow.radius", "9", "takes 0 to 8, but got 9"},
        {s + "objects.1.material.iridescenceThicknessRange", "[100, 20000]", "takes 0 to 10000, but got 20000"},
        {s + "fog.near", R"("far")", "needs a number"},
        {s + "objects.0.visible", "1", "needs true or false"},
        {s + "toneMapping", R"("filmic")", "takes one of off, aces"},
        {s + "lights.0.color", R"("red")", "must be #rrggbb or [r, g, b]"},
        {s + "lights.0.color", "[1, 0]", "must be #rrggbb or [r, g, b]"},
        {s + "objects.0.position", "[1, 2]", "must be [x, y, z]"},
        {s + "objects.0.quaternion", "[0, 0, 0]", "is a list of numbers"},
        {s + "objects.0.children.0.material.map", R"({"media": 5})", R"(is {"media": id} or {"object": id})"},
        {s + "objects.0.children.0.material.map", R"({"picture": ")" + mediaText + R"("})", R"({"media": id})"},
        {s + "environment.media", R"("panorama")", "the id of an image"},
        {s + "objects.1.geometry.attributes", "{}", "can't be read or written here yet"},
    };
    for (const Case& c : cases) testing::expectRefused(spaceDraft(), c.path, JSONValue::parse(c.value), c.message);
}

TEST(SpaceRows, ReadsRefuseWhatWritesRefuse) {
    const L10n::LanguageOverride english("en");
    const Draft draft = spaceDraft();
    EXPECT_THROW(propertyValue(draft, spacePath("near", draft)), PropertyError);
    EXPECT_THROW(propertyValue(draft, spacePath("objects.3.position", draft)), PropertyError);
    try {
        propertyValue(draft, PropertyPath::parse(flatSection + ".space.fov", draft));
        ADD_FAILURE() << "a flat section read as a space";
    } catch (const PropertyError& error) {
        EXPECT_NE(std::string(error.what()).find("not a space section"), std::string::npos) << error.what();
    }
}

TEST(SpaceRows, PathsThatNameNothing) {
    const L10n::LanguageOverride english("en");
    Draft draft = spaceDraft();
    const auto problem = [&](const PropertyPath& path) -> std::pair<PropertyError::Kind, std::string> {
        try {
            setProperty(draft, JSONValue(1), path);
        } catch (const PropertyError& error) {
            return {error.kind(), error.what()};
        }
        return {PropertyError::Kind::internalError, "no refusal"};
    };
    const auto parsed = [&](const std::string& text) -> std::pair<PropertyError::Kind, std::string> {
        try {
            return problem(PropertyPath::parse(text, draft));
        } catch (const PropertyError& error) {
            return {error.kind(), error.what()};
        }
    };
    using T = PropertyPath::Target;
    const SectionID section{*UUID::parse(spaceSection)};
    const SectionID missing{*UUID::parse("0B0B0B0B-0000-4000-8000-0000000000B9")};
    const PropertyKey near = *PropertyKey::named("space.fog.near");
    EXPECT_EQ(parsed(spaceSection + ".space.nonsense"),
              std::pair(PropertyError::Kind::invalid, std::string("nonsense is not a property of the space.")));
    EXPECT_EQ(parsed(spaceSection + ".space.objects.0").second, "objects.0 is not a property of the space.");
    EXPECT_EQ(problem({T{{}, T::space{section}}, PropertyKey::position(), std::nullopt, std::nullopt}).second,
              "position is not a property of the space.");
    EXPECT_EQ(problem({T{{}, T::space{missing}}, near, std::nullopt, std::nullopt}),
              std::pair(PropertyError::Kind::notFound, "There is no section called “" + missing.description() + "”."));
    EXPECT_EQ(problem({T{{}, T::spaceNode{section, "objects.zero"}}, *PropertyKey::named("space.object.visible"),
                       std::nullopt, std::nullopt})
                  .second,
              "The space has no node objects.zero.");
}

TEST(SpaceRows, EveryRowsPathReadsBackAsItsText) {
    const Draft draft = spaceDraft();
    using T = PropertyPath::Target;
    const SectionID section{*UUID::parse(spaceSection)};
    for (const PropertyKey key : PropertyTable::spaceKeys()) {
        const T target = key.spec().space->onNode() ? T{{}, T::spaceNode{section, "objects.0.children.0"}}
                                                    : T{{}, T::space{section}};
        const PropertyPath path{target, key, std::nullopt, std::nullopt};
        EXPECT_EQ(PropertyPath::parse(path.description(), draft), path) << path.description();
    }
    struct Case {
        const char* text;
        const char* description; // after "<section id>.space."
    };
    const Case cases[] = {
        {"fog.near", "fog.near"},
        {"fov", "fov"},
        {"camera.fov", "fov"},
        {"renderer.toneMapping", "toneMapping"},
        {"camera.near", "near"},
        {"lights.2.shadow.bias", "lights.2.shadow.bias"},
        {"lights.2.light.color", "lights.2.color"},
        {"objects.0.children.1.material.color", "objects.0.children.1.material.color"},
        {"objects.0.object.visible", "objects.0.visible"},
        {"objects.0.material.visible", "objects.0.material.visible"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(spacePath(c.text, draft).description(), spaceSection + ".space." + c.description) << c.text;
}

TEST(SpaceRows, TheTableCarriesEachFieldsPlace) {
    std::size_t rendererOwned = 0;
    for (const PropertyKey key : PropertyTable::keys(PropertyGroup::space)) {
        const PropertySpec& spec = key.spec();
        ASSERT_TRUE(spec.space) << spec.name;
        const SpaceField& field = *spec.space;
        EXPECT_EQ(spec.targets, std::vector{field.onNode() ? PropertyTargetKind::spaceObject : PropertyTargetKind::draft})
            << spec.name;
        EXPECT_EQ(spec.words, field.choices.value_or(std::vector<std::string>{})) << spec.name;
        if (field.moves) {
            const auto moves = PropertyKey::named(*field.moves);
            ASSERT_TRUE(moves) << spec.name;
            EXPECT_EQ(moves->slot().domain, PropertyDomain::material) << spec.name;
        }
        if (field.key.empty()) ++rendererOwned;
        // A fallback must be a value the row itself would take.
        if (field.fallback && spec.writes() && spec.range && field.fallback->array() == nullptr) {
            double number = 0;
            ASSERT_TRUE(field.fallback->number(number)) << spec.name;
            EXPECT_TRUE(number >= spec.range->first && number <= spec.range->second) << spec.name;
        }
        if (field.fallback && field.choices) {
            EXPECT_EQ(std::ranges::count(*field.choices, *field.fallback->string()), 1) << spec.name;
        }
    }
    EXPECT_EQ(rendererOwned, 6u); // the camera's clipping planes and edges
    EXPECT_EQ(PropertyTable::spaceKeys(), PropertyTable::keys(PropertyGroup::space));
}

} // namespace
} // namespace ovik
