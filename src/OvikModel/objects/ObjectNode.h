#pragma once
// A node of the object tree: an annotation, or a group of nodes painted in order. The list
// of a draft's objects is painted front to back from its first node. Rarely used parts are
// held in boxes (`HeldIfSet`), since a node is copied on every edit.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "OvikModel/animation/Action.h"
#include "OvikModel/effects/EffectStack.h"
#include "OvikModel/objects/Annotation.h"
#include "OvikModel/objects/BlendMode.h"
#include "OvikModel/objects/ClipShape.h"
#include "OvikModel/objects/GridCell.h"
#include "OvikModel/objects/InkTexture.h"
#include "OvikModel/objects/Modifiers.h"
#include "OvikModel/objects/ObjectSpan.h"
#include "OvikModel/objects/PausedMotion.h"
#include "OvikModel/objects/StrokeProgress.h"
#include "OvikModel/objects/Thickness.h"
#include "OvikModel/objects/Timing.h"
#include "OvikModel/objects/VectorSource.h"
#include "OvikModel/style/TokenRefs.h"
#include "OvikModel/time/Clock.h"
#include "OvikModel/values/HeldIfSet.h"
#include "OvikModel/values/Identifier.h"

namespace ovik {

struct ObjectNode;

/// What a node is: a leaf that shows an annotation, or a group of child nodes (which has no
/// picture of its own). Tagged: {"annotation": {...}} or {"group": [...]}.
struct ObjectContent : Enumeration<ObjectContent> {
    struct annotation {
        static constexpr std::string_view name = "annotation";
        Annotation value;
        bool operator==(const annotation&) const = default;
    };
    struct group {
        static constexpr std::string_view name = "group";
        std::vector<ObjectNode> value; // the children, back to front
        bool operator==(const group& other) const;
    };
    std::variant<annotation, group> cases;

    static ObjectContent makeAnnotation(Annotation value);
    static ObjectContent makeGroup(std::vector<ObjectNode> children);

    bool isGroup() const { return is<group>(); }
    /// A group's children; none for a leaf.
    const std::vector<ObjectNode>* children() const;
    std::vector<ObjectNode>* children();

    bool operator==(const ObjectContent&) const = default;
};

struct ObjectNode {
    ObjectID id;
    std::string name;
    bool isHidden = false;
    bool isLocked = false;
    ObjectContent content;
    std::optional<Timing> timing;
    std::vector<Action> actions;
    HeldIfSet<Modifiers> modifiers;
    HeldIfSet<PausedMotion> paused;
    bool motionBlur = false;
    std::optional<MediaID> host;
    std::optional<SectionID> section;
    HeldIfSet<ClipShape> clip;
    std::optional<BlendMode> blend;
    std::optional<CGVector> pivot;
    std::optional<OpaqueJSON> drivers; // pending: Drivers
    std::optional<StrokeProgress> strokeProgress;
    HeldIfSet<InkTexture> inkTexture;
    EffectStack effects;
    HeldIfSet<Clock> clock;
    bool depthSorted = false;
    HeldIfSet<OpaqueJSON> backFace; // pending: BackFace
    HeldIfSet<TokenRefs> tokens;
    std::optional<ObjectSpan> span;
    HeldIfSet<GridCell> grid;
    HeldIfSet<VectorSource> vectorSource;
    HeldIfSet<Thickness> thickness;
    bool sourceOnly = false;
    HeldIfSet<double> opacity;

    bool isGroup() const { return content.isGroup(); }
    /// The annotation of a leaf; none for a group.
    const Annotation* annotation() const {
        const auto* leaf = std::get_if<ObjectContent::annotation>(&content.cases);
        return leaf ? &leaf->value : nullptr;
    }

    bool operator==(const ObjectNode&) const = default;

    static constexpr auto jsonFields() {
        using N = ObjectNode;
        return std::tuple{required("id", &N::id),
                          required("name", &N::name),
                          required("isHidden", &N::isHidden),
                          required("isLocked", &N::isLocked),
                          required("content", &N::content),
                          optional("timing", &N::timing),
                          defaulted("actions", &N::actions),
                          optional("modifiers", &N::modifiers),
                          optional("paused", &N::paused),
                          defaulted("motionBlur", &N::motionBlur),
                          optional("host", &N::host),
                          optional("section", &N::section),
                          optional("clip", &N::clip),
                          optional("blend", &N::blend),
                          optional("pivot", &N::pivot),
                          optional("drivers", &N::drivers),
                          optional("strokeProgress", &N::strokeProgress),
                          optional("inkTexture", &N::inkTexture),
                          defaulted("effects", &N::effects),
                          optional("clock", &N::clock),
                          defaulted("depthSorted", &N::depthSorted),
                          optional("backFace", &N::backFace),
                          optional("tokens", &N::tokens),
                          optional("span", &N::span),
                          optional("grid", &N::grid),
                          optional("vectorSource", &N::vectorSource),
                          optional("thickness", &N::thickness),
                          defaulted("sourceOnly", &N::sourceOnly),
                          optional("opacity", &N::opacity)};
    }
};

} // namespace ovik
