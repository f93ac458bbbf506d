#include "OvikModel/animation/ActionState.h"

#include <algorithm>

namespace ovik {
namespace {

double unit(double x) { return std::clamp(x, 0.0, 1.0); }

int place(PropertyKey key) { return key.slot().store.index; }

bool hasNumberPlace(PropertyKey key) { return key.slot().store.kind == PropertyStore::Kind::number; }

template <class Field>
std::map<std::string, ActionValue> present(const std::map<std::string, ActionState::ParamMove>& moves, Field field) {
    std::map<std::string, ActionValue> out;
    for (const auto& [name, move] : moves)
        if (move.*field) out.emplace(name, *(move.*field));
    return out;
}

template <class Field>
void replaced(std::map<std::string, ActionState::ParamMove>& moves, const std::map<std::string, ActionValue>& values,
              Field field) {
    for (auto& [name, move] : moves) move.*field = std::nullopt;
    for (const auto& [name, value] : values) moves[name].*field = value;
    std::erase_if(moves, [](const auto& entry) { return !entry.second.value && !entry.second.offset; });
}

} // namespace

const ActionState& ActionState::rest() {
    static const ActionState state;
    return state;
}

double ActionState::operator[](PropertyKey key) const { return hasNumberPlace(key) ? numbers[std::size_t(place(key))] : 0; }
double& ActionState::operator[](PropertyKey key) { return numbers[std::size_t(place(key))]; }

std::optional<RGBA> ActionState::color(PropertyKey key) const {
    if (key.slot().store.kind != PropertyStore::Kind::color) return std::nullopt;
    return colors[std::size_t(place(key))];
}
std::optional<RGBA>& ActionState::color(PropertyKey key) { return colors[std::size_t(place(key))]; }

const std::optional<ActionValue>& ActionState::latestValue(PropertyKey key) const {
    static const std::optional<ActionValue> none;
    if (key.slot().store.kind != PropertyStore::Kind::latest) return none;
    return latest[std::size_t(place(key))];
}
std::optional<ActionValue>& ActionState::latestValue(PropertyKey key) { return latest[std::size_t(place(key))]; }

CGVector ActionState::offset() const {
    const auto i = std::size_t(place(PropertyKey::position()));
    return CGVector{numbers[i], numbers[i + 1]};
}
void ActionState::setOffset(CGVector offset) {
    const auto i = std::size_t(place(PropertyKey::position()));
    numbers[i] = offset.dx;
    numbers[i + 1] = offset.dy;
}

std::map<std::string, ActionValue> ActionState::paramValues() const { return present(paramMoves, &ParamMove::value); }
std::map<std::string, ActionValue> ActionState::paramOffsets() const { return present(paramMoves, &ParamMove::offset); }
void ActionState::setParamValues(const std::map<std::string, ActionValue>& values) {
    replaced(paramMoves, values, &ParamMove::value);
}
void ActionState::setParamOffsets(const std::map<std::string, ActionValue>& offsets) {
    replaced(paramMoves, offsets, &ParamMove::offset);
}

bool ActionState::isPlain() const {
    const ActionState& self = *this;
    return self[PropertyKey::stretchX()] == 1 && self[PropertyKey::stretchY()] == 1 && self[PropertyKey::skew()] == 0 &&
           self[PropertyKey::rotation()] == 0 && self[PropertyKey::blur()] <= 0 && !color(PropertyKey::color());
}

bool ActionState::isInDepth() const {
    const auto moved = [&](PropertyKey key) { return (*this)[key] != rest()[key]; };
    return moved(PropertyKey::depth()) || moved(PropertyKey::rotationX()) || moved(PropertyKey::rotationY());
}

ActionState ActionState::settings() const {
    ActionState out; // at rest
    for (const int i : PropertyTable::settingNumberSlots()) out.numbers[std::size_t(i)] = numbers[std::size_t(i)];
    out.effectShifts = effectShifts;
    out.paramMoves = paramMoves;
    return out;
}

bool ActionState::configures() const {
    if (!effectShifts.empty() || !paramMoves.empty()) return true;
    const auto& rest = PropertyTable::restNumbers();
    const auto& slots = PropertyTable::settingNumberSlots();
    return std::any_of(slots.begin(), slots.end(),
                       [&](int i) { return numbers[std::size_t(i)] != rest[std::size_t(i)]; });
}

ActionState ActionState::combined(const ActionState& other) const {
    ActionState out = *this;
    for (const auto& [index, multiplies] : PropertyTable::numberComposition()) {
        const auto i = std::size_t(index);
        out.numbers[i] = multiplies ? other.numbers[i] * numbers[i] : other.numbers[i] + numbers[i];
    }
    for (std::size_t i = 0; i < colors.size(); ++i)
        if (other.colors[i]) out.colors[i] = over(*other.colors[i], colors[i]);
    const int become = place(PropertyKey::become());
    for (std::size_t i = 0; i < latest.size(); ++i)
        if (other.latest[i] && int(i) != become) out.latest[i] = other.latest[i];
    if (other.revealShape) out.revealShape = other.revealShape;
    for (const auto& [tag, shift] : other.fontAxes) out.fontAxes[tag] += shift;
    for (const auto& [address, shift] : other.effectShifts) out.effectShifts[address] += shift;
    for (const auto& [name, move] : other.paramMoves) {
        ParamMove& mine = out.paramMoves[name];
        if (move.value) mine.value = move.value;
        if (move.offset) mine.offset = mine.offset ? addedOffset(*mine.offset, *move.offset) : move.offset;
    }
    return out;
}

ActionValue ActionState::addedOffset(const ActionValue& a, const ActionValue& b) {
    using V = ActionValue;
    if (const auto* x = std::get_if<V::number>(&a.cases))
        if (const auto* y = std::get_if<V::number>(&b.cases)) return V::makeNumber(x->value + y->value);
    if (const auto* x = std::get_if<V::vector>(&a.cases))
        if (const auto* y = std::get_if<V::vector>(&b.cases)) return V::makeVector(x->dx + y->dx, x->dy + y->dy);
    return a;
}

RGBA ActionState::over(const RGBA& top, const std::optional<RGBA>& below) {
    const double a = unit(top.alpha);
    if (!below) return RGBA{top.red, top.green, top.blue, a};
    const double b = unit(below->alpha);
    const double out = a + (1 - a) * b;
    if (out <= 0) return RGBA{};
    const auto channel = [&](double mine, double theirs) { return (mine * a + (1 - a) * theirs * b) / out; };
    return RGBA{channel(top.red, below->red), channel(top.green, below->green), channel(top.blue, below->blue), out};
}

} // namespace ovik
