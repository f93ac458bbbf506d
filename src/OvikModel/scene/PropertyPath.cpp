#include "OvikModel/scene/PropertyPath.h"

#include <algorithm>

#include "OvikL10n/L10n.h"
#include "OvikModel/Draft.h"
#include "OvikModel/objects/ObjectWalks.h"
#include "OvikModel/scene/PropertyError.h"
#include "OvikModel/scene/PropertyTable.h"
#include "OvikModel/space/SpaceNodePath.h"

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

// A space row's text after the space or node: the field's place in the space's JSON, or the
// row's script name for a value the renderer works out.
std::string spaceText(const PropertySpec& spec) {
    return spec.space && !spec.space->key.empty() ? spec.space->place() : spec.sdk;
}

std::optional<PropertyKey> spaceKey(std::string_view text) {
    const std::string dotted = "space." + std::string(text);
    for (const PropertyKey key : PropertyTable::spaceKeys())
        if (text == spaceText(key.spec()) || key.spec().name == dotted) return key;
    return std::nullopt;
}

// A field of the whole space, or a node's path and a field of it. Whether the field belongs to
// a node is left to reading and writing, which say so.
PropertyPath spaceMember(SectionID section, std::string_view text) {
    using T = PropertyPath::Target;
    if (const auto key = spaceKey(text)) return PropertyPath{T{{}, T::space{section}}, *key, std::nullopt, std::nullopt};
    if (const auto node = SpaceNodePath::leading(text); node && node->second < text.size())
        if (const auto key = spaceKey(text.substr(node->second + 1)))
            return PropertyPath{T{{}, T::spaceNode{section, std::string(text.substr(0, node->second))}}, *key,
                                std::nullopt, std::nullopt};
    throw PropertyError(PropertyError::Kind::invalid,
                        L10n::format("model.property.spacePath.unknownProperty", {std::string(text)}));
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
        if (rest.starts_with("space.")) return spaceMember(*section, rest.substr(6));
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
    if (const auto* s = std::get_if<Target::space>(&target.cases))
        return s->id.description() + ".space." + spaceText(key.spec());
    if (const auto* s = std::get_if<Target::spaceNode>(&target.cases))
        return s->id.description() + ".space." + s->node + "." + spaceText(key.spec());
    return effect ? "look." + base : key.name();
}

} // namespace ovik
