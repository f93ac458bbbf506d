// The rows of a 3D space, in the vocabulary of its scene document: renderer, environment, fog
// and camera stand on the whole space; material, light, shadow, object, model and geometry
// fields on one of its nodes. And the derived rows, computed from the picture, never stored.
#include <numbers>

#include "OvikModel/scene/PropertyRow.h"
#include "OvikModel/scene/PropertyRows.h"

namespace ovik {
namespace {

using Part = SpaceField::Part;
using Type = PropertyValueType;
using Form = PropertyForm;
using Range = std::optional<std::pair<double, double>>;
using Classes = std::vector<std::string>;

// How a space value is written, as the row's type and form; the form decides what a write
// checks. A list holds numbers (as many as the fallback does, when it holds some), a file is a
// texture ({"media": id} or {"object": id}), a text of type image is a picture's id, and a field
// without a form is a record that waits for the typed space model.
struct Shape {
    Type type;
    std::optional<Form> form;
};
const Shape number{Type::number, Form::number};
const Shape angle{Type::angle, Form::number};
const Shape flag{Type::flag, Form::toggle};
const Shape word{Type::choice, Form::choice};
const Shape color{Type::color, Form::color};
const Shape text{Type::text, Form::text};
const Shape vector3{Type::vector3, Form::list};
const Shape vector2{Type::vector2, Form::list};
const Shape numbers{Type::number, Form::list};
const Shape texture{Type::image, Form::file};
const Shape imageID{Type::image, Form::text};
const Shape record{Type::text, std::nullopt};

// One field of a part; its key is its script name.
struct Field {
    std::string_view sdk;
    Shape shape;
    std::optional<JSONValue> fallback = std::nullopt;
    Range range = std::nullopt;
    Classes classes = {};
    std::vector<std::string> words = {};
    std::optional<std::string> moves = std::nullopt;
};

// Where the fields of a part stand: their names' prefix, the sub-object that holds them, and
// whether anything stores them at all (the camera's clipping and edges are the renderer's).
struct Place {
    Part part;
    std::string_view prefix;
    std::optional<std::string> section = std::nullopt;
    bool stored = true;
};

Range within(double lo, double hi) { return std::pair{lo, hi}; }
JSONValue triple(double x, double y, double z) { return JSONValue(JSONValue::Array{x, y, z}); }

void add(std::vector<PropertySpec>& rows, const Place& place, std::initializer_list<Field> fields) {
    for (const Field& field : fields) {
        SpaceField space{.part = place.part,
                         .key = place.stored ? std::string(field.sdk) : std::string(),
                         .section = place.section,
                         .classes = field.classes,
                         .fallback = field.fallback,
                         .choices = field.words.empty() ? std::nullopt : std::optional(field.words),
                         .moves = field.moves};
        const PropertyTargetKind target = space.onNode() ? PropertyTargetKind::spaceObject : PropertyTargetKind::draft;
        PropertyRow row(PropertyGroup::space, place.prefix, field.sdk);
        row.typed(field.shape.type, field.shape.form).on({target}).space(std::move(space));
        if (field.range) row.ranged(field.range->first, field.range->second);
        rows.push_back(row);
    }
}

void wholeSpaceRows(std::vector<PropertySpec>& rows) {
    add(rows, {Part::renderer, "space.renderer."},
        {{.sdk = "toneMapping", .shape = word, .fallback = "off", .words = {"off", "aces", "agx"}},
         {"toneMappingExposure", number, 1, within(0, 16)},
         {"ambientOcclusion", number, 0},
         {"ambientOcclusionRadius", number, 0.05}});
    add(rows, {Part::environment, "space.environment.", "environment"},
        {{"name", text, "studio"}, {"intensity", number, 1, within(0, 100)}, {"rotation", angle, 0}, {"media", imageID}});
    add(rows, {Part::fog, "space.fog.", "fog"},
        {{.sdk = "type", .shape = word, .words = {"linear", "exp2"}},
         {"color", color},
         {"near", number, 1},
         {"far", number, 1000},
         {"density", number, 0.00025, within(0, 10)}});
    // The camera's kind and zoom sit in the space's "camera" object, its field of view at the top.
    const Place camera{Part::camera, "space.camera.", "camera"};
    add(rows, camera, {{.sdk = "type", .shape = word, .fallback = "perspective", .words = {"perspective", "orthographic"}}});
    add(rows, {Part::camera, "space.camera."}, {{"fov", angle, 35, within(1, 179)}});
    add(rows, camera, {{"zoom", number, 1}});
    add(rows, {Part::camera, "space.camera.", std::nullopt, false},
        {{"near", number}, {"far", number}, {"left", number}, {"right", number}, {"top", number}, {"bottom", number}});
}

void materialRows(std::vector<PropertySpec>& rows) {
    const std::string standard = "MeshStandardMaterial", physical = "MeshPhysicalMaterial", basic = "MeshBasicMaterial",
                      line = "LineBasicMaterial", points = "PointsMaterial", shadow = "ShadowMaterial",
                      shader = "ShaderMaterial";
    const Classes coloured{standard, physical, basic, line, points, shadow}, lit{standard, physical},
        faces{standard, physical, basic}, mapped{standard, physical, basic, points};
    const Range unit = within(0, 1), strength = within(0, 64);
    const Place material{Part::material, "space.material.", "material"};
    add(rows, material,
        {{"color", color, "#ffffff", {}, coloured},
         {"opacity", number, 1, unit},
         {"transparent", flag, false},
         {.sdk = "blending", .shape = word, .fallback = "normal", .words = {"normal", "additive", "none"}},
         {.sdk = "side", .shape = word, .fallback = "front", .words = {"front", "back", "double"}},
         {"depthTest", flag, true},
         {"depthWrite", flag, true},
         {"polygonOffset", flag, false},
         {"polygonOffsetFactor", number, 0},
         {"polygonOffsetUnits", number, 0},
         {"alphaTest", number, 0, unit},
         {"visible", flag, true},
         {"vertexColors", flag, false},
         {"emissive", color, "#000000", {}, lit},
         {"emissiveIntensity", number, 1, strength, lit, {}, "material.emissiveIntensity"},
         {"roughness", number, 1, unit, lit, {}, "material.roughness"},
         {"metalness", number, 0, unit, lit, {}, "material.metalness"},
         {"envMapIntensity", number, 1, strength, lit},
         {"wireframe", flag, false, {}, faces},
         {"wireframeLinewidth", number, 1, strength, faces},
         {"linewidth", number, 1, {}, {line}},
         {"size", number, 1, within(0, 10000), {points}},
         {"sizeAttenuation", flag, true, {}, {points}},
         {"map", texture, {}, {}, mapped},
         {"normalMap", texture, {}, {}, lit},
         {"roughnessMap", texture, {}, {}, lit},
         {"emissiveMap", texture, {}, {}, lit},
         {"alphaMap", texture, {}, {}, mapped},
         {"recipe", record, {}, {}, lit},
         {"source", text, {}, {}, {shader}},
         {"params", record, JSONValue(JSONValue::Object{}), {}, {shader}}});
    // The physical material's own fields lie in the same JSON object.
    const Classes physicalOnly{physical};
    add(rows, material,
        {{"clearcoat", number, 0, unit, physicalOnly},
         {"clearcoatRoughness", number, 0, unit, physicalOnly},
         {"sheen", number, 0, unit, physicalOnly},
         {"sheenColor", color, "#000000", {}, physicalOnly},
         {"sheenRoughness", number, 1, unit, physicalOnly},
         {"transmission", number, 0, unit, physicalOnly},
         {"ior", number, 1.5, within(1, 2.333), physicalOnly},
         {"thickness", number, 0, within(0, 1e7), physicalOnly},
         {"attenuationColor", color, "#ffffff", {}, physicalOnly},
         {"attenuationDistance", number, 0, {}, physicalOnly},
         {"iridescence", number, 0, unit, physicalOnly},
         {"iridescenceIOR", number, 1.3, {}, physicalOnly},
         {"iridescenceThicknessRange", vector2, JSONValue(JSONValue::Array{100, 400}), within(0, 10000), physicalOnly},
         {"specularIntensity", number, 1, unit, physicalOnly},
         {"specularColor", color, "#ffffff", {}, physicalOnly}});
}

void nodeRows(std::vector<PropertySpec>& rows) {
    const std::string ambient = "AmbientLight", directional = "DirectionalLight", point = "PointLight",
                      spot = "SpotLight", hemisphere = "HemisphereLight";
    const Classes lights{ambient, directional, point, spot, hemisphere}, reaching{point, spot}, aimed{directional, spot},
        shadowed{directional, point, spot};
    add(rows, {Part::light, "space.light."},
        {{"color", color, "#ffffff", {}, lights},
         {"intensity", number, 1, within(0, 10000), lights},
         {"groundColor", color, "#000000", {}, {hemisphere}},
         {"distance", number, 0, within(0, 1e7), reaching},
         {"decay", number, 2, within(0, 8), reaching},
         {"angle", angle, std::numbers::pi / 3, within(0, std::numbers::pi / 2), {spot}},
         {"penumbra", number, 0, within(0, 1), {spot}},
         {"target", vector3, triple(0, 0, 0), {}, aimed}});
    add(rows, {Part::shadow, "space.shadow.", "shadow"},
        {{"bias", number, 0, {}, shadowed}, {"normalBias", number, 0, {}, shadowed}, {"radius", number, 1, within(0, 8), shadowed}});
    const Classes drawn{"Mesh", "InstancedMesh", "Line", "LineSegments", "Points"};
    add(rows, {Part::object, "space.object."},
        {{"position", vector3, triple(0, 0, 0)},
         {"quaternion", numbers, JSONValue(JSONValue::Array{0, 0, 0, 1})},
         {"scale", vector3, triple(1, 1, 1)},
         {"visible", flag, true},
         {"renderOrder", number, 0},
         {"castShadow", flag, false},
         {"receiveShadow", flag, false},
         {"morphTargetInfluences", numbers, JSONValue(JSONValue::Array{}), {}, drawn}});
    add(rows, {Part::object, "space."}, {{"model", record, {}, {}, {"Group"}}});
    const Classes buffer{"BufferGeometry"};
    add(rows, {Part::geometry, "space.geometry.", "geometry"},
        {{"attributes", record, {}, {}, buffer},
         {"morphAttributes", record, {}, {}, buffer},
         {"morphTargetsRelative", flag, false, {}, buffer}});
}

} // namespace

std::vector<PropertySpec> spacePropertyRows() {
    std::vector<PropertySpec> rows;
    wholeSpaceRows(rows);
    materialRows(rows);
    nodeRows(rows);
    return rows;
}

std::vector<PropertySpec> derivedPropertyRows() {
    using enum PropertyValueType;
    std::vector<PropertySpec> rows;
    for (const char* sdk : {"center", "bounds", "tip"})
        rows.push_back(PropertyRow(PropertyGroup::object, "", sdk)
                           .typed(std::string_view(sdk) == "bounds" ? rect : vector2)
                           .on({PropertyTargetKind::object})
                           .derived());
    rows.push_back(PropertyRow(PropertyGroup::cursor, "", "cursorPoint")
                       .named("cursor.point")
                       .typed(vector2)
                       .on({PropertyTargetKind::draft})
                       .derived());
    return rows;
}

} // namespace ovik
