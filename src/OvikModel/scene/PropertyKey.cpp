#include "OvikModel/scene/PropertyKey.h"

#include <cstdio>
#include <cstdlib>
#include <unordered_map>

#include "OvikModel/scene/PropertyTable.h"
#include "OvikPlatform/json/DecodingError.h"

namespace ovik {
namespace {

// Look-up only, never walked, so hash order can't reach any output. The views point into the
// table's own rows, which live as long as the program.
using Names = std::unordered_map<std::string_view, PropertyKey>;

const Names& byName() {
    static const Names names = [] {
        Names out;
        for (const PropertyKey key : PropertyTable::allKeys()) out.emplace(key.spec().name, key);
        return out;
    }();
    return names;
}

const Names& animatableByName() {
    static const Names names = [] {
        Names out;
        for (const PropertyKey key : PropertyTable::animatable()) {
            out.emplace(key.spec().sdk, key);
            out.emplace(key.spec().name, key);
        }
        return out;
    }();
    return names;
}

std::optional<PropertyKey> find(const Names& names, std::string_view name) {
    const auto found = names.find(name);
    if (found == names.end()) return std::nullopt;
    return found->second;
}

// A key that code names by hand: a missing row is a fault of the table, found at first use.
PropertyKey fixed(std::string_view name) {
    const auto key = PropertyKey::named(name);
    if (!key) {
        std::fprintf(stderr, "ovik: the property table has no row %.*s\n", int(name.size()), name.data());
        std::abort();
    }
    return *key;
}

} // namespace

const PropertySpec& PropertyKey::spec() const { return PropertyTable::specs()[id]; }
const PropertySlot* PropertyKey::slotTable() { return PropertyTable::slots().data(); }

std::optional<PropertyKey> PropertyKey::named(std::string_view name) { return find(byName(), name); }
std::optional<PropertyKey> PropertyKey::action(std::string_view name) { return find(animatableByName(), name); }

std::optional<PropertyKey> PropertyKey::anyName(std::string_view name) {
    if (auto key = action(name)) return key;
    if (name == "cursorPoint") return cursorPoint();
    return named(name);
}

std::optional<PropertyKey> PropertyKey::inGroup(PropertyGroup group, std::string_view sdk) {
    for (const PropertyKey key : PropertyTable::allKeys())
        if (key.spec().group == group && key.spec().sdk == sdk) return key;
    return std::nullopt;
}

#define OVIK_FIXED_KEY(function, name)                                                                                 \
    PropertyKey PropertyKey::function() {                                                                              \
        static const PropertyKey key = fixed(name);                                                                    \
        return key;                                                                                                    \
    }
OVIK_FIXED_KEY(position, "position")
OVIK_FIXED_KEY(depth, "depth")
OVIK_FIXED_KEY(scale, "scale")
OVIK_FIXED_KEY(stretchX, "stretchX")
OVIK_FIXED_KEY(stretchY, "stretchY")
OVIK_FIXED_KEY(skew, "skew")
OVIK_FIXED_KEY(rotation, "rotation")
OVIK_FIXED_KEY(rotationX, "rotationX")
OVIK_FIXED_KEY(rotationY, "rotationY")
OVIK_FIXED_KEY(opacity, "opacity")
OVIK_FIXED_KEY(blur, "blur")
OVIK_FIXED_KEY(color, "color")
OVIK_FIXED_KEY(strokeProgress, "strokeProgress")
OVIK_FIXED_KEY(strokeStart, "strokeStart")
OVIK_FIXED_KEY(strokeOffset, "strokeOffset")
OVIK_FIXED_KEY(reveal, "reveal")
OVIK_FIXED_KEY(text, "text")
OVIK_FIXED_KEY(number, "number")
OVIK_FIXED_KEY(path, "path")
OVIK_FIXED_KEY(arrangeAngle, "arrangeAngle")
OVIK_FIXED_KEY(arrangeInterval, "arrangeInterval")
OVIK_FIXED_KEY(backOpacity, "backOpacity")
OVIK_FIXED_KEY(backTint, "backTint")
OVIK_FIXED_KEY(become, "become")
OVIK_FIXED_KEY(orbit, "lens.orbit")
OVIK_FIXED_KEY(tilt, "lens.tilt")
OVIK_FIXED_KEY(dolly, "lens.dolly")
OVIK_FIXED_KEY(focus, "lens.focus")
OVIK_FIXED_KEY(aperture, "lens.aperture")
OVIK_FIXED_KEY(fontWeight, "weight")
OVIK_FIXED_KEY(fontWidth, "width")
OVIK_FIXED_KEY(fontSlant, "slant")
OVIK_FIXED_KEY(fontAxis, "axis")
OVIK_FIXED_KEY(roughness, "material.roughness")
OVIK_FIXED_KEY(metalness, "material.metalness")
OVIK_FIXED_KEY(emissiveIntensity, "material.emissiveIntensity")
OVIK_FIXED_KEY(effect, "effects")
OVIK_FIXED_KEY(gradientAngle, "gradientAngle")
OVIK_FIXED_KEY(param, "param")
OVIK_FIXED_KEY(center, "center")
OVIK_FIXED_KEY(bounds, "bounds")
OVIK_FIXED_KEY(tip, "tip")
OVIK_FIXED_KEY(cursorPoint, "cursor.point")
#undef OVIK_FIXED_KEY

PropertyKey JSONCoding<PropertyKey>::decode(JSONNode node, const CodingPath& path) {
    json_detail::expect(node, JSONNode::Kind::string, path, "String");
    const std::string_view name = node.string();
    if (const auto key = PropertyKey::anyName(name)) return *key;
    throw DecodingError::dataCorrupted(path, std::string(name) + " is not a property");
}

} // namespace ovik
