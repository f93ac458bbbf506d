#include <gtest/gtest.h>

#include <functional>
#include <numbers>

#include "PropertySamples.h"

namespace ovik {
namespace {

using namespace testing;

const std::string& spaceSection = sectionText;
const std::string flatSection = numbered(0xB2).uuidString();

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

// One canvas shown by two sections: the first a space, the second flat.
Draft spaceDraft(const char* space = storedSpace) {
    Draft draft = canvasDraft();
    draft.sections.mutableItems()[0].space = JSONValue::parse(space);
    Section flat = draft.sections[0];
    flat.id = SectionID{numbered(0xB2)};
    flat.space.reset();
    draft.sections.mutableItems().push_back(flat);
    return draft;
}

std::string spaceBytes(const Draft& draft) { return draft.sections[0].space->compact(); }

/// The text of a path to a field of the space section.
std::string at(const std::string& field) { return spaceSection + ".space." + field; }

TEST(SpaceRows, EachPartWritesItsKeyInPlace) {
    const L10n::LanguageOverride english("en");
    const std::tuple<const char*, const char*, const char*> cases[] = {
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
    for (const auto& [field, text, undo] : cases) {
        Draft draft = spaceDraft();
        const std::string before = spaceBytes(draft);
        const JSONValue old = *get(draft, at(field)), value = JSONValue::parse(text);
        EXPECT_EQ(set(draft, at(field), value), undo) << field;
        EXPECT_TRUE(get(draft, at(field))->same(value)) << field << " " << get(draft, at(field))->compact();
        // Only that key changed: putting the old value back gives the same bytes.
        EXPECT_TRUE(set(draft, at(field), old)) << field;
        EXPECT_EQ(spaceBytes(draft), before) << field;
    }
}

TEST(SpaceRows, AbsentFieldsReadTheirFallbackOrNothing) {
    const Draft draft = spaceDraft();
    const std::pair<const char*, std::optional<JSONValue>> cases[] = {
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
        // None: the node's type hasn't the field.
        {"objects.0.children.0.material.ior", std::nullopt},       // a standard material
        {"objects.0.children.0.intensity", std::nullopt},          // a mesh, not a light
        {"objects.0.material.opacity", std::nullopt},              // a group has no material
        {"objects.0.children.0.geometry.attributes", std::nullopt}, // a box, not a buffer
    };
    for (const auto& [field, expected] : cases) {
        const auto value = get(draft, at(field));
        ASSERT_EQ(value.has_value(), expected.has_value()) << field;
        if (value) {
            EXPECT_TRUE(value->same(*expected)) << field << " " << value->compact();
        }
    }
    EXPECT_EQ(get(draft, at("objects.1.geometry.attributes"))->at("position.itemSize")->compact(), "3");
}

TEST(SpaceRows, AnAbsentFieldIsAddedAndNoneClearsIt) {
    Draft draft = spaceDraft(R"({"fov": 40})");
    set(draft, at("fog.color"), JSONValue("#102030"));
    EXPECT_EQ(spaceBytes(draft), R"({"fog":{"color":"#102030"},"fov":40})");
    set(draft, at("fog.color"), JSONValue("none"));
    EXPECT_EQ(spaceBytes(draft), R"({"fog":{},"fov":40})");

    draft = spaceDraft();
    const std::string before = spaceBytes(draft);
    const std::string map = at("objects.0.children.0.material.map");
    const JSONValue texture = JSONValue::parse(R"({"media": ")" + mediaText + R"("})");
    set(draft, map, texture);
    EXPECT_EQ(get(draft, map), texture);
    set(draft, map, JSONValue("none"));
    EXPECT_EQ(spaceBytes(draft), before);
}

TEST(SpaceRows, EqualValuesChangeNothing) {
    const std::pair<const char*, JSONValue> cases[] = {
        {"fog.near", JSONValue(10.0)},                   // stored as 10
        {"toneMappingExposure", JSONValue(1)},           // the fallback, not stored
        {"environment.media", JSONValue("none")},        // absent, no fallback
        {"objects.1.material.sheenColor", JSONValue("#000000")},
        {"objects.0.position", JSONValue::parse("[10.0, 20, 30]")},
    };
    for (const auto& [field, value] : cases) {
        Draft draft = spaceDraft();
        EXPECT_FALSE(set(draft, at(field), value)) << field;
        EXPECT_EQ(draft, spaceDraft()) << field;
    }
    Draft draft = spaceDraft();
    set(draft, at("lights.0.color"), JSONValue("#AABBCC"));
    EXPECT_FALSE(set(draft, at("lights.0.color"), JSONValue("#aabbcc")));
}

TEST(SpaceRows, PathsThatNameNoPlaceAreRefusedToReadAndWrite) {
    const L10n::LanguageOverride english("en");
    const std::pair<std::string, const char*> cases[] = {
        {at("near"), "the renderer decides it"},
        {at("material.roughness"), "give a node such as objects.0"},
        {at("objects.0.fog.near"), "no node is needed"},
        {at("objects.7.position"), "The space has no node objects.7."},
        {at("lights.0.children.0.color"), "The space has no node lights.0.children.0."},
        {flatSection + ".space.fog.near", "not a space section"},
    };
    for (const auto& [path, message] : cases) {
        expectRefused(spaceDraft(), path, JSONValue(1), message);
        EXPECT_THROW(get(spaceDraft(), path), PropertyError) << path;
    }
}

TEST(SpaceRows, ValuesThatDoNotFitAreRefused) {
    const L10n::LanguageOverride english("en");
    const std::tuple<const char*, std::string, const char*> cases[] = {
        // Fields the node's type hasn't.
        {"objects.0.children.0.intensity", "2", "Mesh has no intensity."},
        {"objects.0.children.0.material.ior", "1.2", "MeshStandardMaterial has no ior."},
        {"objects.0.material.opacity", "0.5", "material needs a type."},
        // Values out of range, of the wrong form, or not among the words.
        {"fov", "180", ""},
        {"objects.1.material.iridescenceThicknessRange", "[100, 20000]", "takes 0 to 10000, but got 20000"},
        {"toneMapping", R"("filmic")", ""},
        {"lights.0.color", R"("red")", "must be #rrggbb or [r, g, b]"},
        {"lights.0.color", "[1, 0]", "must be #rrggbb or [r, g, b]"},
        {"objects.0.position", "[1, 2]", "must be [x, y, z]"},
        {"objects.0.quaternion", "[0, 0, 0]", "is a list of numbers"},
        {"objects.0.children.0.material.map", R"({"media": 5})", R"(is {"media": id} or {"object": id})"},
        {"objects.0.children.0.material.map", R"({"picture": ")" + mediaText + R"("})", R"({"media": id})"},
        {"environment.media", R"("panorama")", "the id of an image"},
        {"objects.1.geometry.attributes", "{}", "can't be read or written here yet"},
    };
    for (const auto& [field, value, message] : cases)
        expectRefused(spaceDraft(), at(field), JSONValue::parse(value), message);
}

TEST(SpaceRows, PathsThatNameNothing) {
    const L10n::LanguageOverride english("en");
    Draft draft = spaceDraft();
    // The kind and text of the refusal of a write of 1 at a path, or of the path's text itself.
    const auto problem = [&](const std::function<PropertyPath()>& path) -> std::pair<PropertyError::Kind, std::string> {
        try {
            setProperty(draft, JSONValue(1), path());
        } catch (const PropertyError& error) {
            return {error.kind(), error.what()};
        }
        return {PropertyError::Kind::internalError, "no refusal"};
    };
    const auto text = [&](std::string path) { return [&draft, path] { return PropertyPath::parse(path, draft); }; };
    const auto target = [](decltype(PropertyPath::Target::cases) on, PropertyKey key) {
        return [=] { return PropertyPath{PropertyPath::Target{{}, on}, key, std::nullopt, std::nullopt}; };
    };
    using T = PropertyPath::Target;
    const SectionID section{numbered(0xBB)}, missing{numbered(0xB9)};
    const auto invalid = PropertyError::Kind::invalid;
    EXPECT_EQ(problem(text(at("nonsense"))), std::pair(invalid, std::string("nonsense is not a property of the space.")));
    EXPECT_EQ(problem(text(at("objects.0"))).second, "objects.0 is not a property of the space.");
    EXPECT_EQ(problem(target(T::space{section}, PropertyKey::position())).second,
              "position is not a property of the space.");
    EXPECT_EQ(problem(target(T::space{missing}, *PropertyKey::named("space.fog.near"))),
              std::pair(PropertyError::Kind::notFound, "There is no section called “" + missing.description() + "”."));
    EXPECT_EQ(problem(target(T::spaceNode{section, "objects.zero"}, *PropertyKey::named("space.object.visible"))).second,
              "The space has no node objects.zero.");
}

TEST(SpaceRows, EveryRowsPathReadsBackAsItsText) {
    const Draft draft = spaceDraft();
    using T = PropertyPath::Target;
    const SectionID section{numbered(0xBB)};
    for (const PropertyKey key : PropertyTable::spaceKeys()) {
        const T target = key.spec().space->onNode() ? T{{}, T::spaceNode{section, "objects.0.children.0"}}
                                                    : T{{}, T::space{section}};
        const PropertyPath path{target, key, std::nullopt, std::nullopt};
        EXPECT_EQ(PropertyPath::parse(path.description(), draft), path) << path.description();
    }
    // A field may be named under the part it belongs to.
    for (const auto& [text, named] : {std::pair{"camera.fov", "fov"}, {"renderer.toneMapping", "toneMapping"},
                                      {"lights.2.light.color", "lights.2.color"}, {"objects.0.object.visible", "objects.0.visible"}})
        EXPECT_EQ(PropertyPath::parse(at(text), draft).description(), at(named)) << text;
}

} // namespace
} // namespace ovik
