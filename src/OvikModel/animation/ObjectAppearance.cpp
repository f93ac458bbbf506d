#include "OvikModel/animation/ObjectAppearance.h"

namespace ovik {
namespace {

template <class Case>
const auto* latestOf(const ActionState& state, PropertyKey key) {
    const auto& value = state.latestValue(key);
    return value ? std::get_if<Case>(&value->cases) : nullptr;
}

// Where the numbers an appearance reads stand in a state: found once, read per object.
struct CorePlaces {
    std::size_t opacity, scale, position, stretchX, stretchY, skew, rotation, blur, depth, rotationX, rotationY, reveal,
        strokeProgress, strokeStart, strokeOffset;
};

const CorePlaces& corePlaces() {
    static const CorePlaces places = [] {
        const auto at = [](PropertyKey key) { return std::size_t(key.slot().store.index); };
        using K = PropertyKey;
        return CorePlaces{at(K::opacity()),   at(K::scale()),          at(K::position()),    at(K::stretchX()),
                          at(K::stretchY()),  at(K::skew()),           at(K::rotation()),    at(K::blur()),
                          at(K::depth()),     at(K::rotationX()),      at(K::rotationY()),   at(K::reveal()),
                          at(K::strokeProgress()), at(K::strokeStart()), at(K::strokeOffset())};
    }();
    return places;
}

} // namespace

ObjectAppearance::ObjectAppearance(const ActionState& state, bool drawsOutline)
    : ObjectAppearance(state, corePlaces()) {
    color = state.color(PropertyKey::color());
    revealShape = state.revealShape;
    fontAxes = state.fontAxes;
    using V = ActionValue;
    if (const auto* t = latestOf<V::text>(state, PropertyKey::text())) text = t->value;
    if (const auto* n = latestOf<V::number>(state, PropertyKey::number())) number = n->value;
    if (const auto* p = latestOf<V::path>(state, PropertyKey::path())) path = p->value;
    if (const auto* b = latestOf<V::number>(state, PropertyKey::become())) become = b->value;
    if (drawsOutline) {
        const CorePlaces& at = corePlaces();
        drawn = state.numbers[at.strokeProgress];
        strokeStart = state.numbers[at.strokeStart];
        strokeOffset = state.numbers[at.strokeOffset];
    }
}

template <class Places>
ObjectAppearance::ObjectAppearance(const ActionState& state, const Places& at)
    : opacity(state.numbers[at.opacity]), scale(state.numbers[at.scale]),
      offset{state.numbers[at.position], state.numbers[at.position + 1]}, stretchX(state.numbers[at.stretchX]),
      stretchY(state.numbers[at.stretchY]), skew(state.numbers[at.skew]), rotation(state.numbers[at.rotation]),
      blur(state.numbers[at.blur]), depth(state.numbers[at.depth]), rotationX(state.numbers[at.rotationX]),
      rotationY(state.numbers[at.rotationY]), reveal(state.numbers[at.reveal]) {
    if (state.configures()) settings = state.settings();
}

const ObjectAppearance& ObjectAppearance::full() {
    static const ObjectAppearance appearance;
    return appearance;
}

bool ObjectAppearance::isPlain() const {
    return stretchX == 1 && stretchY == 1 && skew == 0 && rotation == 0 && blur <= 0 && !color;
}

} // namespace ovik
