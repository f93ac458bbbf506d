#include "OvikModel/scene/PropertyTable.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <set>
#include <string>

#include "OvikModel/scene/PropertyRows.h"

namespace ovik {
namespace {

// A fault in the table itself is the program's, found at its first use.
[[noreturn]] void tableFault(const std::string& what) {
    std::fprintf(stderr, "ovik: the property table is broken: %s\n", what.c_str());
    std::abort();
}

PropertyStore storeFor(const PropertyMotion& motion, int& numbers, int& colors, int& latest) {
    using K = PropertyStore::Kind;
    switch (motion.domain) {
    case PropertyDomain::font: return {K::fontAxis, 0};
    case PropertyDomain::effect: return {K::effect, 0};
    case PropertyDomain::generator: return {K::param, 0};
    default: break;
    }
    if (motion.valueKind == ActionValue::Kind::vector) return {K::number, (numbers += 2) - 2};
    if (motion.valueKind == ActionValue::Kind::color) return {K::color, colors++};
    if (motion.composition == PropertyComposition::latest) return {K::latest, latest++};
    return {K::number, numbers++};
}

// Every row once, names checked unique, stores given in order.
std::vector<PropertySpec> assigned(std::vector<PropertySpec> rows) {
    std::set<std::string> seen;
    int numbers = 0, colors = 0, latest = 0;
    for (PropertySpec& row : rows) {
        if (!seen.insert(row.name).second) tableFault("the name " + row.name + " repeats");
        if (row.motion) row.motion->store = storeFor(*row.motion, numbers, colors, latest);
    }
    if (numbers > PropertyTable::numberPlaces || colors > PropertyTable::colorPlaces ||
        latest > PropertyTable::latestPlaces)
        tableFault("more animated places than an action state holds");
    if (rows.size() > 0xFFFF) tableFault("more rows than a key can number");
    return rows;
}

std::vector<PropertySpec> allRows() {
    std::vector<PropertySpec> rows;
    for (auto&& group : {objectPropertyRows(), sectionPropertyRows(), spacePropertyRows(), derivedPropertyRows()})
        rows.insert(rows.end(), group.begin(), group.end());
    return assigned(std::move(rows));
}

std::vector<PropertySlot> slotsOf(const std::vector<PropertySpec>& specs) {
    std::vector<PropertySlot> out;
    int rank = 0;
    for (const PropertySpec& spec : specs) {
        PropertySlot slot;
        if (spec.motion) {
            slot = {spec.motion->composition, spec.motion->valueKind, spec.motion->clamp, spec.motion->store,
                    spec.motion->domain,      true,                   rank++};
        }
        out.push_back(slot);
    }
    return out;
}

// The keys of the rows that pass `test`, in table order.
template <class Test>
std::vector<PropertyKey> keysWhere(Test test) {
    std::vector<PropertyKey> out;
    for (const PropertyKey key : PropertyTable::allKeys())
        if (test(key.spec())) out.push_back(key);
    return out;
}

bool configures(PropertyDomain domain) { return domain != PropertyDomain::motion && domain != PropertyDomain::become; }

} // namespace

const std::vector<PropertySpec>& PropertyTable::specs() {
    static const std::vector<PropertySpec> table = allRows();
    return table;
}

const std::vector<PropertySlot>& PropertyTable::slots() {
    static const std::vector<PropertySlot> table = slotsOf(specs());
    return table;
}

const std::vector<PropertyKey>& PropertyTable::allKeys() {
    static const std::vector<PropertyKey> keys = [] {
        std::vector<PropertyKey> out(specs().size());
        for (std::size_t i = 0; i < out.size(); ++i) out[i].id = std::uint16_t(i);
        return out;
    }();
    return keys;
}

std::vector<PropertyKey> PropertyTable::keys(PropertyGroup group) {
    return keysWhere([group](const PropertySpec& spec) { return spec.group == group; });
}

const std::vector<PropertyKey>& PropertyTable::animatable() {
    static const std::vector<PropertyKey> keys = keysWhere([](const PropertySpec& spec) { return spec.isAnimatable(); });
    return keys;
}

const std::vector<PropertyKey>& PropertyTable::spaceKeys() {
    static const std::vector<PropertyKey> keys =
        keysWhere([](const PropertySpec& spec) { return spec.space.has_value(); });
    return keys;
}

std::vector<PropertyKey> PropertyTable::writableKeys(PropertyTargetKind target) {
    return keysWhere([target](const PropertySpec& spec) { return spec.standsOn(target) && spec.writesOn(target); });
}

const std::array<double, PropertyTable::numberPlaces>& PropertyTable::restNumbers() {
    static const std::array<double, numberPlaces> rest = [] {
        std::array<double, numberPlaces> out{};
        for (const NumberComposition& place : numberComposition()) out[std::size_t(place.index)] = place.multiplies ? 1 : 0;
        return out;
    }();
    return rest;
}

const std::vector<PropertyTable::NumberComposition>& PropertyTable::numberComposition() {
    static const std::vector<NumberComposition> places = [] {
        std::vector<NumberComposition> out;
        for (const PropertySlot& slot : slots()) {
            if (slot.store.kind != PropertyStore::Kind::number) continue;
            const bool multiplies = slot.composition == PropertyComposition::multiplicative;
            out.push_back({slot.store.index, multiplies});
            if (slot.valueKind == ActionValue::Kind::vector) out.push_back({slot.store.index + 1, multiplies});
        }
        return out;
    }();
    return places;
}

const std::vector<int>& PropertyTable::settingNumberSlots() {
    static const std::vector<int> places = [] {
        std::vector<int> out;
        for (const PropertySlot& slot : slots())
            if (slot.store.kind == PropertyStore::Kind::number && configures(slot.domain)) {
                out.push_back(slot.store.index);
                if (slot.valueKind == ActionValue::Kind::vector) out.push_back(slot.store.index + 1);
            }
        return out;
    }();
    return places;
}

} // namespace ovik
