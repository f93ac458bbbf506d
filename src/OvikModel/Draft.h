#pragma once
// The document: the record stored in a package's draft.json. For now it knows its schema
// number and keeps every other top-level key as it was read, so that reading and writing a
// draft gives back the same bytes until each field has its own type.
#include <cstdint>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct Draft {
    /// The one schema this program reads and writes; there is no conversion between numbers.
    static constexpr std::int64_t currentSchema = 8;

    /// Every top-level key but `schema`, as read.
    JSONValue::Object otherKeys;

    bool operator==(const Draft&) const = default;
};

/// `schema` is written as the current number always; reading any other number stops at once
/// with `DraftSchemaMismatch`.
template <>
struct JSONCoding<Draft> {
    static JSONValue encode(const Draft& draft);
    static Draft decode(JSONNode node, const CodingPath& path);
};

} // namespace ovik
