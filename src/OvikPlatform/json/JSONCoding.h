#pragma once
// The declare-once codec. A record lists its fields once:
//
//   static constexpr auto jsonFields() {
//       return std::tuple{required("width", &PixelSize::width), required("height", &PixelSize::height)};
//   }
//
// and encoding, decoding and defaults all follow from that list: `required` is always written
// and must be present; `optional` (an std::optional or HeldIfSet) is left out when empty;
// `defaulted` is left out when it equals the value of a default-constructed record and takes
// that value when absent; `writtenAlways` takes that value when absent and is always written.
// A custom form is a coder type given as the template argument,
// `required<HexColor>("tint", &T::tint)`. Unknown keys are ignored; the first failing field
// is reported with its coding path.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <exception>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <variant>
#include <vector>

#include "OvikPlatform/Enumeration.h"
#include "OvikPlatform/json/DecodingError.h"
#include "OvikPlatform/json/JSONDocument.h"
#include "OvikPlatform/json/JSONValue.h"

namespace ovik {

template <class T, class Enable = void>
struct JSONCoding;

template <class T>
JSONValue encodeJSON(const T& value) {
    return JSONCoding<T>::encode(value);
}

template <class T>
T decodeJSON(JSONNode node, const CodingPath& path = CodingPath()) {
    return JSONCoding<T>::decode(node, path);
}

/// Parses and decodes; a text that is not JSON fails as data corrupted.
template <class T>
T decodeJSON(std::string_view bytes) {
    const JSONDocument document = JSONDocument::parse(bytes);
    return JSONCoding<T>::decode(document.root(), CodingPath());
}

/// Decodes a stored value from a generic one.
template <class T>
T decodeJSON(const JSONValue& value) {
    return decodeJSON<T>(std::string_view(value.compact()));
}

// ---- scalars ---------------------------------------------------------------------------------

namespace json_detail {
[[noreturn]] void mismatch(JSONNode node, const CodingPath& path, std::string_view type);
[[noreturn]] void doesNotFit(JSONNode node, const CodingPath& path, std::string_view type);
// Called for every value decoded: kept inline at each call.
[[gnu::always_inline]] inline void expect(JSONNode node, JSONNode::Kind kind, const CodingPath& path,
                                          std::string_view type) {
    if (node.kind() != kind) [[unlikely]]
        mismatch(node, path, type);
}
} // namespace json_detail

template <>
struct JSONCoding<bool> {
    static JSONValue encode(bool v) { return JSONValue(v); }
    static bool decode(JSONNode node, const CodingPath& path) {
        json_detail::expect(node, JSONNode::Kind::boolean, path, "Bool");
        return node.boolean();
    }
};

template <class I>
struct JSONCoding<I, std::enable_if_t<std::is_integral_v<I> && std::is_signed_v<I>>> {
    static JSONValue encode(I v) { return JSONValue(std::int64_t(v)); }
    static I decode(JSONNode node, const CodingPath& path) {
        if (node.kind() == JSONNode::Kind::number) json_detail::doesNotFit(node, path, "Int");
        json_detail::expect(node, JSONNode::Kind::integer, path, "Int");
        const std::int64_t v = node.integer();
        if (v < std::int64_t(std::numeric_limits<I>::min()) || v > std::int64_t(std::numeric_limits<I>::max()))
            json_detail::doesNotFit(node, path, "Int");
        return I(v);
    }
};

template <class U>
struct JSONCoding<U, std::enable_if_t<std::is_integral_v<U> && std::is_unsigned_v<U> && !std::is_same_v<U, bool>>> {
    static JSONValue encode(U v) { return JSONValue(std::uint64_t(v)); }
    static U decode(JSONNode node, const CodingPath& path) {
        std::uint64_t v = 0;
        if (node.kind() != JSONNode::Kind::integer && node.kind() != JSONNode::Kind::number)
            json_detail::mismatch(node, path, "UInt");
        if (!node.unsignedInteger(v) || v > std::uint64_t(std::numeric_limits<U>::max()))
            json_detail::doesNotFit(node, path, "UInt");
        return U(v);
    }
};

template <>
struct JSONCoding<double> {
    static JSONValue encode(double v) { return JSONValue(v); }
    static double decode(JSONNode node, const CodingPath& path) {
        if (node.kind() != JSONNode::Kind::integer) json_detail::expect(node, JSONNode::Kind::number, path, "Double");
        return node.number();
    }
};

template <>
struct JSONCoding<float> {
    static JSONValue encode(float v) { return JSONValue(v); }
    static float decode(JSONNode node, const CodingPath& path) {
        const double v = JSONCoding<double>::decode(node, path);
        if (std::fabs(v) > double(std::numeric_limits<float>::max())) json_detail::doesNotFit(node, path, "Float");
        return float(v);
    }
};

template <>
struct JSONCoding<std::string> {
    static JSONValue encode(const std::string& v) { return JSONValue(v); }
    static std::string decode(JSONNode node, const CodingPath& path) {
        json_detail::expect(node, JSONNode::Kind::string, path, "String");
        return std::string(node.string());
    }
};

template <>
struct JSONCoding<JSONValue> {
    static JSONValue encode(const JSONValue& v) { return v; }
    static JSONValue decode(JSONNode node, const CodingPath&) { return node.value(); }
};

template <>
struct JSONCoding<OpaqueJSON> {
    static JSONValue encode(const OpaqueJSON& v) { return JSONValue(v); }
    static OpaqueJSON decode(JSONNode node, const CodingPath&) { return OpaqueJSON::of(node); }
};

// ---- containers ------------------------------------------------------------------------------

template <class T>
struct JSONCoding<std::vector<T>> {
    static JSONValue encode(const std::vector<T>& v) {
        JSONValue::Array array;
        array.reserve(v.size());
        for (const T& element : v) array.push_back(JSONCoding<T>::encode(element));
        return JSONValue(std::move(array));
    }
    static std::vector<T> decode(JSONNode node, const CodingPath& path) {
        json_detail::expect(node, JSONNode::Kind::array, path, "Array<Any>");
        std::vector<T> out;
        out.reserve(node.size());
        std::int64_t index = 0;
        for (JSONNode element : node.elements()) {
            // Large records are filled where they will live, sparing a move of each.
            if constexpr (requires(T& record) { JSONCoding<T>::decodeInto(record, element, path); })
                JSONCoding<T>::decodeInto(out.emplace_back(), element, path.appending(index++));
            else
                out.push_back(JSONCoding<T>::decode(element, path.appending(index++)));
        }
        return out;
    }
};

template <class T>
struct JSONCoding<std::map<std::string, T>> {
    static JSONValue encode(const std::map<std::string, T>& v) {
        JSONValue::Object object;
        for (const auto& [key, element] : v) object.emplace(key, JSONCoding<T>::encode(element));
        return JSONValue(std::move(object));
    }
    static std::map<std::string, T> decode(JSONNode node, const CodingPath& path) {
        json_detail::expect(node, JSONNode::Kind::object, path, "Dictionary<String, Any>");
        std::map<std::string, T> out;
        for (auto member : node.members())
            out.insert_or_assign(std::string(member.key), JSONCoding<T>::decode(member.value, path.appending(member.key)));
        return out;
    }
};

/// An optional standing alone (an element of a list, say): null when empty.
template <class T>
struct JSONCoding<std::optional<T>> {
    static JSONValue encode(const std::optional<T>& v) { return v ? JSONCoding<T>::encode(*v) : JSONValue(); }
    static std::optional<T> decode(JSONNode node, const CodingPath& path) {
        if (node.isNull()) return std::nullopt;
        return JSONCoding<T>::decode(node, path);
    }
};

// ---- plain enumerations: the bare case name ----------------------------------------------------

template <NamedEnum E>
struct JSONCoding<E> {
    static JSONValue encode(E v) { return JSONValue(caseName(v)); }
    static E decode(JSONNode node, const CodingPath& path) {
        json_detail::expect(node, JSONNode::Kind::string, path, "String");
        constexpr auto names = enumCases(static_cast<E*>(nullptr));
        E out{};
        if (!names.find(node.string(), out))
            throw DecodingError::dataCorrupted(path, "Cannot initialize " + std::string(names.typeName) +
                                                         " from invalid String value " + std::string(node.string()));
        return out;
    }
};

// ---- records ---------------------------------------------------------------------------------

/// `writtenAlways`: takes its default when absent, and is written whatever its value.
enum class JSONPresence { required, optional, defaulted, writtenAlways };

template <class Coder, class Owner, class Member, JSONPresence Presence>
struct JSONField {
    std::string_view key;
    Member Owner::*member;

