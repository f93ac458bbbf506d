#pragma once
// A property of the table, by its row's index. Stable within one run only: keys are stored
// and written by name, never by number. JSON form: the row's name.
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "OvikModel/scene/PropertySpec.h"
#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct PropertyKey {
    std::uint16_t id = 0;

    /// The row of this key, and what evaluation needs of it.
    const PropertySpec& spec() const;
    /// Read per action per frame: one look-up in a table made once.
    const PropertySlot& slot() const {
        static const PropertySlot* const table = slotTable();
        return table[id];
    }
    const std::string& name() const { return spec().name; }

    /// A row by its dotted name.
    static std::optional<PropertyKey> named(std::string_view name);
    /// An animatable row by its script name or its dotted name.
    static std::optional<PropertyKey> action(std::string_view name);
    /// Any row: an animatable one by either name, any other by its dotted name; "cursorPoint"
    /// stands for "cursor.point".
    static std::optional<PropertyKey> anyName(std::string_view name);
    /// A row of a group by its script name: "padding" of the style group.
    static std::optional<PropertyKey> inGroup(PropertyGroup group, std::string_view sdk);

    // The keys that code names by hand.
    static PropertyKey position();
    static PropertyKey depth();
    static PropertyKey scale();
    static PropertyKey stretchX();
    static PropertyKey stretchY();
    static PropertyKey skew();
    static PropertyKey rotation();
    static PropertyKey rotationX();
    static PropertyKey rotationY();
    static PropertyKey opacity();
    static PropertyKey blur();
    static PropertyKey color();
    static PropertyKey strokeProgress();
    static PropertyKey strokeStart();
    static PropertyKey strokeOffset();
    static PropertyKey reveal();
    static PropertyKey text();
    static PropertyKey number();
    static PropertyKey path();
    static PropertyKey arrangeAngle();
    static PropertyKey arrangeInterval();
    static PropertyKey backOpacity();
    static PropertyKey backTint();
    static PropertyKey become();
    static PropertyKey orbit();
    static PropertyKey tilt();
    static PropertyKey dolly();
    static PropertyKey focus();
    static PropertyKey aperture();
    static PropertyKey fontWeight();
    static PropertyKey fontWidth();
    static PropertyKey fontSlant();
    static PropertyKey fontAxis();
    static PropertyKey roughness();
    static PropertyKey metalness();
    static PropertyKey emissiveIntensity();
    static PropertyKey effect();
    static PropertyKey gradientAngle();
    static PropertyKey param();
    static PropertyKey center();
    static PropertyKey bounds();
    static PropertyKey tip();
    static PropertyKey cursorPoint();

    auto operator<=>(const PropertyKey&) const = default;

private:
    static const PropertySlot* slotTable();
};

template <>
struct JSONCoding<PropertyKey> {
    static JSONValue encode(PropertyKey key) { return JSONValue(key.name()); }
    static PropertyKey decode(JSONNode node, const CodingPath& path);
};

} // namespace ovik
