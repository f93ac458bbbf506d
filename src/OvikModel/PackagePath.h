#pragma once
// The text path of a file inside a package: relative to the package root, "/" between
// components. Nothing is checked here; a path is tested where a file is used.
#include <compare>
#include <string>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct PackagePath {
    std::string relative;

    const std::string& description() const { return relative; }
    bool operator==(const PackagePath&) const = default;
    auto operator<=>(const PackagePath&) const = default;
};

/// A bare string in JSON.
template <>
struct JSONCoding<PackagePath> {
    static JSONValue encode(const PackagePath& path) { return JSONValue(path.relative); }
    static PackagePath decode(JSONNode node, const CodingPath& path) {
        return PackagePath{JSONCoding<std::string>::decode(node, path)};
    }
};

} // namespace ovik