    static constexpr bool isRequired() { return Presence == JSONPresence::required; }
};

namespace json_detail {
template <class Member>
struct Wrapped {
    using type = Member;
};
template <class Member>
    requires requires(const Member& m) {
        typename Member::value_type;
        m.has_value();
    }
struct Wrapped<Member> {
    using type = typename Member::value_type;
};
template <class Coder, class Member>
using CoderFor = std::conditional_t<std::is_void_v<Coder>, JSONCoding<Member>, Coder>;

/// The keys of a record's fields, sorted, each with its place in the declaration.
template <std::size_t N>
struct KeyTable {
    std::array<std::pair<std::string_view, std::size_t>, N> sorted{};

    // Keys are ordered by length first: a look-up compares the bytes of the few keys of the
    // same length only, most often one.
    static constexpr bool shorter(const std::pair<std::string_view, std::size_t>& a,
                                  const std::pair<std::string_view, std::size_t>& b) {
        return a.first.size() != b.first.size() ? a.first.size() < b.first.size() : a.first < b.first;
    }

    template <class... Keys>
    static constexpr KeyTable of(Keys... keys) {
        KeyTable table;
        std::size_t at = 0;
        ((table.sorted[at] = {std::string_view(keys), at}, ++at), ...);
        std::sort(table.sorted.begin(), table.sorted.end(), shorter);
        return table;
    }
    /// The field's place, or N when no field has that key.
    constexpr std::size_t find(std::string_view key) const {
        auto entry = std::lower_bound(sorted.begin(), sorted.end(), key.size(),
                                      [](const auto& e, std::size_t size) { return e.first.size() < size; });
        for (; entry != sorted.end() && entry->first.size() == key.size(); ++entry)
            if (sameBytes(entry->first, key)) return entry->second;
        return N;
    }

private:
    // Keys are a few bytes long: a loop the compiler keeps inline beats a call to memcmp.
    static constexpr bool sameBytes(std::string_view a, std::string_view b) {
        for (std::size_t i = 0; i < a.size(); ++i)
            if (a[i] != b[i]) return false;
        return true;
    }
};
} // namespace json_detail

template <class Coder = void, class Owner, class Member>
constexpr auto required(std::string_view key, Member Owner::*member) {
    return JSONField<json_detail::CoderFor<Coder, Member>, Owner, Member, JSONPresence::required>{key, member};
}

template <class Coder = void, class Owner, class Member>
constexpr auto optional(std::string_view key, Member Owner::*member) {
    using Value = typename json_detail::Wrapped<Member>::type;
    return JSONField<json_detail::CoderFor<Coder, Value>, Owner, Member, JSONPresence::optional>{key, member};
}

template <class Coder = void, class Owner, class Member>
constexpr auto defaulted(std::string_view key, Member Owner::*member) {
    return JSONField<json_detail::CoderFor<Coder, Member>, Owner, Member, JSONPresence::defaulted>{key, member};
}

template <class Coder = void, class Owner, class Member>
constexpr auto writtenAlways(std::string_view key, Member Owner::*member) {
    return JSONField<json_detail::CoderFor<Coder, Member>, Owner, Member, JSONPresence::writtenAlways>{key, member};
}

template <class T>
concept JSONRecord = requires { T::jsonFields(); };

/// The coding of a record from its declared fields; a record with a coding of its own builds
/// on it for the fields it declares.
template <JSONRecord T>
struct RecordCoding {
    static const T& defaults() {
        static const T value{};
        return value;
    }

