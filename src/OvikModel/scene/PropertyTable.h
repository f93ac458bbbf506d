#pragma once
// The one table of properties: every row, built once, and the flat lists that evaluation
// reads per object per frame (slots indexed by key, fixed places in an action state).
#include <array>
#include <vector>

#include "OvikModel/scene/PropertyKey.h"

namespace ovik {

struct PropertyTable {
    /// Places of an action state: numbers (a vector takes two), colours, latest values.
    static constexpr int numberPlaces = 64;
    static constexpr int colorPlaces = 4;
    static constexpr int latestPlaces = 4;

    /// One number place and whether actions multiply it.
    struct NumberComposition {
        int index = 0;
        bool multiplies = false;
    };

    static const std::vector<PropertySpec>& specs();
    static const std::vector<PropertySlot>& slots();
    /// Every key, in table order.
    static const std::vector<PropertyKey>& allKeys();
    static std::vector<PropertyKey> keys(PropertyGroup group);
    /// The keys that actions may animate, in table order.
    static const std::vector<PropertyKey>& animatable();
    /// The keys of a space's fields, in table order.
    static const std::vector<PropertyKey>& spaceKeys();
    /// The keys, in table order, whose rows stand on `target` and can be written there.
    static std::vector<PropertyKey> writableKeys(PropertyTargetKind target);

    /// 0 at every number place, 1 where actions multiply.
    static const std::array<double, numberPlaces>& restNumbers();
    static const std::vector<NumberComposition>& numberComposition();
    /// The number places of domains that configure an object rather than move it.
    static const std::vector<int>& settingNumberSlots();
};

} // namespace ovik
