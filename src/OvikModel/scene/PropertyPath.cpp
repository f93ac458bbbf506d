#include "OvikModel/scene/PropertyPath.h"

#include <algorithm>

#include "OvikL10n/L10n.h"
#include "OvikModel/Draft.h"
#include "OvikModel/objects/ObjectWalks.h"
#include "OvikModel/scene/PropertyError.h"

namespace ovik {
namespace {

[[noreturn]] void notFound(std::string message) {
    throw PropertyError(PropertyError::Kind::notFound, std::move(message));
}

// The key, effect or parameter that the rest of a path names on an object or media.
PropertyPath member(PropertyPath::Target target, std::string_view rest, const char* notAPropertyKey) {
    PropertyPath path{std::move(target), PropertyKey::position(), std::nullopt, std::nullopt};
    if (auto effect = EffectAddress::parse(rest)) {
        path.key = PropertyKey::effect();
        path.effect = std::move(effect);
    } else if (rest.rfind("params.", 0) == 0 && rest.size() > 7) {
        path.key = PropertyKey::param();
        path.param = std::string(rest.substr(7));
    } else if (const auto key = PropertyKey::anyName(rest)) {
        path.key = *key;
    } else {
        throw PropertyError(PropertyError::Kind::invalid, L10n::format(notAPropertyKey, {std::string(rest)}));
    }
    return path;
}

// The object whose id or name (the longest that fits) begins the text, followed by a dot.
std::optional<std::pair<ObjectID, std::size_t>> objectAt(std::string_view text, const Draft& draft) {
    std::optional<std::pair<ObjectID, std::size_t>> best;
    forEachNode(draft.objects, std::nullopt, [&](const ObjectNode& node, const ObjectLocation&) {
        for (const std::string& name : {node.id.description(), node.name}) {
            const bool fits = !name.empty() && text.size() > name.size() && text.substr(0, name.size()) == name &&
                              text[name.size()] == '.';
            if (fits && (!best || name.size() > best->second)) best = std::pair{node.id, name.size()};
        }
    });
    return best;
}

template <class ID, class List>
std::optional<ID> idIn(const List& list, std::string_view text) {
    const auto uuid = UUID::parse(text);
    if (!uuid) return std::nullopt;
    for (const auto& item : list)
        if (item.id.rawValue == *uuid) return item.id;
    return std::nullopt;
}

} // namespace

PropertyPath PropertyPath::parse(std::string_view text, const Draft& draft) {
    using T = Target;
    if (const auto object = objectAt(text, draft))
        return member(T{{}, T::object{object->first}}, text.substr(object->second + 1),
                      "model.property.path.notObjectProperty");
    const std::size_t dot = text.find('.');
    const std::string_view head = text.substr(0, dot), rest = dot == std::string_view::npos ? "" : text.substr(dot + 1);
    if (const auto media = idIn<MediaID>(draft.media, head))
        return member(T{{}, T::media{*media}}, rest, "model.property.path.notMediaProperty");
    if (const auto section = idIn<SectionID>(draft.sections, head)) {
        if (rest.rfind("look.", 0) != 0)
            throw PropertyError(PropertyError::Kind::invalid,
                                L10n::format("model.property.path.notLookProperty", {std::string(rest)}));
        return member(T{{}, T::section{*section}}, rest.substr(5), "model.property.path.notLookProperty");
    }
    if (UUID::parse(head)) notFound(L10n::format("model.property.object.notFound", {std::string(head)}));
    if (head == "look") return member(T{{}, T::draft{}}, rest, "model.property.path.notDraftProperty");
    const auto key = PropertyKey::named(text);
    if (!key) {
        if (dot != std::string_view::npos && !PropertyKey::named(text.substr(0, text.rfind('.'))) &&
            PropertyKey::anyName(text.substr(text.rfind('.') + 1)))
            notFound(L10n::format("model.property.object.notFound", {std::string(text.substr(0, text.rfind('.')))}));
        throw PropertyError(PropertyError::Kind::invalid,
                            L10n::format("model.property.path.notDraftProperty", {std::string(text)}));
    }
    return PropertyPath{T{{}, T::draft{}}, *key, std::nullopt, std::nullopt};
}

std::string PropertyPath::description() const {
    const std::string base = effect ? effect->text() : param ? "params." + *param : key.spec().sdk;
    if (const auto* o = std::get_if<Target::object>(&target.cases)) return o->id.description() + "." + base;
    if (const auto* m = std::get_if<Target::media>(&target.cases)) return m->id.description() + "." + base;
    if (const auto* s = std::get_if<Target::section>(&target.cases)) return s->id.description() + ".look." + base;
    return effect ? "look." + base : key.name();
}

} // namespace ovik