    static JSONValue encode(const T& record) {
        JSONValue::Object object;
        std::apply([&](const auto&... field) { (encodeField(object, record, field), ...); }, T::jsonFields());
        return JSONValue(std::move(object));
    }

    static T decode(JSONNode node, const CodingPath& path) {
        T record{};
        decodeInto(record, node, path);
        return record;
    }

    /// Fills a default-made record in place.
    static void decodeInto(T& record, JSONNode node, const CodingPath& path) {
        json_detail::expect(node, JSONNode::Kind::object, path, "Dictionary<String, Any>");
        constexpr auto indices = std::make_index_sequence<std::tuple_size_v<decltype(T::jsonFields())>>{};
        // Most records decode in one pass, member by member as stored. One that pass can't take
        // (a duplicate, a missing or bad field) is finished in declared order, so that the first
        // failing declared field is told and a later duplicate wins. The finish never decodes a
        // member twice: what the pass decoded from a winning member stays, and the member that
        // failed gives its error again. So a bad leaf deep in a tree costs one decode per level.
        std::size_t stop = 0;
        try {
            if (decodeAsStored(record, node, path, stop, indices)) return;
        } catch (const DecodingError&) {
            finishInDeclaredOrder(record, node, path, stop, std::current_exception(), indices);
            return;
        }
        finishInDeclaredOrder(record, node, path, stop, nullptr, indices);
    }

private:
    template <class Coder, class Member, JSONPresence Presence>
    static void encodeField(JSONValue::Object& object, const T& record,
                            const JSONField<Coder, T, Member, Presence>& field) {
        const Member& value = record.*field.member;
        if constexpr (Presence == JSONPresence::optional) {
            if (value.has_value()) object.emplace(field.key, Coder::encode(*value));
        } else {
            if constexpr (Presence == JSONPresence::defaulted)
                if (value == defaults().*field.member) return;
            object.emplace(field.key, Coder::encode(value));
        }
    }

