#pragma once
// "One number or several". JSON form: exactly one value is written as that bare number, any
// other count as an array; reading takes a bare number first and an array after.
#include <vector>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct Numbers {
    std::vector<double> values;

    bool operator==(const Numbers&) const = default;
};

template <>
struct JSONCoding<Numbers> {
    static JSONValue encode(const Numbers& numbers);
    static Numbers decode(JSONNode node, const CodingPath& path);
};

} // namespace ovik
