#pragma once
// Writes a JSONValue as text, byte for byte in the layout of our document files.
#include <string>

#include "OvikPlatform/json/JSONValue.h"

namespace ovik {

class JSONNode;

struct JSONWriteOptions {
    bool pretty = false;
    /// Render payloads escape "/" as "\/"; document files don't.
    bool escapeSlashes = false;
};

namespace JSONWriter {

/// Throws `EncodingError` for a non-finite number; nothing is returned then.
std::string write(const JSONValue& value, JSONWriteOptions options = {});
/// A value of a parsed document, written as its generic value would be, without building it.
std::string write(JSONNode node, JSONWriteOptions options = {});
void appendString(std::string& out, std::string_view text, bool escapeSlashes);

} // namespace JSONWriter
} // namespace ovik
