#include "OvikModel/scene/SpaceAccess.h"

#include <algorithm>
#include <cmath>

#include "OvikL10n/L10n.h"
#include "OvikModel/scene/PropertyError.h"
#include "OvikModel/scene/PropertyTargets.h"
#include "OvikModel/scene/PropertyValue.h"
#include "OvikModel/space/SpaceNodePath.h"

namespace ovik {
namespace {

using Target = PropertyPath::Target;
using Part = SpaceField::Part;

[[noreturn]] void refuse(const char* key, std::vector<L10nArgument> arguments) {
    throw PropertyError(PropertyError::Kind::invalid, L10n::format(key, std::move(arguments)));
}

// Where a space row's value lives: the section, the node (none: the whole space), the field.
struct SpacePlace {
    std::size_t section = 0;
    std::optional<SpaceNodePath> node;
    std::string nodeText;
    const SpaceField* field = nullptr;
    /// The section's space, read from the text it is kept as.
    JSONValue space;
};

const SpaceField& fieldOf(const PropertySpec& spec) {
    if (!spec.space) refuse("model.property.spacePath.unknownProperty", {spec.name});
    if (spec.space->key.empty()) refuse("model.property.spacePath.rendererOwned", {spec.name});
    return *spec.space;
}

SpacePlace spacePlace(const Draft& draft, const PropertyPath& path) {
    const PropertySpec& spec = path.key.spec();
    const SpaceField& field = fieldOf(spec);
    const auto* node = std::get_if<Target::spaceNode>(&path.target.cases);
    if (field.onNode() && !node) refuse("model.property.spacePath.nodeRequired", {spec.name});
    if (!field.onNode() && node) refuse("model.property.spacePath.nodeUnneeded", {spec.name});
    SpacePlace place{sectionIndex(draft, node ? node->id : path.target.as<Target::space>().id), std::nullopt, "", &field, {}};
    if (const std::optional<OpaqueJSON>& kept = draft.sections[place.section].space) place.space = kept->value();
    if (!place.space.object()) refuse("model.property.spacePath.sectionRequired", {});
    if (node) {
        place.node = SpaceNodePath::parse(node->node);
        place.nodeText = node->node;
        if (!place.node || !place.node->in(place.space)) refuse("model.property.spacePath.nodeMissing", {node->node});
    }
    return place;
}

// The JSON object that holds the place's field (in its section, when it has one): the node, or
// the whole space. Const or not, as the space is.
template <class Value>
Value& holderIn(Value& space, const SpacePlace& place) {
    return place.node ? *place.node->in(space) : space;
}

// Materials and geometries have types of their own; every other node field goes by the node's.
std::string typeFor(const JSONValue& node, const SpaceField& field) {
    const bool own = field.part == Part::material || field.part == Part::geometry;
    const JSONValue* type = node.at(own ? *field.section + ".type" : "type");
    const std::string* name = type ? type->string() : nullptr;
    return name ? *name : std::string();
}

// A material field needs a typed material; a field with classes, a type among them.
bool has(const std::string& type, const SpaceField& field) {
    if (field.part == Part::material && type.empty()) return false;
    return field.classes.empty() || std::find(field.classes.begin(), field.classes.end(), type) != field.classes.end();
}

void requireField(const JSONValue& node, const SpacePlace& place) {
    const SpaceField& field = *place.field;
    const std::string type = typeFor(node, field);
    if (has(type, field)) return;
    if (field.part == Part::material && type.empty()) refuse("model.space.settings.materialTypeRequired", {});
    refuse("model.space.settings.typeFieldUnknown", {type.empty() ? field.section.value_or(place.nodeText) : type, field.key});
}

// An explicit null stands for absence, as everywhere in a draft.
JSONValue current(const JSONValue& holder, const SpaceField& field) {
    const JSONValue* stored = holder.at(field.place());
    if (stored && !stored->isNull()) return *stored;
    return field.fallback.value_or(JSONValue("none"));
}

bool clears(const SpaceField& field, const JSONValue& value) {
    const std::string* text = value.string();
    return !field.fallback && text && *text == "none";
}

// The key is there: `current` read something other than "none" from it.
void erase(JSONValue& holder, const SpaceField& field) {
    JSONValue* object = field.section ? &holder.object()->find(*field.section)->second : &holder;
    object->object()->erase(field.key);
}

// A list of finite numbers, `count` long unless that is 0.
bool finiteNumbers(const JSONValue& json, std::size_t count) {
    const JSONValue::Array* array = json.array();
    if (!array || (count && array->size() != count)) return false;
    return std::all_of(array->begin(), array->end(), [](const JSONValue& each) {
        double number = 0;
        return each.number(number) && std::isfinite(number);
    });
}

void checkColor(const PropertyValue& value) {
    const std::string* text = value.json.string();
    const bool hex = text && text->starts_with("#") && RGBA::fromHexText(*text);
    if (!hex && !finiteNumbers(value.json, 3)) refuse("model.space.settings.colorInvalid", {value.name});
}

// As many numbers as the fallback holds (any number when it holds none), each in the range.
void checkNumbers(const PropertyValue& value, const PropertySpec& spec) {
    const JSONValue::Array* fallback = spec.space->fallback ? spec.space->fallback->array() : nullptr;
    if (!finiteNumbers(value.json, fallback ? fallback->size() : 0))
        refuse(spec.type == PropertyValueType::vector3 ? "model.space.settings.vectorInvalid"
                                                       : "model.space.settings.numberListRequired",
               {value.name});
    for (const JSONValue& each : *value.json.array()) PropertyValue{value.name, each}.number(spec.range);
}

bool isID(const JSONValue& json) {
    const std::string* text = json.string();
    return text && UUID::parse(*text);
}

// {"media": id} or {"object": id}.
void checkTexture(const PropertyValue& value) {
    const JSONValue::Object* object = value.json.object();
    const bool one = object && object->size() == 1 &&
                     (object->begin()->first == "media" || object->begin()->first == "object") &&
                     isID(object->begin()->second);
    if (!one) refuse("model.space.settings.textureInvalid", {value.name});
}

// Records (recipes, shader params, models, buffers) have no form yet: their checks come with
// the typed space model.
void check(const PropertyValue& value, const PropertySpec& spec) {
    if (!spec.form) refuse("model.property.path.notBuilt", {spec.name});
    switch (*spec.form) {
    case PropertyForm::number: value.number(spec.range); return;
    case PropertyForm::toggle: value.boolean(); return;
    case PropertyForm::choice: value.choice(spec.words); return;
    case PropertyForm::color: checkColor(value); return;
    case PropertyForm::list: checkNumbers(value, spec); return;
    case PropertyForm::file: checkTexture(value); return;
    default: break;
    }
    // A text: any, or a picture's id for a row of pictures.
    if (spec.type != PropertyValueType::image) value.text();
    else if (!isID(value.json)) refuse("model.space.settings.imageIDRequired", {value.name});
}

} // namespace

std::optional<JSONValue> spaceValue(const Draft& draft, const PropertyPath& path) {
    const SpacePlace place = spacePlace(draft, path);
    const JSONValue& holder = holderIn(place.space, place);
    if (place.node && !has(typeFor(holder, *place.field), *place.field)) return std::nullopt;
    return current(holder, *place.field);
}

std::optional<std::string> setSpace(Draft& draft, const JSONValue& value, const PropertyPath& path) {
    const PropertySpec& spec = path.key.spec();
    SpacePlace place = spacePlace(draft, path);
    const SpaceField& field = *place.field;
    JSONValue space = std::move(place.space);
    JSONValue& holder = holderIn(space, place);
    if (place.node) requireField(holder, place);
    if (current(holder, field).same(value)) return std::nullopt;
    if (clears(field, value)) {
        erase(holder, field);
    } else {
        check(PropertyValue{spec.title(), value}, spec);
        holder = holder.setting(field.place(), value);
    }
    draft.sections.mutableItems()[place.section].space = OpaqueJSON(space);
    return L10n::format("model.property.undo.set", {spec.title()});
}

} // namespace ovik
