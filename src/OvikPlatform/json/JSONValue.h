#pragma once
// The generic JSON value. Objects are ordered maps, so keys iterate in UTF-8 byte order and
// nothing in an output depends on hash order. A whole number above the signed 64-bit range is
// held as `uint64_t`, so that it keeps its digits. The `float` case exists only for encoding: a
// single-precision field is laid out with its own shortest digits; reading never makes one.
// Nor does reading make the `OpaqueJSON` case: it is the encoded form of a kept opaque record,
// its text laid out as it stands.
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "OvikPlatform/json/OpaqueJSON.h"

namespace ovik {

class JSONValue;

/// The members of a JSON object, kept sorted by the UTF-8 bytes of their keys in one vector:
/// a map's interface without a heap node per member.
class JSONObject {
public:
    using value_type = std::pair<std::string, JSONValue>;
    using iterator = std::vector<value_type>::iterator;
    using const_iterator = std::vector<value_type>::const_iterator;

    JSONObject() = default;
    /// A repeated key keeps its first value, as a map's constructor does.
    JSONObject(std::initializer_list<value_type> members);

    iterator begin();
    iterator end();
    const_iterator begin() const;
    const_iterator end() const;
    std::size_t size() const;
    bool empty() const;
    void reserve(std::size_t count);

    iterator find(std::string_view key);
    const_iterator find(std::string_view key) const;
    std::size_t count(std::string_view key) const;
    /// Adds the member unless the key is there already.
    std::pair<iterator, bool> emplace(std::string_view key, JSONValue value);
    /// Adds the member, or replaces the value of the key.
    std::pair<iterator, bool> insert_or_assign(std::string_view key, JSONValue value);
    /// Adds the members of `other` whose keys are not here yet.
    void merge(const JSONObject& other);
    std::size_t erase(std::string_view key);

    bool operator==(const JSONObject& other) const;

private:
    iterator lowerBound(std::string_view key);
    std::vector<value_type> members_;
};

class JSONValue {
public:
    using Array = std::vector<JSONValue>;
    using Object = JSONObject;
    using Storage = std::variant<std::nullptr_t, bool, std::int64_t, std::uint64_t, double, float, std::string, Array, Object,
                                 OpaqueJSON>;

    JSONValue() : storage_(nullptr) {}
    JSONValue(std::nullptr_t) : storage_(nullptr) {}
    JSONValue(bool value) : storage_(value) {}
    JSONValue(int value) : storage_(std::int64_t(value)) {}
    JSONValue(std::int64_t value) : storage_(value) {}
    JSONValue(std::uint64_t value) : storage_(value) {}
    JSONValue(double value) : storage_(value) {}
    JSONValue(float value) : storage_(value) {}
    JSONValue(std::string value) : storage_(std::move(value)) {}
    JSONValue(std::string_view value) : storage_(std::string(value)) {}
    JSONValue(const char* value) : storage_(std::string(value)) {}
    JSONValue(Array value) : storage_(std::move(value)) {}
    JSONValue(Object value) : storage_(std::move(value)) {}
    JSONValue(OpaqueJSON value) : storage_(std::move(value)) {}

    /// Parses JSON text; throws `DecodingError` when it is not JSON.
    static JSONValue parse(std::string_view text);

    const Storage& storage() const { return storage_; }
    bool isNull() const { return std::holds_alternative<std::nullptr_t>(storage_); }
    const bool* boolean() const { return std::get_if<bool>(&storage_); }
    const std::int64_t* integer() const { return std::get_if<std::int64_t>(&storage_); }
    const std::string* string() const { return std::get_if<std::string>(&storage_); }
    const Array* array() const { return std::get_if<Array>(&storage_); }
    const Object* object() const { return std::get_if<Object>(&storage_); }
    Array* array() { return std::get_if<Array>(&storage_); }
    Object* object() { return std::get_if<Object>(&storage_); }
    /// Any number as a double (integers converted), or false when this is not a number.
    bool number(double& out) const;

    /// Keys sorted, slashes not escaped, no indentation.
    std::string compact() const;
    /// Keys sorted, slashes not escaped, indented.
    std::string prettyPrinted() const;

    /// Walks down through objects along a dotted path (empty pieces dropped); null when absent.
    const JSONValue* at(std::string_view path) const;
    /// A copy with the leaf at `path` replaced, creating objects on the way.
    JSONValue setting(std::string_view path, JSONValue leaf) const;
    /// The loose comparison: numbers as doubles, colour texts without regard to case.
    bool same(const JSONValue& other) const;

    bool operator==(const JSONValue& other) const = default;

private:
    Storage storage_;
};

// Defined once JSONValue is complete: the members hold values.
inline JSONObject::iterator JSONObject::begin() { return members_.begin(); }
inline JSONObject::iterator JSONObject::end() { return members_.end(); }
inline JSONObject::const_iterator JSONObject::begin() const { return members_.begin(); }
inline JSONObject::const_iterator JSONObject::end() const { return members_.end(); }
inline std::size_t JSONObject::size() const { return members_.size(); }
inline bool JSONObject::empty() const { return members_.empty(); }
inline void JSONObject::reserve(std::size_t count) { members_.reserve(count); }
inline std::size_t JSONObject::count(std::string_view key) const { return find(key) == end() ? 0 : 1; }

} // namespace ovik
