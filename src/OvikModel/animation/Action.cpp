#include "OvikModel/animation/Action.h"

#include <algorithm>
#include <cmath>

#include "OvikL10n/L10n.h"
#include "OvikModel/objects/FontAxes.h"

namespace ovik {
namespace {

using Kind = ActionValue::Kind;

constexpr std::string_view paramPrefix = "params.";

// ---- JSON ------------------------------------------------------------------------------------

std::string propertyText(const Action& action) {
    if (action.effect) return action.effect->text();
    if (action.param) return std::string(paramPrefix) + *action.param;
    return action.property.name();
}

void readProperty(Action& action, JSONNode node, const CodingPath& path) {
    json_detail::expect(node, JSONNode::Kind::string, path, "String");
    const std::string_view text = node.string();
    if (auto address = EffectAddress::parse(text)) {
        action.property = PropertyKey::effect();
        action.effect = std::move(*address);
    } else if (text.starts_with(paramPrefix) && text.size() > paramPrefix.size()) {
        action.property = PropertyKey::param();
        action.param = std::string(text.substr(paramPrefix.size()));
    } else {
        action.property = decodeJSON<PropertyKey>(node, path);
    }
}

// ---- checks ----------------------------------------------------------------------------------

using Problem = std::optional<std::string>;

std::string kindName(Kind kind) {
    switch (kind) {
    case Kind::number: return L10n::text("model.valueKind.number");
    case Kind::vector: return "[dx, dy]";
    case Kind::color: return L10n::text("model.valueKind.color");
    case Kind::text: return L10n::text("model.valueKind.text");
    case Kind::path: return L10n::text("model.valueKind.path");
    }
    return {};
}

bool isAmount(Kind kind) { return kind == Kind::number || kind == Kind::vector; }
bool isNonNegative(double x) { return std::isfinite(x) && x >= 0; }
bool isUnit(double x) { return x >= 0 && x <= 1; }
bool isFinite(const CGPoint& p) { return std::isfinite(p.x) && std::isfinite(p.y); }
bool isOfKind(const ActionValue& value, Kind kind) { return value.kind() == kind && value.isFinite(); }

Problem toProblem(const ActionMode::to& mode, Kind expected, const std::string& title) {
    if (mode.to.kind() != expected || (mode.from && mode.from->kind() != expected))
        return L10n::format("model.action.validation.valueKind", {title, kindName(expected)});
    if (!mode.to.isFinite() || (mode.from && !mode.from->isFinite())) return L10n::text("model.validation.finiteValue");
    return std::nullopt;
}

// Oscillation and noise share their checks but for the name of what can't move so.
Problem wobbleProblem(const ActionValue& amplitude, double frequency, double decay, Kind expected,
                      std::string_view unsupportedKey, const std::string& title) {
    if (!isAmount(expected)) return L10n::format(unsupportedKey, {title});
    if (!isOfKind(amplitude, expected)) return L10n::format("model.action.validation.amplitudeKind", {kindName(expected)});
    if (!isNonNegative(frequency) || !isNonNegative(decay)) return L10n::text("model.action.validation.frequencyDecay");
    return std::nullopt;
}

Problem modeProblem(const Action& action) {
    const Kind expected = action.param ? Action::paramKind(action.mode) : action.property.slot().valueKind;
    const std::string title = action.property.spec().title();
    const ActionMode& mode = action.mode;
    if (const auto* t = std::get_if<ActionMode::to>(&mode.cases)) return toProblem(*t, expected, title);
    if (const auto* o = std::get_if<ActionMode::oscillate>(&mode.cases))
        return wobbleProblem(o->amplitude, o->frequency, o->decay, expected,
                             "model.action.validation.oscillateUnsupported", title);
    if (const auto* n = std::get_if<ActionMode::noise>(&mode.cases))
        return wobbleProblem(n->amplitude, n->frequency, n->decay.value_or(0), expected,
                             "model.action.validation.noiseUnsupported", title);
    if (const auto* c = std::get_if<ActionMode::continuous>(&mode.cases)) {
        if (!isAmount(expected)) return L10n::format("model.action.validation.continuousUnsupported", {title});
        if (!isOfKind(c->rate, expected)) return L10n::format("model.action.validation.rateKind", {kindName(expected)});
        return std::nullopt;
    }
    if (action.property != PropertyKey::position()) return L10n::text("model.action.validation.pathPositionOnly");
    const BezierPath& path = mode.as<ActionMode::alongPath>().path;
    if (path.anchors.size() < 2 || !ActionValue::isFinite(path)) return L10n::text("model.path.validation.minimumPoints");
    return std::nullopt;
}

Problem curveProblem(const ActionCurve& curve) {
    if (const auto* s = std::get_if<ActionCurve::spring>(&curve.cases)) {
        if (!(std::isfinite(s->stiffness) && s->stiffness > 0) || !isNonNegative(s->damping))
            return L10n::text("model.action.validation.springRange");
    } else if (const auto* s = std::get_if<ActionCurve::steps>(&curve.cases)) {
        if (s->count < 1) return L10n::text("model.action.validation.minimumSteps");
    } else if (const auto* b = std::get_if<ActionCurve::bezier>(&curve.cases)) {
        if (!std::isfinite(b->y1) || !std::isfinite(b->y2) || !isUnit(b->x1) || !isUnit(b->x2))
            return L10n::text("model.action.validation.bezierRange");
    }
    return std::nullopt;
}

Problem rangeProblem(const ActionRange& range) {
    const auto negative = [](MediaDuration a, MediaDuration b) { return a.microseconds < 0 || b.microseconds < 0; };
    if (const auto* o = std::get_if<ActionRange::opening>(&range.cases)) {
        if (negative(o->delay, o->length)) return L10n::text("model.action.validation.durationDelay");
    } else if (const auto* c = std::get_if<ActionRange::closing>(&range.cases)) {
        if (negative(c->advance, c->length)) return L10n::text("model.action.validation.durationDelay");
    } else if (const auto* b = std::get_if<ActionRange::between>(&range.cases)) {
        if (b->end < b->start) return L10n::text("model.action.validation.timeOrder");
    }
    return std::nullopt;
}

Problem paramProblem(const Action& action) {
    const bool isGenerator = action.property.slot().domain == PropertyDomain::generator;
    if (isGenerator && !action.param) return L10n::text("model.action.validation.paramRequired");
    if (!isGenerator && action.param) return L10n::text("model.action.validation.paramOnly");
    return std::nullopt;
}

Problem shapeProblem(const Action& action) {
    if (!action.shape) return std::nullopt;
    if (action.property != PropertyKey::reveal()) return L10n::text("model.action.validation.revealShapeOnly");
    if (const auto* w = std::get_if<RevealShape::wipe>(&action.shape->cases)) {
        if (!std::isfinite(w->angle)) return L10n::text("model.action.validation.wipeAngle");
    } else if (const auto* p = std::get_if<RevealShape::path>(&action.shape->cases)) {
        if (p->path.anchors.size() < 2) return L10n::text("model.action.validation.revealPathPoints");
        if (!(p->width > 0)) return L10n::text("model.action.validation.revealWidth");
    }
    return std::nullopt;
}

Action heldAction(PropertyKey property, ActionValue value, ActionCurve curve, ActionScope scope) {
    Action action;
    action.property = property;
    action.mode.cases = ActionMode::to{value, value};
    action.curve = std::move(curve);
    action.range.cases = ActionRange::whole{};
    action.scope = scope;
    return action;
}

} // namespace

std::optional<ActionValue> Action::rest(const ActionOwn& own) const {
    if (param)
        if (const auto found = own.params.find(*param); found != own.params.end()) return found->second;
    if (const auto tag = fontTag()) {
        const auto found = own.fontAxes.find(*tag);
        return ActionValue::makeNumber(found != own.fontAxes.end() ? found->second : 0);
    }
    const auto& motion = property.spec().motion;
    if (!motion) return ActionValue::makeNumber(0);
    return motion->rest;
}

std::optional<std::string> Action::fontTag() const {
    if (property == PropertyKey::fontWeight()) return "wght";
    if (property == PropertyKey::fontWidth()) return "wdth";
    if (property == PropertyKey::fontSlant()) return "slnt";
    if (property == PropertyKey::fontAxis()) return axis;
    return std::nullopt;
}

std::optional<std::string> Action::axisProblem() const {
    if (property == PropertyKey::fontAxis()) {
        if (!axis || !FontAxes::isTag(*axis)) return L10n::text("model.action.fontAxis.required");
        return std::nullopt;
    }
    if (axis) return L10n::text("model.action.fontAxis.only");
    return std::nullopt;
}

std::optional<std::string> Action::aboutProblem(bool onLens) const {
    if (!about) return std::nullopt;
    if (!isFinite(*about)) return L10n::text("model.lens.validation.aboutFinite");
    if (!onLens) return std::nullopt;
    if (property != PropertyKey::scale()) return L10n::text("model.lens.validation.aboutScaleOnly");
    const auto values = mode.values();
    const bool positive = std::all_of(values.begin(), values.end(), [](const ActionValue& value) {
        const auto* n = std::get_if<ActionValue::number>(&value.cases);
        return n && n->value > 0;
    });
    if (!positive) return L10n::text("model.lens.validation.aboutPositiveScale");
    return std::nullopt;
}

std::optional<std::string> Action::problem() const {
    if (auto found = modeProblem(*this)) return found;
    if (auto found = curveProblem(curve)) return found;
    if (auto found = rangeProblem(range)) return found;
    if (stagger && stagger->microseconds < 0) return L10n::text("model.action.validation.stagger");
    if (auto found = paramProblem(*this)) return found;
    return shapeProblem(*this);
}

ActionSortKey Action::sortKey() const { return ActionSortKey::of(*this); }

Action Action::shifted(MediaDuration by) const {
    Action out = *this;
    if (auto* b = std::get_if<ActionRange::between>(&out.range.cases)) {
        b->start = b->start + by;
        b->end = b->end + by;
    }
    return out;
}

ActionValue::Kind Action::paramKind(const ActionMode& mode) {
    const auto values = mode.values();
    return values.empty() ? Kind::path : values.front().kind();
}

Action Action::holding(PropertyKey property, ActionValue value) {
    return heldAction(property, std::move(value), ActionCurve{{}, ActionCurve::linear{}}, ActionScope::each);
}

Action Action::held(PropertyKey property, double value) {
    return heldAction(property, ActionValue::makeNumber(value), ActionCurve{{}, ActionCurve::smooth{}}, ActionScope::whole);
}

Action Action::become(ObjectID into, ActionRange range, ActionCurve curve) {
    Action action;
    action.property = PropertyKey::become();
    action.mode.cases = ActionMode::to{ActionValue::makeNumber(0), ActionValue::makeNumber(1)};
    action.curve = std::move(curve);
    action.range = std::move(range);
    action.into = into;
    return action;
}

JSONValue JSONCoding<Action>::encode(const Action& action) {
    JSONValue out = RecordCoding<Action>::encode(action);
    out.object()->emplace("property", propertyText(action));
    return out;
}

Action JSONCoding<Action>::decode(JSONNode node, const CodingPath& path) {
    Action action;
    decodeInto(action, node, path);
    return action;
}

void JSONCoding<Action>::decodeInto(Action& action, JSONNode node, const CodingPath& path) {
    json_detail::expect(node, JSONNode::Kind::object, path, "Dictionary<String, Any>");
    JSONNode property = node;
    if (!node.find("property", property)) throw DecodingError::keyNotFound(path, "property");
    RecordCoding<Action>::decodeInto(action, node, path);
    readProperty(action, property, path.appending("property"));
}

} // namespace ovik
