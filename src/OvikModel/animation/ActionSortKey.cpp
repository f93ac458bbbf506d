#include "OvikModel/animation/ActionSortKey.h"

#include <initializer_list>

#include "OvikModel/animation/Action.h"

namespace ovik {
namespace {

class KeyBuilder {
public:
    void add(double number) { key_.numbers.push_back(number); }
    void add(std::initializer_list<double> numbers) { key_.numbers.insert(key_.numbers.end(), numbers); }
    void word(std::string word) { key_.words.push_back(std::move(word)); }

    void point(const CGPoint& p) { add({1, p.x, p.y}); }
    void handle(const std::optional<CGPoint>& p) { p ? point(*p) : add(0); }

    void path(const BezierPath& path) {
        add({double(path.anchors.size()), path.isClosed ? 1.0 : 0.0});
        for (const PathAnchor& anchor : path.anchors) {
            point(anchor.point);
            handle(anchor.handleIn);
            handle(anchor.handleOut);
        }
    }

    void value(const std::optional<ActionValue>& value) {
        if (!value) return add(-1);
        add(double(value->kind()));
        if (const auto* n = std::get_if<ActionValue::number>(&value->cases)) return add(n->value);
        if (const auto* v = std::get_if<ActionValue::vector>(&value->cases)) return add({v->dx, v->dy});
        if (const auto* c = std::get_if<ActionValue::color>(&value->cases))
            return add({c->value.red, c->value.green, c->value.blue, c->value.alpha});
        if (const auto* t = std::get_if<ActionValue::text>(&value->cases)) return word(t->value);
        path(value->as<ActionValue::path>().value);
    }

    void range(const ActionRange& range) {
        if (const auto* o = std::get_if<ActionRange::opening>(&range.cases))
            return add({0, double(o->delay.microseconds), double(o->length.microseconds)});
        if (const auto* c = std::get_if<ActionRange::closing>(&range.cases))
            return add({1, double(c->advance.microseconds), double(c->length.microseconds)});
        if (const auto* b = std::get_if<ActionRange::between>(&range.cases))
            return add({3, double(b->start.microseconds), double(b->end.microseconds)});
        add(2);
    }

    void mode(const ActionMode& mode) {
        add(double(mode.kind()));
        if (const auto* t = std::get_if<ActionMode::to>(&mode.cases)) {
            value(t->from);
            return value(t->to);
        }
        if (const auto* o = std::get_if<ActionMode::oscillate>(&mode.cases)) {
            value(o->amplitude);
            return add({o->frequency, o->decay});
        }
        if (const auto* n = std::get_if<ActionMode::noise>(&mode.cases)) {
            value(n->amplitude);
            add({n->frequency, double(n->seed)});
            if (n->decay) add(*n->decay);
            return;
        }
        if (const auto* c = std::get_if<ActionMode::continuous>(&mode.cases)) return value(c->rate);
        path(mode.as<ActionMode::alongPath>().path);
    }

    void curve(const ActionCurve& curve) {
        add(double(curve.kindIndex()));
        if (const auto* s = std::get_if<ActionCurve::spring>(&curve.cases)) return add({s->stiffness, s->damping});
        if (const auto* s = std::get_if<ActionCurve::steps>(&curve.cases)) return add(double(s->count));
        if (const auto* b = std::get_if<ActionCurve::bezier>(&curve.cases)) add({b->x1, b->y1, b->x2, b->y2});
    }

    void shape(const std::optional<RevealShape>& shape) {
        if (!shape) return add(-1);
        if (const auto* w = std::get_if<RevealShape::wipe>(&shape->cases)) return add({0, w->angle});
        if (const auto* p = std::get_if<RevealShape::path>(&shape->cases)) {
            add({2, p->width});
            return path(p->path);
        }
        add(1);
    }

    ActionSortKey take() { return std::move(key_); }

private:
    ActionSortKey key_;
};

} // namespace

ActionSortKey ActionSortKey::of(const Action& action) {
    KeyBuilder key;
    key.range(action.range);
    key.add(action.property.slot().rank);
    key.mode(action.mode);
    key.curve(action.curve);
    key.add({double(action.scope), action.stagger ? double(action.stagger->microseconds) : -1.0});
    key.shape(action.shape);
    if (action.about) key.add({action.about->x, action.about->y});
    if (action.into) key.word("into " + action.into->description());
    if (action.axis) key.word("axis " + *action.axis);
    if (action.effect) key.word("effect " + action.effect->text());
    if (action.param) key.word("param " + *action.param);
    if (action.pace) key.word("pace length");
    return key.take();
}

} // namespace ovik
