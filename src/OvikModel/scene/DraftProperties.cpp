#include "OvikModel/scene/DraftProperties.h"

#include <algorithm>

#include "OvikL10n/L10n.h"
#include "OvikModel/objects/ObjectWalks.h"
#include "OvikModel/scene/AnnotationAccess.h"
#include "OvikModel/scene/EffectAccess.h"
#include "OvikModel/scene/PropertyError.h"
#include "OvikModel/scene/PropertyTargets.h"
#include "OvikModel/scene/SpaceAccess.h"
#include "OvikModel/scene/PropertyValue.h"

namespace ovik {
namespace {

[[noreturn]] void refuse(const char* key, std::vector<L10nArgument> arguments) {
    throw PropertyError(PropertyError::Kind::invalid, L10n::format(key, arguments));
}

std::string undoName(const PropertySpec& spec) { return L10n::format("model.property.undo.set", {spec.title()}); }

// Generator parameters are built later.
void refuseGeneratorParam(const PropertyPath& path) {
    if (path.param) refuse("model.property.path.notBuilt", {path.description()});
}

bool applies(const ObjectAccess& access, const ObjectNode& node) {
    if (!access.leaves) return true;
    const Annotation* annotation = node.annotation();
    return annotation && access.leaves(*annotation);
}

const ObjectNode& nodeOf(const Draft& draft, ObjectID id) {
    const ObjectNode* found = node(draft.objects, id);
    if (!found)
        throw PropertyError(PropertyError::Kind::notFound, L10n::format("model.property.object.notFound", {id.description()}));
    return *found;
}

// The nodes a write reaches: the node itself, or for a row of some leaves, the leaves under it
// that have the property.
std::vector<ObjectID> reached(const Draft& draft, const ObjectNode& target, const ObjectAccess& access,
                              const PropertySpec& spec) {
    if (!access.leaves) return {target.id};
    std::vector<ObjectID> out;
    forEachLeaf(draft.objects, {target.id}, false, [&](const ObjectNode& leaf) {
        if (applies(access, leaf)) out.push_back(leaf.id);
    });
    if (out.empty())
        refuse("model.property.path.unsupportedKind",
               {L10n::format("model.property.quotedName", {target.name}), spec.title(), kindsHavingIt(access)});
    return out;
}

std::optional<std::string> setOnObject(Draft& draft, const JSONValue& value, ObjectID id, const PropertySpec& spec) {
    if (!spec.objectAccess) {
        if (spec.motion) refuse("model.property.path.actionOnly", {spec.title(), spec.name});
        refuse("model.property.path.notObjectProperty", {spec.name});
    }
    const ObjectAccess& access = *spec.objectAccess;
    const std::vector<ObjectID> ids = reached(draft, nodeOf(draft, id), access, spec);
    const bool same = std::all_of(ids.begin(), ids.end(), [&](ObjectID each) {
        const auto current = access.read(nodeOf(draft, each));
        return current && current->same(value);
    });
    if (same) return std::nullopt;
    Draft edited = draft;
    const PropertyValue offered{spec.title(), value};
    for (const ObjectID each : ids)
        updateNode(edited.objects.mutableItems(), each, [&](ObjectNode& node) { access.write(node, offered, spec); });
    draft = std::move(edited);
    return undoName(spec);
}

std::optional<std::string> setOnMedia(Draft& draft, const JSONValue& value, MediaID id, const PropertySpec& spec) {
    if (!spec.mediaAccess) refuse("model.property.path.notMediaProperty", {spec.name});
    const std::size_t index = mediaIndex(draft, id);
    const auto current = spec.mediaAccess->read(draft.media[index]);
    if (current && current->same(value)) return std::nullopt;
    std::vector<Media> media = draft.media.items();
    spec.mediaAccess->write(media[index], PropertyValue{spec.title(), value}, spec);
    draft.media = CowList<Media>(std::move(media));
    return undoName(spec);
}

std::optional<std::string> setOnDraft(Draft& draft, const JSONValue& value, const PropertySpec& spec) {
    if (!spec.sectionAccess) refuse("model.property.path.notDraftProperty", {spec.name});
    const auto current = spec.sectionAccess->read(draft);
    if (current && current->same(value)) return std::nullopt;
    Draft edited = draft;
    spec.sectionAccess->write(edited, PropertyValue{spec.title(), value}, spec);
    draft = std::move(edited);
    return undoName(spec);
}

// The row's own write, by where the path stands.
std::optional<std::string> written(Draft& draft, const JSONValue& value, const PropertyPath& path) {
    if (path.effect) return setEffect(draft, value, path);
    refuseGeneratorParam(path);
    const PropertySpec& spec = path.key.spec();
    using T = PropertyPath::Target;
    if (const auto* object = std::get_if<T::object>(&path.target.cases)) return setOnObject(draft, value, object->id, spec);
    if (const auto* media = std::get_if<T::media>(&path.target.cases)) return setOnMedia(draft, value, media->id, spec);
    if (path.target.is<T::space>() || path.target.is<T::spaceNode>()) return setSpace(draft, value, path);
    if (path.target.is<T::section>()) refuse("model.property.path.notLookProperty", {spec.name});
    return setOnDraft(draft, value, spec);
}

} // namespace

std::optional<JSONValue> propertyValue(const Draft& draft, const PropertyPath& path) {
    if (path.effect) return effectValue(draft, path);
    refuseGeneratorParam(path);
    const PropertySpec& spec = path.key.spec();
    using T = PropertyPath::Target;
    if (const auto* object = std::get_if<T::object>(&path.target.cases)) {
        const ObjectNode& target = nodeOf(draft, object->id);
        if (!spec.objectAccess || !applies(*spec.objectAccess, target)) return std::nullopt;
        return spec.objectAccess->read(target);
    }
    if (const auto* media = std::get_if<T::media>(&path.target.cases)) {
        const std::size_t index = mediaIndex(draft, media->id);
        return spec.mediaAccess ? spec.mediaAccess->read(draft.media[index]) : std::nullopt;
    }
    if (path.target.is<T::space>() || path.target.is<T::spaceNode>()) return spaceValue(draft, path);
    if (path.target.is<T::draft>() && spec.sectionAccess) return spec.sectionAccess->read(draft);
    return std::nullopt;
}

std::optional<std::string> setProperty(Draft& draft, const JSONValue& value, const PropertyPath& path) {
    // A value that differs from the stored one only below what is stored (an offset finer than a
    // microsecond) changes nothing, though the comparison before the write can't see that.
    const Draft before = draft;
    const std::optional<std::string> undo = written(draft, value, path);
    if (undo && draft == before) return std::nullopt;
    return undo;
}

} // namespace ovik
