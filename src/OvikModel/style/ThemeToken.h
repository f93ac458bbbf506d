#pragma once
// One named value of a theme. Names are unique within a list, and order is kept.
#include <string>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

template <class Value>
struct ThemeToken {
    std::string name;
    Value value{};

    bool operator==(const ThemeToken&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple{required("name", &ThemeToken::name), required("value", &ThemeToken::value)};
    }
};

} // namespace ovik
