#pragma once
// One row of the property table: a property's names, its title and help (as keys of the text
// table, looked up in the language in force), its value form and range, where it may stand,
// whether it can be driven, and how actions compose on it.
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "OvikModel/scene/PropertyAccess.h"
#include "OvikModel/scene/PropertyMotion.h"
#include "OvikModel/space/SpaceField.h"
#include "OvikPlatform/Enumeration.h"

namespace ovik {

enum class PropertyGroup {
    object, style, cursor, zoomSettings, camera, audio, keys, captions, screenshotAnimation, layout, motion, space
};
constexpr auto enumCases(PropertyGroup*) {
    using enum PropertyGroup;
    return EnumCases<PropertyGroup, 12>{"PropertyGroup",
                                        {{object, "object"},
                                         {style, "style"},
                                         {cursor, "cursor"},
                                         {zoomSettings, "zoomSettings"},
                                         {camera, "camera"},
                                         {audio, "audio"},
                                         {keys, "keys"},
                                         {captions, "captions"},
                                         {screenshotAnimation, "screenshotAnimation"},
                                         {layout, "layout"},
                                         {motion, "motion"},
                                         {space, "space"}}};
}

enum class PropertyTargetKind : std::uint8_t { object, media, lens, look, spaceObject, transition, draft };
constexpr auto enumCases(PropertyTargetKind*) {
    using enum PropertyTargetKind;
    return EnumCases<PropertyTargetKind, 7>{"PropertyTargetKind",
                                            {{object, "object"},
                                             {media, "media"},
                                             {lens, "lens"},
                                             {look, "look"},
                                             {spaceObject, "spaceObject"},
                                             {transition, "transition"},
                                             {draft, "draft"}}};
}

/// What a property's value is.
enum class PropertyValueType { number, angle, vector2, vector3, color, text, choice, flag, path, image, rect };
constexpr auto enumCases(PropertyValueType*) {
    using enum PropertyValueType;
    return EnumCases<PropertyValueType, 11>{"ValueType",
                                            {{number, "number"},
                                             {angle, "angle"},
                                             {vector2, "vector2"},
                                             {vector3, "vector3"},
                                             {color, "color"},
                                             {text, "text"},
                                             {choice, "choice"},
                                             {flag, "flag"},
                                             {path, "path"},
                                             {image, "image"},
                                             {rect, "rect"}}};
}

/// How the value is written, for reading and checking it generically.
enum class PropertyForm {
    choice, toggle, list, objectOrOff, number, seconds, color, colorOrNone, text, rectOrNone, pointOrNone, pointsOrNone, file
};

struct PropertySpec {
    /// Dotted, unique over the table: "style.padding", "cursor.point", "position".
    std::string name;
    /// The short name of scripts and path texts.
    std::string sdk;
    PropertyGroup group = PropertyGroup::object;
    std::string titleKey;
    std::string helpKey;
    /// The command-line option, "--" form, or empty.
    std::string option;
    std::optional<PropertyForm> form;
    PropertyValueType type = PropertyValueType::number;
    std::optional<std::string> unit;
    std::optional<std::pair<double, double>> range;
    std::vector<PropertyTargetKind> targets;
    bool drivable = false;
    /// Computed, never stored.
    bool derived = false;
    std::optional<PropertyMotion> motion;
    /// Choice words, for a choice.
    std::vector<std::string> words;
    /// How it is read and written on objects, on the draft, or on media; none for a row that
    /// only actions move.
    std::shared_ptr<const ObjectAccess> objectAccess;
    std::shared_ptr<const SectionAccess> sectionAccess;
    std::shared_ptr<const MediaAccess> mediaAccess;
    /// Where a space row lives in a section's space; read and written there.
    std::optional<SpaceField> space;

    bool isAnimatable() const { return motion.has_value(); }
    /// A space row writes when something stores it and its form is one a write can check.
    bool writes() const {
        return objectAccess || sectionAccess || mediaAccess || (space && !space->key.empty() && form);
    }
    bool standsOn(PropertyTargetKind kind) const;
    /// Whether a write on a target of `kind` reaches the row. Space rows stand on the draft but
    /// are written on a section's space, so the draft itself writes only its own settings.
    bool writesOn(PropertyTargetKind kind) const;
    /// The title and help in the language in force.
    std::string title() const;
    std::string help() const;
};

} // namespace ovik
