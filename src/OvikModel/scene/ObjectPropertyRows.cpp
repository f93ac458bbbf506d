// The rows of objects: the node itself, the animatable core, each kind's own settings, and the
// rows that lenses, fonts, materials, effects, generators, particles and solids add.
#include "OvikModel/scene/AnnotationAccess.h"
#include "OvikModel/scene/NodeAccess.h"
#include "OvikModel/scene/ParticleAccess.h"
#include "OvikModel/scene/PropertyField.h"
#include "OvikModel/scene/PropertyRow.h"
#include "OvikModel/scene/PropertyRows.h"

namespace ovik {
namespace {

using enum PropertyValueType;
using Target = PropertyTargetKind;
using Kind = ActionValue::Kind;
using A = AnnotationKind;

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
    rows.push_back(objectRow("blend")
                       .choices(caseWords<BlendMode>())
                       .on({Target::object, Target::media})
                       .access(nodeField(&ObjectNode::blend))
                       .access(mediaField(&Media::blend)));
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
    rows.push_back(onOff("fill").access(fillAccess()));
    rows.push_back(colorRow("fillColor").access(fillColorAccess()));
    rows.push_back(choiceRow("pattern", {"solid", "dashed", "dotted", "sketch"})
                       .access(annotationField({A::rectangle, A::ellipse, A::arrow, A::line, A::pen, A::path}, &ShapeAnnotationFields::pattern,
                                               &LineAnnotation::pattern, &PenAnnotation::pattern,
                                               &PathAnnotationFields::pattern)));
    rows.push_back(choiceRow("body", {"standard", "tapered", "slim"}).access(annotationField({A::arrow, A::line}, &LineAnnotation::body)));
    rows.push_back(choiceRow("heads", {"none", "end", "both"}).access(annotationField({A::arrow, A::line}, &LineAnnotation::heads)));
    rows.push_back(choiceRow("corner", {"sharp", "rounded", "capsule"})
                       .access(annotationField({A::rectangle}, &ShapeAnnotationFields::corner)));
    rows.push_back(onOff("halo").access(annotationField({A::rectangle, A::ellipse, A::arrow, A::line, A::pen, A::path},
                                                        &ShapeAnnotationFields::hasHalo, &LineAnnotation::hasHalo,
                                                        &PenAnnotation::hasHalo, &PathAnnotationFields::hasHalo)));
    rows.push_back(objectRow("through").typed(flag, PropertyForm::toggle).access(throughAccess()));
    rows.push_back(numberRow("size").unit("pt").access(sizeAccess()));
    rows.push_back(choiceRow("alignment", {"leading", "center", "trailing"})
                       .access(annotationField({A::text}, &TextAnnotation::alignment)));
    rows.push_back(colorRow("background").access(annotationField({A::text}, &TextAnnotation::background)));
    rows.push_back(choiceRow("mode", {"blur", "mosaic", "solid"}).access(annotationField({A::redact}, &RedactAnnotation::mode)));
    rows.push_back(numberRow("strength").ranged(0, 1).access(annotationField({A::redact}, &RedactAnnotation::strength)));
    rows.push_back(choiceRow("shape", {"rectangle", "ellipse"})
                       .access(annotationField({A::spotlight, A::magnifier}, &SpotlightAnnotation::shape, &MagnifierAnnotation::shape)));
    rows.push_back(numberRow("zoom").ranged(1, 10).access(annotationField({A::magnifier}, &MagnifierAnnotation::zoom)));
    rows.push_back(objectRow("source").typed(image));
    rows.push_back(numberRow("dim").ranged(0, 1).access(annotationField({A::spotlight}, &SpotlightAnnotation::dim)));
    rows.push_back(onOff("gradient").access(gradientAccess()));
    rows.push_back(colorRow("gradientFrom").access(gradientColorAccess(false)));
    rows.push_back(colorRow("gradientTo").access(gradientColorAccess(true)));
    rows.push_back(numberRow("gradientAngle")
                       .typed(angle, PropertyForm::number)
                       .moving(PropertyMotion::add(PropertyDomain::gradient))
                       .access(gradientAngleAccess()));
    rows.push_back(choiceRow("ink", {"none", "dry", "pixel"}).access(inkAccess(InkPart::kind)));
    rows.push_back(numberRow("inkAmount").ranged(0, 1).access(inkAccess(InkPart::amount)));
    rows.push_back(numberRow("inkGrain").ranged(0.25, 4).access(inkAccess(InkPart::grain)));
    rows.push_back(numberRow("inkSeed").ranged(0, 4294967295.0).access(inkAccess(InkPart::seed)));
    rows.push_back(numberRow("inkCell").ranged(1, 16).access(inkAccess(InkPart::cell)));
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
    rows.push_back(objectRow("pivot").typed(vector2, PropertyForm::pointOrNone).access(pivotAccess()));
    rows.push_back(objectRow("follow").typed(text, PropertyForm::objectOrOff));
    rows.push_back(objectRow("followParts").choices({"position", "rotation", "scale"}).typed(choice, PropertyForm::list));
    rows.push_back(numberRow("speed").ranged(Clock::slowest, Clock::fastest).access(clockAccess(ClockPart::speed)));
    rows.push_back(objectRow("loop").typed(text, PropertyForm::text).access(clockAccess(ClockPart::loop)));
    rows.push_back(objectRow("offset").typed(number, PropertyForm::seconds).unit("s").access(clockAccess(ClockPart::offset)));
    rows.push_back(onOff("bounce").access(clockAccess(ClockPart::bounce)));
    rows.push_back(onOff("hold").access(clockAccess(ClockPart::hold)));
    rows.push_back(objectRow("freeze").typed(number, PropertyForm::seconds).unit("s").access(clockAccess(ClockPart::freeze)));
    rows.push_back(objectRow("timeCurve").typed(text, PropertyForm::pointsOrNone).access(clockAccess(ClockPart::timeCurve)));
}

void lensAndFontRows(std::vector<PropertySpec>& rows) {
    for (const char* sdk : {"orbit", "tilt", "dolly", "focus", "aperture"})
        rows.push_back(PropertyRow(PropertyGroup::motion, "lens.", sdk)
                           .typed(number, PropertyForm::number)
                           .moving(PropertyMotion::add(PropertyDomain::lens))
                           .on({Target::lens}));
    const PropertyMotion font = PropertyMotion::add(PropertyDomain::font);
    rows.push_back(numberRow("weight").ranged(1, 1000).moving(font).access(fontWeightAccess()));
    rows.push_back(objectRow("font").typed(text, PropertyForm::text).access(fontAccess()));
    rows.push_back(numberRow("tracking").access(annotationField({A::text}, &TextAnnotation::tracking)));
    rows.push_back(numberRow("lineSpacing").ranged(0.5, 4).access(annotationField({A::text}, &TextAnnotation::lineSpacing)));
    rows.push_back(numberRow("width").ranged(25, 200).moving(font).access(fontAxisAccess(FontAxes::width, 100)));
    rows.push_back(numberRow("slant").ranged(-90, 90).moving(font).access(fontAxisAccess(FontAxes::slant, 0)));
    rows.push_back(numberRow("axis").moving(font));
    rows.push_back(onOff("vertical").access(annotationField({A::text}, &TextAnnotation::vertical)));
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

// Quantities "not below 0" that have no limit of their own (speeds, sizes, drag) stop at a
// number no picture needs more of, so that a refusal names a range a person can read.
constexpr double particleMost = 100000;

PropertyRow particleNumber(std::string_view sdk, double lo, double hi = particleMost) {
    return std::move(numberRow(sdk).ranged(lo, hi));
}
PropertyRow particleRow(std::string_view sdk, PropertyValueType type, PropertyForm form) {
    return std::move(objectRow(sdk).typed(type, form));
}

void particleRows(std::vector<PropertySpec>& rows) {
    using P = ParticlesAnnotation;
    namespace L = ParticleLimits;
    rows.push_back(particleNumber("particleRate", 0, L::highestRate).access(particleField(&P::rate)));
    rows.push_back(particleRow("particleBurst", number, PropertyForm::pointsOrNone).access(particleBurstAccess()));
    rows.push_back(particleNumber("particleLife", L::shortestLife, L::longestLife).unit("s").access(particleRangeMiddleAccess(&P::life)));
    rows.push_back(particleNumber("particleSpeed", 0).access(particleRangeMiddleAccess(&P::speed)));
    rows.push_back(numberRow("particleDirection").typed(angle, PropertyForm::number).access(particleField(&P::direction)));
    rows.push_back(particleNumber("particleSpread", 0, 360).typed(angle, PropertyForm::number).access(particleField(&P::spread)));
    rows.push_back(particleRow("particleGravity", vector2, PropertyForm::pointOrNone).access(particleVectorAccess(&P::gravity)));
    rows.push_back(particleNumber("particleSize", 0).unit("pt").access(particleField(&P::sizeStart)));
    rows.push_back(particleNumber("particleTrail", 0, L::longestTrail).unit("s").access(particleField(&P::trail)));
    rows.push_back(particleNumber("particleDepth", 0, L::depth).unit("pt").access(particleField(&P::depth)));
    rows.push_back(choiceRow("particleBlend", caseWords<ParticleBlend>()).access(particleField(&P::blend)));
    rows.push_back(choiceRow("particleLook", caseWords<ParticleLook>()).access(particleField(&P::look)));
    rows.push_back(particleNumber("particleSeed", 0, 4294967295.0).access(particleSeedAccess()));
    rows.push_back(particleNumber("particleMax", 1, L::perObject).access(particleMaxAccess()));
    rows.push_back(particleRow("particleLifeRange", number, PropertyForm::pointOrNone)
                       .ranged(L::shortestLife, L::longestLife)
                       .access(particleRangeAccess(&P::life)));
    rows.push_back(particleRow("particleSpeedRange", number, PropertyForm::pointOrNone).ranged(0, particleMost)
                       .access(particleRangeAccess(&P::speed)));
    rows.push_back(particleNumber("particleSizeEnd", 0).unit("pt").access(particleField(&P::sizeEnd)));
    rows.push_back(particleNumber("particleSizeJitter", 0, 1).access(particleField(&P::sizeJitter)));
    rows.push_back(choiceRow("particleColorPick", caseWords<ParticleColorPick>()).access(particleField(&P::colorPick)));
    rows.push_back(particleNumber("particleBrightness", 0, L::brightest).access(particleField(&P::brightness)));
    rows.push_back(particleNumber("particleSoftness", 0, 1).access(particleField(&P::softness)));
    rows.push_back(particleNumber("particleFadeIn", 0, 1).access(particleField(&P::fadeIn)));
    rows.push_back(particleNumber("particleFadeOut", 0, 1).access(particleField(&P::fadeOut)));
    rows.push_back(onOff("particlePrewarm").access(particleField(&P::prewarm)));
    rows.push_back(particleRow("particleSource", vector2, PropertyForm::pointOrNone).access(particleSourceAccess()));
    rows.push_back(onOff("particleInside").access(particleInsideAccess()));
    rows.push_back(particleNumber("particleLetterDelay", 0, L::letterDelay).unit("s").access(particleLetterDelayAccess()));
    rows.push_back(particleRow("particleSizeOverLife", number, PropertyForm::pointsOrNone)
                       .ranged(0, L::biggestLifeSize)
                       .access(particleCurveAccess(&P::sizeOverLife)));
    rows.push_back(particleRow("particleOpacityOverLife", number, PropertyForm::pointsOrNone)
                       .ranged(0, 1)
                       .access(particleCurveAccess(&P::opacityOverLife)));
    rows.push_back(particleRow("particleColorOverLife", color, PropertyForm::list).access(particleColorOverLifeAccess()));
    rows.push_back(particleNumber("particleTurbulence", 0).unit("pt").access(particleField(&P::turbulence)));
    rows.push_back(particleNumber("particleTurbulenceRate", 0).access(particleField(&P::turbulenceRate)));
    rows.push_back(particleNumber("particleTurbulenceScale", 0, L::turbulenceScale).unit("pt").access(particleField(&P::turbulenceScale)));
    rows.push_back(particleNumber("particleFlip", -L::fastestFlip, L::fastestFlip).access(particleField(&P::flip)));
    rows.push_back(numberRow("particleSpin").typed(angle, PropertyForm::number).access(particleField(&P::spin)));
    rows.push_back(particleNumber("particleDrag", 0).access(particleField(&P::drag)));
    rows.push_back(particleRow("particleGlyphs", text, PropertyForm::text).access(particleGlyphsAccess()));
    rows.push_back(particleRow("particleColors", color, PropertyForm::list).access(particleColorsAccess()));
    rows.push_back(particleRow("particleFrom", text, PropertyForm::objectOrOff).access(particleFromAccess()));
    rows.push_back(particleRow("particleTexture", image, PropertyForm::file).access(particleTextureAccess()));
    rows.push_back(particleRow("particleWind", vector2, PropertyForm::pointOrNone).access(particleVectorAccess(&P::wind)));
}

void spanAndSolidRows(std::vector<PropertySpec>& rows) {
    rows.push_back(objectRow("span").typed(flag, PropertyForm::toggle).access(spanAccess(false)));
    rows.push_back(onOff("spanLens").access(spanAccess(true)));
    rows.push_back(numberRow("bevel").access(bevelAccess(BevelPart::size)));
    rows.push_back(numberRow("bevelSegments").ranged(1, 16).access(bevelAccess(BevelPart::segments)));
    rows.push_back(choiceRow("bevelProfile", {"round", "flat"}).access(bevelAccess(BevelPart::profile)));
    rows.push_back(objectRow("sideMaterial").typed(text).access(faceMaterialAccess(false)));
    rows.push_back(objectRow("backMaterial").typed(text).access(faceMaterialAccess(true)));
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
