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
    : ObjectAppearance(state.numbers, corePlaces(), state.settings()) {
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

template <class Numbers, class Places>
ObjectAppearance::ObjectAppearance(const Numbers& n, const Places& at, ActionState settings)
    : opacity(n[at.opacity]), scale(n[at.scale]), offset{n[at.position], n[at.position + 1]}, stretchX(n[at.stretchX]),
      stretchY(n[at.stretchY]), skew(n[at.skew]), rotation(n[at.rotation]), blur(n[at.blur]), depth(n[at.depth]),
      rotationX(n[at.rotationX]), rotationY(n[at.rotationY]), reveal(n[at.reveal]), settings(std::move(settings)) {}

const ObjectAppearance& ObjectAppearance::full() {
    static const ObjectAppearance appearance;
    return appearance;
}

bool ObjectAppearance::isPlain() const {
    return stretchX == 1 && stretchY == 1 && skew == 0 && rotation == 0 && blur <= 0 && !color;
}

} // namespace ovik
