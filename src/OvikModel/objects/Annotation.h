#pragma once
// What a leaf of the object tree shows: one of sixteen kinds, each with its stored payload.
// Solids and generators keep their JSON as read until their models exist.
#include "OvikModel/objects/AnnotationKind.h"
#include "OvikModel/objects/CounterAnnotation.h"
#include "OvikModel/objects/FollowPointAnnotation.h"
#include "OvikModel/objects/LineAnnotation.h"
#include "OvikModel/objects/MagnifierAnnotation.h"
#include "OvikModel/objects/ParticlesAnnotation.h"
#include "OvikModel/objects/PathAnnotation.h"
#include "OvikModel/objects/PenAnnotation.h"
#include "OvikModel/objects/RedactAnnotation.h"
#include "OvikModel/objects/ShapeAnnotation.h"
#include "OvikModel/objects/SpotlightAnnotation.h"
#include "OvikModel/objects/StickerAnnotation.h"
#include "OvikModel/objects/TextAnnotation.h"
#include "OvikPlatform/CowBox.h"

namespace ovik {

struct Annotation : Enumeration<Annotation> {
    template <class Payload, const std::string_view& Name>
    struct Case {
        static constexpr std::string_view name = Name;
        Payload value;
        bool operator==(const Case&) const = default;
    };

    static constexpr std::string_view rectangleName = "rectangle", ellipseName = "ellipse", arrowName = "arrow",
                                      lineName = "line", penName = "pen", textName = "text", counterName = "counter",
                                      redactName = "redact", spotlightName = "spotlight", magnifierName = "magnifier",
                                      stickerName = "sticker", pathName = "path", followPointName = "followPoint",
                                      particlesName = "particles", solidName = "solid", generatorName = "generator";

    using rectangle = Case<ShapeAnnotation, rectangleName>;
    using ellipse = Case<ShapeAnnotation, ellipseName>;
    using arrow = Case<LineAnnotation, arrowName>;
    using line = Case<LineAnnotation, lineName>;
    using pen = Case<PenAnnotation, penName>;
    using text = Case<TextAnnotation, textName>;
    using counter = Case<CounterAnnotation, counterName>;
    using redact = Case<RedactAnnotation, redactName>;
    using spotlight = Case<SpotlightAnnotation, spotlightName>;
    using magnifier = Case<MagnifierAnnotation, magnifierName>;
    using sticker = Case<StickerAnnotation, stickerName>;
    using path = Case<PathAnnotation, pathName>;
    using followPoint = Case<FollowPointAnnotation, followPointName>;
    // Boxed: a particles recipe is several times the size of any other payload.
    using particles = Case<CowBox<ParticlesAnnotation>, particlesName>;
    using solid = Case<OpaqueJSON, solidName>;         // pending: SolidAnnotation
    using generator = Case<OpaqueJSON, generatorName>; // pending: GeneratorAnnotation

    std::variant<rectangle, ellipse, arrow, line, pen, text, counter, redact, spotlight, magnifier, sticker, path,
                 followPoint, particles, solid, generator>
        cases;

    AnnotationKind kind() const { return AnnotationKind(cases.index()); }

    bool operator==(const Annotation&) const = default;
};

} // namespace ovik
