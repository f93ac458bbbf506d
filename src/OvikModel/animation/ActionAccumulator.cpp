#include "OvikModel/animation/ActionAccumulator.h"

#include <algorithm>

namespace ovik {
namespace {

using Kind = ActionEvaluator::Contribution::Kind;

std::optional<double> numberOf(const ActionValue& value) {
    if (const auto* n = std::get_if<ActionValue::number>(&value.cases)) return n->value;
    return std::nullopt;
}

// A latest place keeps only a value of its own kind, so a wrong one clears it.
std::optional<ActionValue> kept(const ActionValue& value, const PropertySlot& slot) {
    using V = ActionValue;
    switch (slot.valueKind) {
    case V::Kind::path: {
        const auto* p = std::get_if<V::path>(&value.cases);
        if (p && !p->value.anchors.empty()) return value;
        return std::nullopt;
    }
    case V::Kind::text:
        if (value.is<V::text>()) return value;
        return std::nullopt;
    default: break;
    }
    const auto number = numberOf(value);
    if (!number) return std::nullopt;
    if (slot.clamp != PropertyClamp::unit) return value;
    const double limited = std::clamp(*number, 0.0, 1.0);
    if (limited == 0) return std::nullopt;
    return V::makeNumber(limited);
}

double clamped(double factor, PropertyClamp clamp) {
    switch (clamp) {
    case PropertyClamp::nonNegative: return std::max(factor, 0.0);
    case PropertyClamp::unit: return std::clamp(factor, 0.0, 1.0);
    case PropertyClamp::none: break;
    }
    return factor;
}

template <class Map>
void dropZeros(Map& map) {
    std::erase_if(map, [](const auto& entry) { return entry.second == 0; });
}

} // namespace

void ActionEvaluator::Accumulator::add(const Contribution& contribution, const Action& action) {
    const double number = numberOf(contribution.value).value_or(0);
    if (action.effect) {
        state.effectShifts[*action.effect] += number;
        return;
    }
    if (action.param) return addParam(contribution, *action.param);
    if (const auto tag = action.property.slot().store.kind == PropertyStore::Kind::fontAxis ? action.fontTag()
                                                                                           : std::nullopt) {
        const auto rest = own.fontAxes.find(*tag);
        const bool isNumber = numberOf(contribution.value).has_value();
        const double shift = contribution.kind == Kind::offset || !isNumber
                                 ? number
                                 : number - (rest == own.fontAxes.end() ? 0 : rest->second);
        state.fontAxes[*tag] += shift;
        return;
    }
    PropertyKey key = action.property;
    if (outlineFades) {
        if (key == PropertyKey::strokeProgress()) key = PropertyKey::opacity();
        if (key == PropertyKey::strokeStart() || key == PropertyKey::strokeOffset()) return;
    }
    if (key == PropertyKey::reveal()) state.revealShape = action.shape;
    const PropertySlot& slot = key.slot();
    if (contribution.kind != Kind::offset) return set(contribution.value, slot);
    addOffset(contribution.value, slot);
}

void ActionEvaluator::Accumulator::addParam(const Contribution& contribution, const std::string& name) {
    ActionState::ParamMove& move = state.paramMoves[name];
    if (contribution.kind != Kind::offset) {
        move.value = contribution.value;
        return;
    }
    move.offset = move.offset ? ActionState::addedOffset(*move.offset, contribution.value) : contribution.value;
}

void ActionEvaluator::Accumulator::set(const ActionValue& value, const PropertySlot& slot) {
    const auto i = std::size_t(slot.store.index);
    switch (slot.composition) {
    case PropertyComposition::additive: return addOffset(value, slot);
    case PropertyComposition::multiplicative:
        if (slot.store.kind == PropertyStore::Kind::number)
            state.numbers[i] *= clamped(numberOf(value).value_or(1), slot.clamp);
        return;
    case PropertyComposition::blended:
        if (const auto* c = std::get_if<ActionValue::color>(&value.cases);
            c && slot.store.kind == PropertyStore::Kind::color)
            state.colors[i] = ActionState::over(c->value, state.colors[i]);
        return;
    case PropertyComposition::latest:
        if (slot.store.kind == PropertyStore::Kind::latest) state.latest[i] = kept(value, slot);
        return;
    }
}

void ActionEvaluator::Accumulator::addOffset(const ActionValue& value, const PropertySlot& slot) {
    if (slot.store.kind != PropertyStore::Kind::number) return;
    const auto i = std::size_t(slot.store.index);
    if (slot.composition == PropertyComposition::multiplicative) {
        const auto x = numberOf(value);
        state.numbers[i] *= clamped(x ? 1 + *x : 1, slot.clamp);
        return;
    }
    if (slot.composition != PropertyComposition::additive) return;
    if (const auto x = numberOf(value)) state.numbers[i] += *x;
    if (const auto* v = std::get_if<ActionValue::vector>(&value.cases); v && slot.valueKind == ActionValue::Kind::vector) {
        state.numbers[i] += v->dx;
        state.numbers[i + 1] += v->dy;
    }
}

void ActionEvaluator::Accumulator::finish() {
    double& blur = state[PropertyKey::blur()];
    blur = std::max(blur, 0.0);
    dropZeros(state.fontAxes);
    dropZeros(state.effectShifts);
}

} // namespace ovik