    // Decodes members as stored; `stop` counts the members passed, so that on a duplicate (an
    // answer of false) or a thrown error it is the place of the member the pass stopped at.
    template <std::size_t... I>
    static bool decodeAsStored(T& record, JSONNode node, const CodingPath& path, std::size_t& stop,
                               std::index_sequence<I...>) {
        static_assert(sizeof...(I) <= 64, "one bit a field");
        static constexpr auto fields = T::jsonFields();
        static constexpr auto keys = json_detail::KeyTable<sizeof...(I)>::of(std::get<I>(fields).key...);
        static constexpr std::uint64_t required =
            ((std::get<I>(fields).isRequired() ? std::uint64_t(1) << I : 0) | ... | 0);
        std::uint64_t seen = 0;
        for (const auto member : node.members()) {
            const std::size_t at = keys.find(member.key);
            if (at < sizeof...(I)) {
                const std::uint64_t bit = std::uint64_t(1) << at;
                if (seen & bit) return false;
                seen |= bit;
                const std::optional<JSONNode> value = member.value;
                ((I == at ? decodeField(record, value, path, std::get<I>(fields)) : void()), ...);
            }
            ++stop;
        }
        return (seen & required) == required;
    }

    // The fields in declared order, each from its last member. A field whose last member lies
    // before `stop` was decoded from it by the pass and stays; the member at `stop` failed with
    // `error` (when there is one); any other field is decoded afresh.
    template <std::size_t... I>
    static void finishInDeclaredOrder(T& record, JSONNode node, const CodingPath& path, std::size_t stop,
                                      const std::exception_ptr& error, std::index_sequence<I...>) {
        static constexpr auto fields = T::jsonFields();
        static constexpr auto keys = json_detail::KeyTable<sizeof...(I)>::of(std::get<I>(fields).key...);
        std::array<std::optional<JSONNode>, sizeof...(I)> found;
        std::array<std::size_t, sizeof...(I)> place{};
        std::size_t index = 0;
        for (const auto member : node.members()) {
            if (const std::size_t at = keys.find(member.key); at < sizeof...(I)) {
                found[at] = member.value;
                place[at] = index;
            }
            ++index;
        }
        (finishField(record, found[I], place[I], stop, error, path, std::get<I>(fields)), ...);
    }

    template <class Coder, class Member, JSONPresence Presence>
    static void finishField(T& record, const std::optional<JSONNode>& value, std::size_t place, std::size_t stop,
                            const std::exception_ptr& error, const CodingPath& path,
                            const JSONField<Coder, T, Member, Presence>& field) {
        if (value && place < stop) return;
        if (value && place == stop && error) std::rethrow_exception(error);
        record.*field.member = defaults().*field.member;
        decodeField(record, value, path, field);
    }

    template <class Coder, class Member, JSONPresence Presence>
    static void decodeField(T& record, const std::optional<JSONNode>& value, const CodingPath& path,
                            const JSONField<Coder, T, Member, Presence>& field) {
        if (!value) {
            if constexpr (Presence == JSONPresence::required) throw DecodingError::keyNotFound(path, field.key);
            return;
        }
        // An explicit null stands for absence, except where a value is required.
        if (Presence != JSONPresence::required && value->isNull()) return;
        record.*field.member = Coder::decode(*value, path.appending(field.key));
    }
};

template <JSONRecord T>
struct JSONCoding<T> : RecordCoding<T> {};


// ---- enumerations with payload: the tagged form --------------------------------------------------

/// A coding key that is any text, for keys known only at run time (a case's name).
struct CaseKey {
    std::string stringValue;
    std::optional<int> intValue() const { return std::nullopt; }
};

/// Reads the tagged form of a case: a bare string, or an object of exactly one key. The name
/// points into the parsed document, which outlives the decoding.
struct TaggedCase {
    std::string_view name;
    std::optional<JSONNode> payload; // the value under the one key; none for a bare string
    CodingPath codingPath;

