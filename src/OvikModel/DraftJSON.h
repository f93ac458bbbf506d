#pragma once
// The JSON conventions of every document file: keys sorted, slashes not escaped, indented
// when pretty (the draft file always is). The decoder is a plain one: unknown keys ignored.
#include <string>
#include <string_view>

#include "OvikPlatform/json/JSONCoding.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik::DraftJSON {

/// Keys are always sorted by our writer; only the indentation changes with `pretty`.
JSONWriteOptions encoder(bool pretty);

/// The bytes of `value` in a document file. Throws `EncodingError` (a non-finite number).
template <class T>
std::string encode(const T& value, bool pretty) {
    return JSONWriter::write(encodeJSON(value), encoder(pretty));
}

/// Throws `DecodingError`, or the record's own error (`DraftSchemaMismatch`).
template <class T>
T decode(std::string_view bytes) {
    return decodeJSON<T>(bytes);
}

} // namespace ovik::DraftJSON
