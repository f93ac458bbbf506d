#pragma once
// Accesses made from a stored field: the field's type decides how its value is written in the
// property language and which reader takes a new one, so a row over a plain field is one line.
#include <memory>

#include "OvikModel/Draft.h"
#include "OvikModel/scene/PropertyAccess.h"
#include "OvikModel/scene/PropertySpec.h"
#include "OvikModel/scene/PropertyValue.h"

namespace ovik {

template <class T>
struct PropertyFieldForm;

template <>
struct PropertyFieldForm<double> {
    static JSONValue read(double value) { return JSONValue(value); }
    static double take(const PropertyValue& value, const PropertySpec& spec) { return value.number(spec.range); }
};
template <>
struct PropertyFieldForm<bool> {
    static JSONValue read(bool value) { return JSONValue(value); }
    static bool take(const PropertyValue& value, const PropertySpec&) { return value.boolean(); }
};
template <>
struct PropertyFieldForm<std::string> {
    static JSONValue read(const std::string& value) { return JSONValue(value); }
    static std::string take(const PropertyValue& value, const PropertySpec&) { return value.text(); }
};
template <>
struct PropertyFieldForm<RGBA> {
    static JSONValue read(const RGBA& value) { return JSONValue(value.hexText()); }
    static RGBA take(const PropertyValue& value, const PropertySpec&) { return value.color(); }
};
template <>
struct PropertyFieldForm<std::optional<RGBA>> {
    static JSONValue read(const std::optional<RGBA>& value) { return JSONValue(value ? value->hexText() : "none"); }
    static std::optional<RGBA> take(const PropertyValue& value, const PropertySpec&) { return value.colorOrNone(); }
};
template <NamedEnum E>
struct PropertyFieldForm<E> {
    static JSONValue read(E value) { return JSONValue(std::string(caseName(value))); }
    static E take(const PropertyValue& value, const PropertySpec& spec) {
        E out{};
        enumCases(static_cast<E*>(nullptr)).find(value.choice(spec.words), out);
        return out;
    }
};

/// A choice whose plain case (the first) is stored as absence: "normal" blending is no blend.
template <NamedEnum E>
struct PropertyFieldForm<std::optional<E>> {
    static JSONValue read(const std::optional<E>& value) { return PropertyFieldForm<E>::read(value.value_or(E{})); }
    static std::optional<E> take(const PropertyValue& value, const PropertySpec& spec) {
        const E out = PropertyFieldForm<E>::take(value, spec);
        return out == E{} ? std::nullopt : std::optional<E>(out);
    }
};

/// Every case name of an enumeration, in its order: the words of a choice over it.
template <NamedEnum E>
std::vector<std::string> caseWords() {
    std::vector<std::string> words;
    for (const auto& [value, name] : enumCases(static_cast<E*>(nullptr)).cases) words.emplace_back(name);
    return words;
}

/// A row over `field` of the draft's record `record` (or of the draft itself).
template <class Record, class T>
std::shared_ptr<const SectionAccess> draftField(Record Draft::*record, T Record::*field) {
    return std::make_shared<const SectionAccess>(SectionAccess{
        [record, field](const Draft& draft) -> std::optional<JSONValue> {
            return PropertyFieldForm<T>::read(draft.*record.*field);
        },
        [record, field](Draft& draft, const PropertyValue& value, const PropertySpec& spec) {
            draft.*record.*field = PropertyFieldForm<T>::take(value, spec);
        }});
}
template <class T>
std::shared_ptr<const SectionAccess> draftField(T Draft::*field) {
    return std::make_shared<const SectionAccess>(SectionAccess{
        [field](const Draft& draft) -> std::optional<JSONValue> { return PropertyFieldForm<T>::read(draft.*field); },
        [field](Draft& draft, const PropertyValue& value, const PropertySpec& spec) {
            draft.*field = PropertyFieldForm<T>::take(value, spec);
        }});
}

/// A row over `field` of each media.
template <class T>
std::shared_ptr<const MediaAccess> mediaField(T Media::*field) {
    return std::make_shared<const MediaAccess>(MediaAccess{
        [field](const Media& media) -> std::optional<JSONValue> { return PropertyFieldForm<T>::read(media.*field); },
        [field](Media& media, const PropertyValue& value, const PropertySpec& spec) {
            media.*field = PropertyFieldForm<T>::take(value, spec);
        }});
}

/// A row over `field` of every node.
template <class T>
std::shared_ptr<const ObjectAccess> nodeField(T ObjectNode::*field) {
    return std::make_shared<const ObjectAccess>(ObjectAccess{
        {},
        [field](const ObjectNode& node) -> std::optional<JSONValue> { return PropertyFieldForm<T>::read(node.*field); },
        [field](ObjectNode& node, const PropertyValue& value, const PropertySpec& spec) {
            node.*field = PropertyFieldForm<T>::take(value, spec);
        }});
}

} // namespace ovik
