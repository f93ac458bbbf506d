#pragma once
// The sixteen kinds of annotation, in the order of the cases of `Annotation`.
#include <string>

#include "OvikPlatform/Enumeration.h"

namespace ovik {

enum class AnnotationKind {
    rectangle,
    ellipse,
    arrow,
    line,
    pen,
    text,
    counter,
    redact,
    spotlight,
    magnifier,
    sticker,
    path,
    followPoint,
    particles,
    solid,
    generator
};

constexpr auto enumCases(AnnotationKind*) {
    using enum AnnotationKind;
    return EnumCases<AnnotationKind, 16>{"AnnotationKind",
                                         {{rectangle, "rectangle"},
                                          {ellipse, "ellipse"},
                                          {arrow, "arrow"},
                                          {line, "line"},
                                          {pen, "pen"},
                                          {text, "text"},
                                          {counter, "counter"},
                                          {redact, "redact"},
                                          {spotlight, "spotlight"},
                                          {magnifier, "magnifier"},
                                          {sticker, "sticker"},
                                          {path, "path"},
                                          {followPoint, "followPoint"},
                                          {particles, "particles"},
                                          {solid, "solid"},
                                          {generator, "generator"}}};
}

/// The name a person sees for the kind, in the language in force.
std::string displayName(AnnotationKind kind);

/// The name a person sees for a group.
std::string groupDisplayName();

} // namespace ovik
