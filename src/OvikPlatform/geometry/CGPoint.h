#pragma once
// Plain records of doubles in points, y up unless a caller says otherwise. JSON forms are
// arrays: a point `[x, y]`, a size `[width, height]`, a vector `[dx, dy]`.
#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct CGPoint {
    double x = 0;
    double y = 0;
    bool operator==(const CGPoint&) const = default;
};

struct CGSize {
    double width = 0;
    double height = 0;
    bool operator==(const CGSize&) const = default;
};

struct CGVector {
    double dx = 0;
    double dy = 0;
    bool operator==(const CGVector&) const = default;
};

namespace json_detail {
/// A pair of doubles written as a two-element array.
template <class T, double T::*First, double T::*Second>
struct DoublePairCoding {
    static JSONValue encode(const T& value) { return JSONValue(JSONValue::Array{value.*First, value.*Second}); }
    static T decode(JSONNode node, const CodingPath& path) {
        expect(node, JSONNode::Kind::array, path, "Array<Any>");
        if (node.size() != 2)
            throw DecodingError::dataCorrupted(path, "Expected 2 numbers but found " + std::to_string(node.size()) + ".");
        T value{};
        auto element = node.elements().begin();
        value.*First = JSONCoding<double>::decode(*element, path.appending(std::int64_t(0)));
        ++element;
        value.*Second = JSONCoding<double>::decode(*element, path.appending(std::int64_t(1)));
        return value;
    }
};
} // namespace json_detail

template <>
struct JSONCoding<CGPoint> : json_detail::DoublePairCoding<CGPoint, &CGPoint::x, &CGPoint::y> {};
template <>
struct JSONCoding<CGSize> : json_detail::DoublePairCoding<CGSize, &CGSize::width, &CGSize::height> {};
template <>
struct JSONCoding<CGVector> : json_detail::DoublePairCoding<CGVector, &CGVector::dx, &CGVector::dy> {};

} // namespace ovik
