// The rows of a 3D space, in the vocabulary of its scene document: renderer, environment, fog
// and camera stand on the whole space; material, light, object, model and geometry fields on
// one of its nodes. And the derived rows, computed from the picture, never stored.
#include "OvikModel/scene/PropertyRow.h"
#include "OvikModel/scene/PropertyRows.h"

namespace ovik {
namespace {

void addAll(std::vector<PropertySpec>& rows, std::string_view prefix, PropertyTargetKind target,
            std::initializer_list<const char*> names) {
    for (const char* sdk : names) rows.push_back(PropertyRow(PropertyGroup::space, prefix, sdk).on({target}));
}

} // namespace

std::vector<PropertySpec> spacePropertyRows() {
    using T = PropertyTargetKind;
    std::vector<PropertySpec> rows;
    addAll(rows, "space.renderer.", T::draft, {"toneMapping", "toneMappingExposure", "ambientOcclusion", "ambientOcclusionRadius"});
    addAll(rows, "space.environment.", T::draft, {"name", "intensity", "rotation", "media"});
    addAll(rows, "space.fog.", T::draft, {"type", "color", "near", "far", "density"});
    addAll(rows, "space.camera.", T::draft, {"type", "fov", "zoom", "near", "far", "left", "right", "top", "bottom"});
    addAll(rows, "space.material.", T::spaceObject,
           {"color", "opacity", "transparent", "blending", "side", "depthTest", "depthWrite", "polygonOffset",
            "polygonOffsetFactor", "polygonOffsetUnits", "alphaTest", "visible", "vertexColors", "emissive",
            "emissiveIntensity", "roughness", "metalness", "envMapIntensity", "wireframe", "wireframeLinewidth",
            "linewidth", "size", "sizeAttenuation", "map", "normalMap", "roughnessMap", "emissiveMap", "alphaMap",
            "recipe", "source", "params", "clearcoat", "clearcoatRoughness", "sheen", "sheenColor", "sheenRoughness",
            "transmission", "ior", "thickness", "attenuationColor", "attenuationDistance", "iridescence",
            "iridescenceIOR", "iridescenceThicknessRange", "specularIntensity", "specularColor"});
    addAll(rows, "space.light.", T::spaceObject,
           {"color", "intensity", "groundColor", "distance", "decay", "angle", "penumbra", "target"});
    addAll(rows, "space.shadow.", T::spaceObject, {"bias", "normalBias", "radius"});
    addAll(rows, "space.object.", T::spaceObject,
           {"position", "quaternion", "scale", "visible", "renderOrder", "castShadow", "receiveShadow",
            "morphTargetInfluences"});
    addAll(rows, "space.", T::spaceObject, {"model"});
    addAll(rows, "space.geometry.", T::spaceObject, {"attributes", "morphAttributes", "morphTargetsRelative"});
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
