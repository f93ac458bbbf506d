#pragma once
// The name of an export format: text, written in JSON as a bare string.
#include <compare>
#include <string>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct ExportFormatID {
    std::string rawValue;

    const std::string& description() const { return rawValue; }
    auto operator<=>(const ExportFormatID&) const = default;
};

template <>
struct JSONCoding<ExportFormatID> {
    static JSONValue encode(const ExportFormatID& id) { return JSONValue(id.rawValue); }
    static ExportFormatID decode(JSONNode node, const CodingPath& path) {
        return ExportFormatID{JSONCoding<std::string>::decode(node, path)};
    }
};

} // namespace ovik
