// The rows of objects: the node itself, the animatable core, each kind's own settings, and the
// rows that lenses, fonts, materials, effects, generators, particles and solids add.
#include "OvikModel/scene/PropertyField.h"
#include "OvikModel/scene/PropertyRow.h"
#include "OvikModel/scene/PropertyRows.h"

namespace ovik {
namespace {

using enum PropertyValueType;
using Target = PropertyTargetKind;
using Kind = ActionValue::Kind;

PropertyRow objectRow(std::string_view sdk) {
    return std::move(PropertyRow(PropertyGroup::object, "", sdk).on({Target::object}));
}
PropertyRow motionRow(std::string_view sdk, PropertyMotion motion, PropertyValueType type = number) {
    return std::move(PropertyRow(PropertyGroup::motion, "", sdk).typed(type).moving(motion).on(
        {Target::object, Target::media, Target::transition}));
}
PropertyRow onOff(std::string_view sdk) { return std::move(objectRow(sdk).typed(flag, PropertyForm::toggle)); }
PropertyRow numberRow(std::string_view sdk) { return std::move(objectRow(sdk).typed(number, PropertyForm::number)); }
PropertyRow colorRow(std::string_view sdk) { return std::move(objectRow(sdk).typed(color, PropertyForm::colorOrNone)); }
PropertyRow choiceRow(std::string_view sdk, std::vector<std::string> words) {
    return std::move(objectRow(sdk).choices(std::move(words)));
}

void nodeRows(std::vector<PropertySpec>& rows) {
    rows.push_back(objectRow("name").typed(text, PropertyForm::text).access(nodeField(&ObjectNode::name)));
    rows.push_back(onOff("hidden").access(nodeField(&ObjectNode::isHidden)));
    rows.push_back(onOff("locked").access(nodeField(&ObjectNode::isLocked)));
    rows.push_back(onOff("sourceOnly").access(nodeField(&ObjectNode::sourceOnly)));
    rows.push_back(objectRow("blend").typed(choice, PropertyForm::choice));
}

void motionCoreRows(std::vector<PropertySpec>& rows) {
    using M = PropertyMotion;
    using C = PropertyClamp;
    PropertyMotion vector = M::add();
    vector.valueKind = Kind::vector;
    vector.rest = ActionValue::makeVector(0, 0);
    PropertyMotion blended{PropertyComposition::blended, Kind::color, std::nullopt, PropertyDomain::motion, C::none, {}};
    rows.push_back(motionRow("position", vector, vector2).unit("pt"));
    rows.push_back(motionRow("depth", M::add()));
    rows.push_back(motionRow("scale", M::times(PropertyDomain::motion, C::nonNegative)));
    rows.push_back(motionRow("stretchX", M::times(PropertyDomain::motion, C::nonNegative)));
    rows.push_back(motionRow("stretchY", M::times(PropertyDomain::motion, C::nonNegative)));
    rows.push_back(motionRow("skew", M::add(), angle));
    rows.push_back(motionRow("rotation", M::add(), angle).option("--rotation"));
    rows.push_back(motionRow("rotationX", M::add(), angle));
    rows.push_back(motionRow("rotationY", M::add(), angle));
    rows.push_back(motionRow("opacity", M::times(PropertyDomain::motion, C::unit)).ranged(0, 1).option("--opacity"));
    rows.push_back(motionRow("blur", M::add()));
    rows.push_back(motionRow("color", blended, color).on({Target::object}).option("--color"));
    const std::initializer_list<Target> objects{Target::object};
    rows.push_back(motionRow("strokeProgress", M::times(PropertyDomain::motion, C::unit)).on(objects).ranged(0, 1));
    rows.push_back(motionRow("strokeStart", M::add()).on(objects).option("--stroke-start"));
    rows.push_back(motionRow("strokeEnd", M::add()).on(objects).option("--stroke-end"));
    rows.push_back(motionRow("strokeOffset", M::add()).on(objects).option("--stroke-offset"));
    rows.push_back(motionRow("reveal", M::times(PropertyDomain::motion, C::unit)).on(objects).ranged(0, 1));
    rows.push_back(motionRow("text", M::latest(Kind::text), text).on(objects).option("--text"));
    rows.push_back(motionRow("number", M::latest(Kind::number)).on(objects));
    rows.push_back(motionRow("path", M::latest(Kind::path), path).on(objects));
}

void annotationRows(std::vector<PropertySpec>& rows) {
    rows.push_back(onOff("fill"));
    rows.push_back(colorRow("fillColor"));
    rows.push_back(choiceRow("pattern", {"solid", "dashed", "dotted", "sketch"}));
    rows.push_back(choiceRow("body", {"standard", "tapered", "slim"}));
    rows.push_back(choiceRow("heads", {"none", "end", "both"}));
    rows.push_back(choiceRow("corner", {"sharp", "rounded", "capsule"}));
    rows.push_back(onOff("halo"));
    rows.push_back(objectRow("through").typed(flag, PropertyForm::toggle));
    rows.push_back(numberRow("size").unit("pt"));
    rows.push_back(choiceRow("alignment", {"leading", "center", "trailing"}));
    rows.push_back(colorRow("background"));
    rows.push_back(choiceRow("mode", {"blur", "mosaic", "solid"}));
    rows.push_back(numberRow("strength"));
    rows.push_back(choiceRow("shape", {"rectangle", "ellipse"}));
    rows.push_back(numberRow("zoom"));
    rows.push_back(objectRow("source").typed(image));
    rows.push_back(numberRow("dim").ranged(0, 1));
    rows.push_back(onOff("gradient"));
    rows.push_back(colorRow("gradientFrom"));
    rows.push_back(colorRow("gradientTo"));
    rows.push_back(numberRow("gradientAngle").typed(angle, PropertyForm::number).moving(PropertyMotion::add(PropertyDomain::gradient)));
    rows.push_back(choiceRow("ink", {"none", "pencil", "marker", "crayon"}));
    rows.push_back(numberRow("inkAmount").ranged(0, 1));
    rows.push_back(numberRow("inkGrain").ranged(0, 1));
    rows.push_back(numberRow("inkSeed"));
    rows.push_back(numberRow("inkCell"));
}

void arrangementAndFaceRows(std::vector<PropertySpec>& rows) {
    rows.push_back(numberRow("arrangeAngle").typed(angle, PropertyForm::number).moving(PropertyMotion::add(PropertyDomain::arrange)));
    rows.push_back(numberRow("arrangeInterval").moving(PropertyMotion::add(PropertyDomain::arrange)));
    rows.push_back(onOff("depthSorted").access(nodeField(&ObjectNode::depthSorted)));
    rows.push_back(numberRow("backOpacity").ranged(0, 1).moving(PropertyMotion::times(PropertyDomain::back, PropertyClamp::unit)));
    PropertyMotion tint{PropertyComposition::blended, Kind::color, std::nullopt, PropertyDomain::back, PropertyClamp::none, {}};
    rows.push_back(colorRow("backTint").moving(tint));
    rows.push_back(numberRow("become").ranged(0, 1).moving(PropertyMotion::latest(Kind::number, PropertyDomain::become)));
}

void followingRows(std::vector<PropertySpec>& rows) {
    rows.push_back(objectRow("pivot").typed(vector2, PropertyForm::pointOrNone));
    rows.push_back(objectRow("follow").typed(text, PropertyForm::objectOrOff));
    rows.push_back(objectRow("followParts").choices({"position", "rotation", "scale"}).typed(choice, PropertyForm::list));
    rows.push_back(numberRow("speed").ranged(0.1, 16));
    rows.push_back(objectRow("loop").typed(text, PropertyForm::text));
    rows.push_back(objectRow("offset").typed(number, PropertyForm::seconds).unit("s"));
    rows.push_back(onOff("bounce"));
    rows.push_back(onOff("hold"));
    rows.push_back(objectRow("freeze").typed(number, PropertyForm::seconds).unit("s"));
    rows.push_back(objectRow("timeCurve").typed(text, PropertyForm::pointsOrNone));
}

void lensAndFontRows(std::vector<PropertySpec>& rows) {
    for (const char* sdk : {"orbit", "tilt", "dolly", "focus", "aperture"})
        rows.push_back(PropertyRow(PropertyGroup::motion, "lens.", sdk)
                           .typed(number, PropertyForm::number)
                           .moving(PropertyMotion::add(PropertyDomain::lens))
                           .on({Target::lens}));
    const PropertyMotion font = PropertyMotion::add(PropertyDomain::font);
    rows.push_back(numberRow("weight").ranged(1, 1000).moving(font));
    rows.push_back(objectRow("font").typed(text, PropertyForm::text));
    rows.push_back(numberRow("tracking"));
    rows.push_back(numberRow("lineSpacing"));
    rows.push_back(numberRow("width").ranged(25, 200).moving(font));
    rows.push_back(numberRow("slant").ranged(-90, 90).moving(font));
    rows.push_back(numberRow("axis").moving(font));
    rows.push_back(onOff("vertical"));
}

void materialEffectParamRows(std::vector<PropertySpec>& rows) {
    for (const char* sdk : {"roughness", "metalness", "emissiveIntensity"})
        rows.push_back(PropertyRow(PropertyGroup::object, "material.", sdk)
                           .typed(number, PropertyForm::number)
                           .moving(PropertyMotion::add(PropertyDomain::material))
                           .on({Target::object}));
    rows.push_back(PropertyRow(PropertyGroup::object, "", "effect")
                       .named("effects")
                       .typed(number, PropertyForm::number)
                       .moving(PropertyMotion::add(PropertyDomain::effect))
                       .on({Target::object, Target::media, Target::look, Target::draft}));
    rows.push_back(numberRow("param").moving(PropertyMotion::add(PropertyDomain::generator)));
}

void particleRows(std::vector<PropertySpec>& rows) {
    for (const char* sdk :
         {"particleRate",        "particleBurst",          "particleLife",         "particleSpeed",
          "particleDirection",   "particleSpread",         "particleGravity",      "particleSize",
          "particleTrail",       "particleDepth",          "particleBlend",        "particleLook",
          "particleSeed",        "particleMax",            "particleLifeRange",    "particleSpeedRange",
          "particleSizeEnd",     "particleSizeJitter",     "particleColorPick",    "particleBrightness",
          "particleSoftness",    "particleFadeIn",         "particleFadeOut",      "particlePrewarm",
          "particleSource",      "particleInside",         "particleLetterDelay",  "particleSizeOverLife",
          "particleOpacityOverLife", "particleColorOverLife", "particleTurbulence", "particleTurbulenceRate",
          "particleTurbulenceScale", "particleFlip",       "particleSpin",         "particleDrag",
          "particleGlyphs",      "particleColors",         "particleFrom",         "particleTexture",
          "particleWind"})
        rows.push_back(numberRow(sdk));
    const auto choose = [&rows](std::string_view sdk, std::vector<std::string> words) {
        for (PropertySpec& row : rows)
            if (row.sdk == sdk) row = choiceRow(sdk, words);
    };
    choose("particleBlend", {"normal", "add", "lighten"});
    choose("particleLook", {"dot", "flake", "texture", "glyph"});
    choose("particleColorPick", {"overLife", "each"});
}

void spanAndSolidRows(std::vector<PropertySpec>& rows) {
    rows.push_back(objectRow("span").typed(flag, PropertyForm::toggle));
    rows.push_back(onOff("spanLens"));
    rows.push_back(numberRow("bevel"));
    rows.push_back(numberRow("bevelSegments").ranged(1, 32));
    rows.push_back(choiceRow("bevelProfile", {"round", "flat"}));
    rows.push_back(objectRow("sideMaterial").typed(text));
    rows.push_back(objectRow("backMaterial").typed(text));
}

} // namespace

std::vector<PropertySpec> objectPropertyRows() {
    std::vector<PropertySpec> rows;
    nodeRows(rows);
    motionCoreRows(rows);
    annotationRows(rows);
    arrangementAndFaceRows(rows);
    followingRows(rows);
    lensAndFontRows(rows);
    materialEffectParamRows(rows);
    particleRows(rows);
    spanAndSolidRows(rows);
    return rows;
}

} // namespace ovik