    static TaggedCase read(JSONNode node, const CodingPath& path);
    CaseKey key() const { return CaseKey{std::string(name)}; }

    /// Decodes the payload under the case's key; a bare string has none to give.
    template <class U>
    U value() const {
        return decoded<JSONCoding<U>>();
    }
    template <class Coder>
    auto decoded() const {
        JSONNode payload = requirePayload();
        return Coder::decode(payload, codingPath.appending(name));
    }

private:
    JSONNode requirePayload() const;
};

/// The one-key object of a case with payload.
JSONValue taggedValue(const CaseKey& key, JSONValue payload);

namespace json_detail {
template <class Case>
constexpr bool caseHasRecordPayload = JSONRecord<Case>;
template <class Case>
constexpr bool caseHasValuePayload = !JSONRecord<Case> && requires(Case c) { c.value; };

// A payload of one value is that value itself under the case's key: {"steps": 4}. A case whose
// stored form is an object naming its one field declares `namedPayload`.
template <class Case>
constexpr bool caseHasBarePayload() {
    if constexpr (JSONRecord<Case>)
        return std::tuple_size_v<decltype(Case::jsonFields())> == 1 && !requires { Case::namedPayload; };
    else
        return false;
}

template <class Case, class Coder, class Member, JSONPresence Presence>
JSONValue encodeBare(const Case& c, const JSONField<Coder, Case, Member, Presence>& field) {
    static_assert(Presence == JSONPresence::required, "a one-value payload is always written");
    return Coder::encode(c.*field.member);
}

template <class Case, class Coder, class Member, JSONPresence Presence>
Case decodeBare(const TaggedCase& tagged, const JSONField<Coder, Case, Member, Presence>& field) {
    Case c{};
    c.*field.member = tagged.decoded<Coder>();
    return c;
}

template <class Case>
JSONValue encodeCase(const Case& c) {
    if constexpr (caseHasBarePayload<Case>())
        return taggedValue(CaseKey{std::string(Case::name)}, encodeBare(c, std::get<0>(Case::jsonFields())));
    else if constexpr (caseHasRecordPayload<Case>)
        return taggedValue(CaseKey{std::string(Case::name)}, JSONCoding<Case>::encode(c));
    else if constexpr (caseHasValuePayload<Case>)
        return taggedValue(CaseKey{std::string(Case::name)}, encodeJSON(c.value));
    else
        return JSONValue(Case::name);
}

template <class Case>
Case decodeCase(const TaggedCase& tagged) {
    if constexpr (caseHasBarePayload<Case>())
        return decodeBare<Case>(tagged, std::get<0>(Case::jsonFields()));
    else if constexpr (caseHasRecordPayload<Case>)
        return tagged.value<Case>();
    else if constexpr (caseHasValuePayload<Case>)
        return Case{tagged.value<decltype(Case::value)>()};
    else
        return Case{};
}
} // namespace json_detail

template <class T>
concept JSONTaggedEnumeration = requires(const T& t) { t.cases; } && std::is_base_of_v<Enumeration<T>, T>;

template <JSONTaggedEnumeration T>
    requires(!JSONRecord<T>)
struct JSONCoding<T> {
    static JSONValue encode(const T& value) {
        return std::visit([](const auto& c) { return json_detail::encodeCase(c); }, value.cases);
    }

    static T decode(JSONNode node, const CodingPath& path) {
        const TaggedCase tagged = TaggedCase::read(node, path);
        T out{};
        if (!tryCases(tagged, out, static_cast<decltype(T::cases)*>(nullptr)))
            throw DecodingError::dataCorrupted(path, unknownCase(tagged.name));
        return out;
    }

private:
    // The payload is decoded straight into the variant of the value returned.
    template <class... Cases>
    static bool tryCases(const TaggedCase& tagged, T& out, std::variant<Cases...>*) {
        return ((tagged.name == Cases::name &&
                 (out.cases.template emplace<Cases>(json_detail::decodeCase<Cases>(tagged)), true)) ||
                ...);
    }
    static std::string unknownCase(std::string_view name) {
        const std::string text(name);
        if constexpr (requires { T::unknownCaseMessage(text); })
            return T::unknownCaseMessage(text);
        else
            return "Unknown case " + text;
    }
};

} // namespace ovik
