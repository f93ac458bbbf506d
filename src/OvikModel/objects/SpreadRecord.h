#pragma once
// Coders for stored forms that a field list alone can't declare: a member spread over several
// keys of its owner's object, and an enumeration whose case is told by which key is present.
//
// A record with spread members keeps its plainly declared fields in a base `Declared` (with
// `jsonFields()`), and names a `Spread` type with
//   static void encode(const T&, JSONValue::Object&);
//   static void decode(T&, JSONNode object, const CodingPath&);
// that writes and reads the rest of the same object.
#include <optional>
#include <string_view>
#include <variant>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

template <class T>
struct SpreadRecordCoding {
    using Declared = typename T::Declared;

    static JSONValue encode(const T& record) {
        JSONValue value = JSONCoding<Declared>::encode(record);
        T::Spread::encode(record, *value.object());
        return value;
    }
    static T decode(JSONNode node, const CodingPath& path) {
        T record{};
        static_cast<Declared&>(record) = JSONCoding<Declared>::decode(node, path);
        T::Spread::decode(record, node, path);
        return record;
    }
};

/// Adds every key of `part` (an object) to `object`.
inline void mergeKeys(JSONValue::Object& object, JSONValue part) {
    for (auto& [key, value] : *part.object()) object.insert_or_assign(key, std::move(value));
}

/// A field that takes its default when absent and is written even at its default.
template <class Member>
void encodeAlways(JSONValue::Object& object, std::string_view key, const Member& value) {
    object.insert_or_assign(std::string(key), encodeJSON(value));
}
template <class Member>
void decodeIfPresent(JSONNode object, std::string_view key, const CodingPath& path, Member& out) {
    JSONNode value = object;
    if (object.find(key, value) && !value.isNull()) out = decodeJSON<Member>(value, path.appending(key));
}

/// An enumeration stored as one object in which the key of a case's `name` tells the case.
/// Each case is a record whose fields include that key; cases are tried in declaration order.
template <class T>
struct KeyedCaseCoding {
    static JSONValue encode(const T& value) {
        return std::visit([](const auto& c) { return encodeJSON(c); }, value.cases);
    }
    /// The first case whose key is present, or none.
    static std::optional<T> decodeByKey(JSONNode node, const CodingPath& path) {
        json_detail::expect(node, JSONNode::Kind::object, path, "Dictionary<String, Any>");
        std::optional<T> out;
        tryCases(node, path, out, static_cast<decltype(T::cases)*>(nullptr));
        return out;
    }

private:
    template <class... Cases>
    static void tryCases(JSONNode node, const CodingPath& path, std::optional<T>& out, std::variant<Cases...>*) {
        JSONNode value = node;
        ((out || !node.find(Cases::name, value) ? void() : void(out = T{{}, decodeJSON<Cases>(node, path)})), ...);
    }
};

} // namespace ovik
