#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <numbers>
#include <tuple>

#include "OvikModel/draft/CameraOverlay.h"
#include "OvikModel/draft/CursorSettings.h"
#include "OvikModel/draft/StillLayout.h"
#include "OvikModel/draft/ZoomSettings.h"
#include "OvikModel/objects/Annotation.h"
#include "OvikModel/objects/InkTexture.h"
#include "OvikModel/scene/PropertyTable.h"
#include "PropertySamples.h"

namespace ovik {
namespace {

using namespace testing;

// One rectangle named "Box" (1) on a canvas.
Draft boxDraft() {
    return canvasDraft({leaf("Box", 1, AnnotationDefaults::standard().rectangle(CGRect{{10, 10}, {50, 40}}))});
}

// A value the row takes that differs from `current`.
JSONValue otherValue(const PropertySpec& spec, const JSONValue& current) {
    // Rows written in a form of their own.
    static const std::map<std::string, std::string> own = {{"style.background", R"("wallpaper")"},
                                                           {"style.image", R"("images/back.png")"},
                                                           {"style.aspect", R"("16:9")"},
                                                           {"style.crop", "[1, 2, 30, 40]"},
                                                           {"style.motionBlur", R"("strong")"}};
    if (const auto found = own.find(spec.name); found != own.end()) return JSONValue::parse(found->second);
    if (const bool* b = current.boolean()) return JSONValue(!*b);
    if (!spec.words.empty()) return JSONValue(spec.words.back() == *current.string() ? spec.words.front() : spec.words.back());
    if (spec.form == PropertyForm::pointOrNone) return JSONValue::parse("[1, 2]");
    if (spec.form == PropertyForm::pointsOrNone) return JSONValue::parse("[[0, 0], [1, 2]]");
    if (spec.type == PropertyValueType::color) return JSONValue(std::string("#123456"));
    double number = 0;
    if (!current.number(number) && spec.type == PropertyValueType::text) return JSONValue(std::string("Renamed"));
    const double lo = spec.range ? spec.range->first : 0, hi = spec.range ? spec.range->second : 100;
    const double middle = (lo + hi) / 2;
    return JSONValue(number == middle ? lo : middle);
}

TEST(DraftProperties, EveryWritableRowRoundTrips) {
    int written = 0;
    for (const PropertySpec& spec : PropertyTable::specs()) {
        if (!spec.writes()) continue;
        Draft draft = boxDraft();
        const std::string text = spec.objectAccess ? "Box." + spec.name : spec.name;
        const PropertyPath path = PropertyPath::parse(text, draft);
        // Rows of other kinds, and details of records a rectangle doesn't hold, read nothing.
        const auto current = propertyValue(draft, path);
        if (!current) continue;
        const JSONValue other = otherValue(spec, *current);
        EXPECT_FALSE(current->same(other)) << text;
        expectKept(draft, path.description(), other);
        ++written;
    }
    EXPECT_GE(written, 45);
}

// A value the row takes: what it holds now, else its first word or the low end of its range.
JSONValue acceptedValue(const PropertySpec& spec, const std::optional<JSONValue>& current) {
    if (current && !current->isNull()) return *current;
    if (!spec.words.empty()) return JSONValue(spec.words.front());
    if (spec.range) return JSONValue(spec.range->first);
    return JSONValue("none");
}

// What a tool lists as writable on the draft, a write on the draft takes.
TEST(DraftProperties, EveryRowListedAsWritableOnTheDraftCanBeSetOnIt) {
    const Draft draft = boxDraft();
    const std::vector<PropertyKey> keys = PropertyTable::writableKeys(PropertyTargetKind::draft);
    ASSERT_FALSE(keys.empty());
    for (const PropertyKey key : keys) {
        const PropertySpec& spec = key.spec();
        const PropertyPath path = PropertyPath::parse(spec.name, draft);
        Draft edited = draft;
        EXPECT_NO_THROW(setProperty(edited, acceptedValue(spec, propertyValue(draft, path)), path)) << spec.name;
    }
}

// An offset is kept in whole microseconds: a value finer than that is taken but stores nothing
// new, and a write that changes nothing names no undo step.
TEST(DraftProperties, AWriteThatStoresNothingNewNamesNoUndoStep) {
    const Draft draft = boxDraft();
    Draft edited = draft;
    EXPECT_EQ(set(edited, "Box.offset", JSONValue(1e-9)), std::nullopt);
    EXPECT_EQ(edited, draft);
    EXPECT_NE(set(edited, "Box.offset", JSONValue(0.5)), std::nullopt);
}

// The full text of each family of refusals of a value; other suites check only that a write is
// refused, and what about.
TEST(DraftProperties, RefusalsNameTheProblemAndChangeNothing) {
    const L10n::LanguageOverride english("en");
    const std::tuple<const char*, JSONValue, const char*> cases[] = {
        {"style.padding", JSONValue(500.0), "Padding takes 0 to 400, but got 500."},
        {"style.padding", JSONValue("wide"), "Padding needs a number."},
        {"cursor.look", JSONValue("hand"), "Cursor look takes one of arrow, pointer, dot."},
        {"cursor.color", JSONValue("red"), "Write Cursor colour as #RRGGBB, such as #F2542D."},
        {"Box.hidden", JSONValue(1.0), "Hidden needs true or false."}, {"Box.name", JSONValue(1.0), "Name needs text."},
        {"Box.position", JSONValue(1.0),
         "Position can only be animated by actions: use ovik action add --property position."},
        {"Box.effects[0].amount", JSONValue(1.0), "effects[0].amount names no effect: there are no effects here."},
        {"style.background", JSONValue("sky"), "a gradient's name (flame"},
        {"style.background", JSONValue::parse(R"({"from":"#000000","to":"#FFFFFF"})"), "angle"},
        {"style.background", JSONValue("image"), "once style.image names one"},
        {"style.image", JSONValue("../outside.png"), "inside the package"},
        {"style.image", JSONValue("/etc/passwd"), "inside the package"},
        {"style.aspect", JSONValue("16:0"), "width:height"},
        {"style.crop", JSONValue::parse("[0, 0, 0, 10]"), "width and height above 0"},
        {"style.crop", JSONValue("all"), "or none"},
    };
    for (const auto& [path, value, message] : cases) expectRefused(boxDraft(), path, value, message);
}

TEST(DraftProperties, SettingsWrittenInFormsOfTheirOwn) {
    const std::string blend = mediaText + ".blend";
    const std::tuple<const char*, const char*, const char*> cases[] = {
        // Path, value, and what the path reads afterwards.
        {"style.background", R"("#102030")", R"("#102030")"}, {"style.background", R"("flame")", R"("flame")"},
        {"style.background", R"({"angle":30,"from":"#000000","to":"#FFFFFF"})",
         R"({"angle":30,"from":"#000000","to":"#FFFFFF"})"},
        {"style.aspect", R"("4:3")", R"("4:3")"}, {"style.crop", "[0, 0, 320, 240]", "[0, 0, 320, 240]"},
        {"style.motionBlur", R"("on")", R"("natural")"}, {blend.c_str(), R"("multiply")", R"("multiply")"},
    };
    for (const auto& [path, value, readBack] : cases) {
        Draft draft = boxDraft();
        set(draft, path, JSONValue::parse(value));
        EXPECT_EQ(get(draft, path)->compact(), JSONValue::parse(readBack).compact()) << path;
    }
}

TEST(DraftProperties, SettingsThatSpanRecords) {
    Draft draft = boxDraft();
    set(draft, "style.image", JSONValue("images/back.png"));
    EXPECT_EQ(get(draft, "style.background")->compact(), R"("image")");
    set(draft, "style.image", JSONValue("none"));
    EXPECT_TRUE(draft.style.background.is<Background::none>());

    // Blur on over a strong shutter keeps it; off forgets the record.
    set(draft, "style.motionBlur", JSONValue("strong"));
    set(draft, "style.motionBlur", JSONValue("on"));
    EXPECT_EQ(draft.style.motionBlur->shutter, MotionBlur::strong);
    set(draft, "style.motionBlur", JSONValue("off"));
    EXPECT_FALSE(draft.style.motionBlur);

    // Normal blending is stored as no blend at all.
    set(draft, "Box.blend", JSONValue("multiply"));
    set(draft, "Box.blend", JSONValue("normal"));
    EXPECT_FALSE(draft.objects[0].blend);

    // The two recorded tracks read as one level only while they agree.
    draft.audio.system.volume = 0.25;
    EXPECT_FALSE(get(draft, "audio.volume"));
    set(draft, "audio.volume", JSONValue(0.75));
    EXPECT_EQ(draft.audio.system.volume, 0.75);
    EXPECT_EQ(draft.audio.microphone.volume, 0.75);
}

TEST(DraftProperties, SettingsThatNeedAKindOfDraft) {
    Draft twoCaptures = boxDraft();
    Media second = twoCaptures.media[0];
    second.id = MediaID{numbered(0xCC)};
    twoCaptures.media.mutableItems().push_back(second);
    EXPECT_FALSE(get(twoCaptures, "style.crop"));
    EXPECT_THROW(set(twoCaptures, "style.crop", JSONValue::parse("[0, 0, 5, 5]")), PropertyError);

    Draft recording = boxDraft();
    recording.media.mutableItems()[0].source = MediaSource::makeRecording(Recording{});
    EXPECT_FALSE(get(recording, "screenshot-animation.animated"));
    EXPECT_THROW(set(recording, "screenshot-animation.animated", JSONValue(true)), PropertyError);
}

TEST(DraftProperties, EqualValuesInAnotherFormChangeNothing) {
    Draft draft = boxDraft();
    EXPECT_TRUE(set(draft, "cursor.color", JSONValue("#FF0000")));
    EXPECT_FALSE(set(draft, "cursor.color", JSONValue("#ff0000")));
    EXPECT_TRUE(set(draft, "style.padding", JSONValue(std::int64_t(3))));
    EXPECT_FALSE(set(draft, "style.padding", JSONValue(3.0)));
}

TEST(DraftProperties, PathsFindTheirTargets) {
    const Draft draft = boxDraft();
    const std::string box = numbered(1).uuidString();
    const auto byName = PropertyPath::parse("Box.hidden", draft);
    EXPECT_EQ(byName, PropertyPath::parse(box + ".hidden", draft));
    EXPECT_EQ(byName.description(), box + ".hidden");
    EXPECT_EQ(PropertyPath::parse("style.padding", draft).description(), "style.padding");
    using K = PropertyError::Kind;
    for (const auto& [text, kind] : {std::pair{std::string("Crate.hidden"), K::notFound},
                                     {numbered(9).uuidString() + ".hidden", K::notFound},
                                     {std::string("Box.nonsense"), K::invalid}, {std::string("padding"), K::invalid}}) {
        try {
            PropertyPath::parse(text, draft);
            ADD_FAILURE() << text;
        } catch (const PropertyError& error) {
            EXPECT_EQ(error.kind(), kind) << text;
        }
    }
}

TEST(PropertyTable, NamesAnswerAsTheirKindAllows) {
    EXPECT_EQ(PropertyKey::anyName("cursorPoint"), PropertyKey::cursorPoint());
    EXPECT_EQ(PropertyKey::anyName("cursor.point"), PropertyKey::cursorPoint());
    EXPECT_EQ(PropertyKey::action("orbit"), PropertyKey::orbit());
    EXPECT_EQ(PropertyKey::anyName("lens.orbit"), PropertyKey::orbit());
    EXPECT_FALSE(PropertyKey::anyName("padding"));
    EXPECT_EQ(PropertyKey::inGroup(PropertyGroup::style, "padding")->name(), "style.padding");
    EXPECT_FALSE(PropertyKey::action("hidden")); // not animated
}

// A choice over a stored enumeration must offer exactly the enumeration's words, in order.
template <class E>
void expectWordsOf(std::string_view row) {
    std::vector<std::string> names;
    for (const auto& [value, name] : enumCases(static_cast<E*>(nullptr)).cases) names.emplace_back(name);
    EXPECT_EQ(PropertyKey::named(row)->spec().words, names) << row;
}

TEST(PropertyTable, ChoiceWordsAreTheStoredNames) {
    expectWordsOf<CursorLook>("cursor.look");
    expectWordsOf<ClickEffect>("cursor.clickEffect");
    expectWordsOf<ZoomSpeed>("zoom.settings.speed");
    expectWordsOf<CameraCorner>("camera.corner");
    expectWordsOf<CameraShape>("camera.shape");
    expectWordsOf<StillLayoutMode>("layout.mode");
    expectWordsOf<InkTextureKind>("style.newInk");
    expectWordsOf<LinePattern>("pattern");
    expectWordsOf<ArrowBody>("body");
    expectWordsOf<ArrowHeads>("heads");
    expectWordsOf<CornerStyle>("corner");
    expectWordsOf<TextAlignment>("alignment");
    expectWordsOf<RedactMode>("mode");
    expectWordsOf<SpotlightShape>("shape");
    expectWordsOf<InkTextureKind>("ink");
    // The one vocabulary that lists its words in an order of its own.
    EXPECT_EQ(PropertyKey::named("bevelProfile")->spec().words, (std::vector<std::string>{"round", "flat"}));
}

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
    // Path, value written, and what the path reads then.
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

    EXPECT_EQ(encodeJSON(draft).compact(), before);
}

TEST(EffectPaths, RefusalsLeaveTheDraftAsItWas) {
    const L10n::LanguageOverride english("en");
    // Path, value, and part of the refusal.
    const std::tuple<std::string, JSONValue, const char*> cases[] = {
        {"Box.effects[2].radius", JSONValue(1.0), "effects[2].radius names no effect: the effects here are numbered 0 to 1"},
        {(sectionText + ".look.effects[1].amount"), JSONValue(0.1), "numbered 0 to 0"},
        {"Box.effects[0].radius", JSONValue(1.0), "effects[0].radius names no parameter of shadow; it has angle,"},
        {"look.effects[0].strength", JSONValue(1.0), "no parameter of exposure"},
        {"Box.effects[0].opacity", JSONValue(1.5), ""}, {"Box.effects[0].color", JSONValue(0.5), ""},
        {(mediaText + ".effects[0].place"), JSONValue(true), ""},
    };
    for (const auto& [path, value, message] : cases) expectRefused(effectsDraft(), path, value, message);
}

TEST(EffectPaths, AMissingEffectCanNotBeRead) {
    Draft draft = effectsDraft();
    draft.sections.mutableItems()[0].look.reset();
    EXPECT_THROW(get(draft, sectionText + ".look.effects[0].amount"), PropertyError);
    EXPECT_THROW(get(draft, "Box.effects[0].spin"), PropertyError);
}

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
    draft.sections.mutableItems()[0].space = OpaqueJSON(JSONValue::parse(space));
    Section flat = draft.sections[0];
    flat.id = SectionID{numbered(0xB2)};
    flat.space.reset();
    draft.sections.mutableItems().push_back(flat);
    return draft;
}

std::string spaceBytes(const Draft& draft) { return std::string(draft.sections[0].space->text()); }

/// The text of a path to a field of the space section.
std::string at(const std::string& field) { return spaceSection + ".space." + field; }

TEST(SpaceRows, EachPartWritesItsKeyInPlace) {
    const L10n::LanguageOverride english("en");
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"toneMapping", R"("agx")", "Change Tone mapping"},
        {"environment.intensity", "50", "Change Environment strength"}, {"fog.near", "25", "Change Fog start"},
        {"camera.type", R"("orthographic")", "Change Camera type"},
        {"fov", "60", "Change Field of view"}, {"objects.0.children.0.material.roughness", "0.25", "Change Roughness"},
        {"objects.1.material.sheenColor", R"("#112233")", "Change Sheen colour"},
        {"lights.0.intensity", "40", "Change Light strength"}, {"lights.0.shadow.bias", "0.002", "Change Shadow bias"},
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
        {"toneMappingExposure", JSONValue(1)}, {"fog.density", JSONValue(0.00025)}, {"camera.zoom", JSONValue(1)},
        {"environment.name", JSONValue("studio")}, {"environment.media", JSONValue("none")},
        {"objects.0.children.0.material.metalness", JSONValue(0)},
        {"objects.0.children.0.material.roughness", JSONValue(0.5)},
        {"objects.0.quaternion", JSONValue::parse("[0, 0, 0, 1]")}, {"lights.0.angle", JSONValue(std::numbers::pi / 3)},
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
        {at("near"), "the renderer decides it"}, {at("material.roughness"), "give a node such as objects.0"},
        {at("objects.0.fog.near"), "no node is needed"}, {at("objects.7.position"), "The space has no node objects.7."},
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
        {"toneMapping", R"("filmic")", ""}, {"lights.0.color", R"("red")", "must be #rrggbb or [r, g, b]"},
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
    for (const auto& [text, named] :
         {std::pair{"camera.fov", "fov"}, {"renderer.toneMapping", "toneMapping"},
          {"lights.2.light.color", "lights.2.color"}, {"objects.0.object.visible", "objects.0.visible"}})
        EXPECT_EQ(PropertyPath::parse(at(text), draft).description(), at(named)) << text;
}

} // namespace
} // namespace ovik
