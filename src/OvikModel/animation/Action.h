#pragma once
// One property of one thing changing in one way, along one curve, over one stretch of time:
// the unit of animation. JSON keys (written sorted, as every record's): "property" (the key's
// name, or "effects[i].name" / "params.name" for an effect's or a generator's parameter),
// "keyframe" (only when true), "mode", "curve", "range", then "scope" (only when not each),
// "stagger", "shape", "by", "pins", "term", "into", "about", "axis", "pace", each only when
// present. "property", "mode", "curve" and "range" are required.
#include <optional>
#include <string>
#include <vector>

#include "OvikModel/animation/ActionCurve.h"
#include "OvikModel/animation/ActionMode.h"
#include "OvikModel/animation/ActionOwn.h"
#include "OvikModel/animation/ActionRange.h"
#include "OvikModel/animation/ActionSortKey.h"
#include "OvikModel/animation/EffectAddress.h"
#include "OvikModel/animation/RevealShape.h"
#include "OvikModel/scene/PropertyKey.h"
#include "OvikModel/values/Identifier.h"
#include "OvikPlatform/geometry/CGPoint.h"

namespace ovik {

/// For split or repeated objects: every part staggered, or all parts together.
enum class ActionScope { each, whole };
constexpr auto enumCases(ActionScope*) {
    return EnumCases<ActionScope, 2>{"ActionScope", {{ActionScope::each, "each"}, {ActionScope::whole, "whole"}}};
}
/// Every part takes time in proportion to its length.
enum class ActionPace { length };
constexpr auto enumCases(ActionPace*) { return EnumCases<ActionPace, 1>{"ActionPace", {{ActionPace::length, "length"}}}; }

struct Action {
    PropertyKey property;
    ActionMode mode;
    ActionCurve curve;
    ActionRange range;
    bool isKeyframe = false;
    ActionScope scope = ActionScope::each;
    /// Between parts; none uses the split's interval.
    std::optional<MediaDuration> stagger;
    std::optional<RevealShape> shape;
    /// A script's tag to find its own actions again; no effect on the picture.
    std::optional<std::string> by;
    std::optional<OpaqueJSON> pins; // pending: MomentPins
    /// One term of a formula: the action moves only that term.
    std::optional<std::string> term;
    /// The target of a `become` action.
    std::optional<ObjectID> into;
    /// The canvas point that stays put while a lens zooms.
    std::optional<CGPoint> about;
    /// Four-letter tag of a variable font axis.
    std::optional<std::string> axis;
    std::optional<EffectAddress> effect;
    std::optional<std::string> param;
    std::optional<ActionPace> pace;

    /// The value of the property that has no effect: a generator parameter's or a font axis's
    /// own value from `own`, else the property's fixed rest; none for a property that moves
    /// but has no neutral value (a colour, a text), number 0 for one that doesn't move at all.
    std::optional<ActionValue> rest(const ActionOwn& own) const;
    /// The four-letter tag of the font axis this action moves, if it moves one.
    std::optional<std::string> fontTag() const;
    /// The axis tag is missing where needed, or set where it means nothing.
    std::optional<std::string> axisProblem() const;
    /// The fixed point of a zoom: finite, and on the lens only for a scale by positive factors.
    std::optional<std::string> aboutProblem(bool onLens) const;
    /// The first reason the action is invalid, as finished text.
    std::optional<std::string> problem() const;
    /// What orders actions for evaluation, independent of the order they were added in.
    ActionSortKey sortKey() const;
    /// A `between` action moved later by `by`; other ranges count from the object and stay.
    Action shifted(MediaDuration by) const;

    /// The kind of value a generator parameter takes under `mode`: that of its first value, or
    /// a path for `alongPath`, which holds none.
    static ActionValue::Kind paramKind(const ActionMode& mode);

    /// Holds `value` over the whole life, on each part.
    static Action holding(PropertyKey property, ActionValue value);
    /// Holds the number `value` over the whole life, on all parts together.
    static Action held(PropertyKey property, double value);
    /// Turns into the object `into` along `curve` over `range`.
    static Action become(ObjectID into, ActionRange range, ActionCurve curve);

    bool operator==(const Action&) const = default;

    /// Every field but the property, whose text also carries `effect` and `param`.
    static constexpr auto jsonFields() {
        return std::tuple{defaulted("keyframe", &Action::isKeyframe), required("mode", &Action::mode),
                          required("curve", &Action::curve),          required("range", &Action::range),
                          defaulted("scope", &Action::scope),         optional("stagger", &Action::stagger),
                          optional("shape", &Action::shape),          optional("by", &Action::by),
                          optional("pins", &Action::pins),            optional("term", &Action::term),
                          optional("into", &Action::into),            optional("about", &Action::about),
                          optional("axis", &Action::axis),            optional("pace", &Action::pace)};
    }
};

template <>
struct JSONCoding<Action> {
    static JSONValue encode(const Action& action);
    static Action decode(JSONNode node, const CodingPath& path);
    static void decodeInto(Action& action, JSONNode node, const CodingPath& path);
};

} // namespace ovik
