#pragma once
// Accesses to what annotations hold. A row of some kinds reaches only leaves of those kinds,
// and a row over a field that several payload records share is one line: the field is named
// in each record, and its type decides how it is read and taken.
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "OvikModel/scene/PropertyField.h"

namespace ovik {

/// One annotation of each kind, in the order of the kinds: what a row's kinds are tested on.
const std::vector<Annotation>& annotationSamples();

/// The display names of the kinds whose sample has the property, as one list.
std::string kindsHavingIt(const ObjectAccess& access);

/// Whether an annotation is of one of `kinds`.
std::function<bool(const Annotation&)> ofKinds(std::vector<AnnotationKind> kinds);

/// Calls `visit` with the annotation's payload when that is a `Record` or derives from one;
/// answers whether it did.
template <class Record, class A, class Visit>
bool withRecord(A& annotation, Visit&& visit) {
    return std::visit(
        [&](auto& each) {
            if constexpr (std::is_base_of_v<Record, std::remove_cvref_t<decltype(each.value)>>) {
                visit(each.value);
                return true;
            } else {
                return false;
            }
        },
        annotation.cases);
}

/// Calls `visit` with the annotation's `field` when its payload has it; answers whether it did.
template <class Record, class A, class T, class Visit>
bool withField(A& annotation, T Record::*field, Visit&& visit) {
    return withRecord<Record>(annotation, [&](auto& payload) { visit(payload.*field); });
}

/// An access to leaves of `kinds`, read and written on their annotation.
std::shared_ptr<const ObjectAccess> annotationAccess(
    std::vector<AnnotationKind> kinds, std::function<std::optional<JSONValue>(const Annotation&)> read,
    std::function<void(Annotation&, const PropertyValue&, const PropertySpec&)> write);

/// An access to a value of type `T` that the payloads of `kinds` hold at `fields` (one per
/// record type), read and written by `read` and `write`.
template <class T, class... Records>
std::shared_ptr<const ObjectAccess> annotationPart(std::vector<AnnotationKind> kinds,
                                                   std::function<std::optional<JSONValue>(const T&)> read,
                                                   std::function<void(T&, const PropertyValue&, const PropertySpec&)> write,
                                                   T Records::*... fields) {
    return annotationAccess(
        std::move(kinds),
        [read, fields...](const Annotation& annotation) {
            std::optional<JSONValue> out;
            (withField(annotation, fields, [&](const T& field) { out = read(field); }) || ...);
            return out;
        },
        [write, fields...](Annotation& annotation, const PropertyValue& value, const PropertySpec& spec) {
            (withField(annotation, fields, [&](T& field) { write(field, value, spec); }) || ...);
        });
}

/// A row over a plain field of the payloads of `kinds`.
template <class T, class... Records>
std::shared_ptr<const ObjectAccess> annotationField(std::vector<AnnotationKind> kinds, T Records::*... fields) {
    return annotationPart<T>(
        std::move(kinds), [](const T& field) -> std::optional<JSONValue> { return PropertyFieldForm<T>::read(field); },
        [](T& field, const PropertyValue& value, const PropertySpec& spec) {
            field = PropertyFieldForm<T>::take(value, spec);
        },
        fields...);
}

/// The paint of shapes and paths: on or off, its colour, and the gradient's parts.
std::shared_ptr<const ObjectAccess> fillAccess();
std::shared_ptr<const ObjectAccess> fillColorAccess();
std::shared_ptr<const ObjectAccess> gradientAccess();
/// The gradient's first colour, or with `last` its second.
std::shared_ptr<const ObjectAccess> gradientColorAccess(bool last);
std::shared_ptr<const ObjectAccess> gradientAngleAccess();

/// Whether a line bends through middle points.
std::shared_ptr<const ObjectAccess> throughAccess();
/// A text's font size, a counter's diameter, or the width of a line or an outline.
std::shared_ptr<const ObjectAccess> sizeAccess();
/// A text's font by name.
std::shared_ptr<const ObjectAccess> fontAccess();
/// A text's weight: a word ("regular" … "bold"), or a number on a variable font's weight axis.
std::shared_ptr<const ObjectAccess> fontWeightAccess();
/// A text's place on the variable font axis `tag`; `normal` where it has none.
std::shared_ptr<const ObjectAccess> fontAxisAccess(const char* tag, double normal);

} // namespace ovik
