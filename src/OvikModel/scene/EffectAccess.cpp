#include "OvikModel/scene/EffectAccess.h"

#include <algorithm>

#include "OvikL10n/L10n.h"
#include "OvikModel/objects/ObjectWalks.h"
#include "OvikModel/scene/PropertyError.h"
#include "OvikModel/scene/PropertyTargets.h"
#include "OvikModel/scene/PropertyValue.h"

namespace ovik {
namespace {

using Target = PropertyPath::Target;

[[noreturn]] void fail(PropertyError::Kind kind, const char* key, std::vector<L10nArgument> arguments) {
    throw PropertyError(kind, L10n::format(key, arguments));
}

EffectPlace placeOf(const Target& target) {
    if (target.is<Target::object>()) return EffectPlace::object;
    if (target.is<Target::media>()) return EffectPlace::media;
    return EffectPlace::picture;
}

EffectStack stackAt(const Draft& draft, const Target& target) {
    if (const auto* object = std::get_if<Target::object>(&target.cases)) {
        const ObjectNode* found = node(draft.objects, object->id);
        if (!found) fail(PropertyError::Kind::notFound, "model.property.object.notFound", {object->id.description()});
        return found->effects;
    }
    if (const auto* media = std::get_if<Target::media>(&target.cases))
        return draft.media[mediaIndex(draft, media->id)].effects;
    if (const auto* section = std::get_if<Target::section>(&target.cases))
        return draft.sections[sectionIndex(draft, section->id)].look.value_or(EffectStack{});
    return draft.style.look;
}

void storeStack(Draft& draft, const Target& target, EffectStack stack) {
    if (const auto* object = std::get_if<Target::object>(&target.cases))
        updateNode(draft.objects.mutableItems(), object->id, [&](ObjectNode& node) { node.effects = std::move(stack); });
    else if (const auto* media = std::get_if<Target::media>(&target.cases))
        draft.media.mutableItems()[mediaIndex(draft, media->id)].effects = std::move(stack);
    else if (const auto* section = std::get_if<Target::section>(&target.cases))
        draft.sections.mutableItems()[sectionIndex(draft, section->id)].look = std::move(stack);
    else
        draft.style.look = std::move(stack);
}

const Effect& effectAt(const EffectStack& stack, const EffectAddress& address) {
    const int count = int(stack.entries.size());
    if (count == 0) fail(PropertyError::Kind::invalid, "model.property.effect.none", {address.text()});
    if (address.index < 0 || address.index >= count)
        fail(PropertyError::Kind::invalid, "model.property.effect.missing", {address.text(), std::to_string(count - 1)});
    return stack.entries[std::size_t(address.index)];
}

// The names of the parameters an effect has: the stored ones and the primitive's.
std::vector<std::string> paramNames(const Effect& effect, EffectPlace place) {
    std::vector<std::string> names;
    for (const ProgramParam& each : primitiveParams(effect.primitive, place)) names.push_back(each.name);
    for (const ProgramParam& each : effect.params)
        if (std::find(names.begin(), names.end(), each.name) == names.end()) names.push_back(each.name);
    return names;
}

ProgramParam paramOf(const Effect& effect, const EffectAddress& address, EffectPlace place) {
    if (auto found = effect.param(address.name, place)) return std::move(*found);
    fail(PropertyError::Kind::invalid, "model.property.effect.unknownParam",
             {address.text(), std::string(caseName(effect.primitive)), L10n::list(paramNames(effect, place))});
}

JSONValue shown(const ProgramValue& value) {
    if (const auto* number = std::get_if<ProgramValue::number>(&value.cases)) return JSONValue(number->value);
    if (const auto* color = std::get_if<ProgramValue::color>(&value.cases))
        return JSONValue(color->value.alpha == 1 ? color->value.hexText() : color->value.hexAlphaText());
    if (const auto* text = std::get_if<ProgramValue::text>(&value.cases)) return JSONValue(text->value);
    return JSONValue(value.as<ProgramValue::flag>().value);
}

// The offered value read in the form of the parameter's kind; a number outside both bounds
// is refused, one beyond a single bound is held to it.
ProgramValue offered(const ProgramParam& param, const PropertyValue& value) {
    if (param.value.is<ProgramValue::number>()) {
        std::optional<std::pair<double, double>> range;
        if (param.low && param.high) range = std::pair{*param.low, *param.high};
        return *param.accepting(ProgramValue::makeNumber(value.number(range)));
    }
    if (param.value.is<ProgramValue::color>()) return ProgramValue::makeColor(value.color());
    if (param.value.is<ProgramValue::text>()) return ProgramValue::makeText(value.text());
    return ProgramValue::makeFlag(value.boolean());
}

} // namespace

JSONValue effectValue(const Draft& draft, const PropertyPath& path) {
    const EffectStack stack = stackAt(draft, path.target);
    return shown(paramOf(effectAt(stack, *path.effect), *path.effect, placeOf(path.target)).value);
}

std::optional<std::string> setEffect(Draft& draft, const JSONValue& value, const PropertyPath& path) {
    const EffectAddress& address = *path.effect;
    EffectStack stack = stackAt(draft, path.target);
    const Effect& effect = effectAt(stack, address);
    ProgramParam param = paramOf(effect, address, placeOf(path.target));
    ProgramValue fitted = offered(param, PropertyValue{address.text(), value});
    if (fitted == param.value) return std::nullopt;
    param.value = std::move(fitted);
    stack.entries[std::size_t(address.index)] = effect.storing(std::move(param));
    storeStack(draft, path.target, std::move(stack));
    return L10n::format("model.property.undo.set", {path.key.spec().title()});
}

} // namespace ovik
