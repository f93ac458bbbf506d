#include "OvikModel/animation/ObjectAppearance.h"

namespace ovik {
namespace {

template <class Case>
const auto* latestOf(const ActionState& state, PropertyKey key) {
    const auto& value = state.latestValue(key);
    return value ? std::get_if<Case>(&value->cases) : nullptr;
}

} // namespace

ObjectAppearance::ObjectAppearance(const ActionState& state, bool drawsOutline)
    : opacity(state[PropertyKey::opacity()]), scale(state[PropertyKey::scale()]), offset(state.offset()),
      stretchX(state[PropertyKey::stretchX()]), stretchY(state[PropertyKey::stretchY()]), skew(state[PropertyKey::skew()]),
      rotation(state[PropertyKey::rotation()]), blur(state[PropertyKey::blur()]), color(state.color(PropertyKey::color())),
      depth(state[PropertyKey::depth()]), rotationX(state[PropertyKey::rotationX()]),
      rotationY(state[PropertyKey::rotationY()]), reveal(state[PropertyKey::reveal()]), revealShape(state.revealShape),
      settings(state.settings()), fontAxes(state.fontAxes) {
    using V = ActionValue;
    if (const auto* t = latestOf<V::text>(state, PropertyKey::text())) text = t->value;
    if (const auto* n = latestOf<V::number>(state, PropertyKey::number())) number = n->value;
    if (const auto* p = latestOf<V::path>(state, PropertyKey::path())) path = p->value;
    if (const auto* b = latestOf<V::number>(state, PropertyKey::become())) become = b->value;
    if (drawsOutline) {
        drawn = state[PropertyKey::strokeProgress()];
        strokeStart = state[PropertyKey::strokeStart()];
        strokeOffset = state[PropertyKey::strokeOffset()];
    }
}

const ObjectAppearance& ObjectAppearance::full() {
    static const ObjectAppearance appearance;
    return appearance;
}

bool ObjectAppearance::isPlain() const {
    return stretchX == 1 && stretchY == 1 && skew == 0 && rotation == 0 && blur <= 0 && !color;
}

} // namespace ovik
