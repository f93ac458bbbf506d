#pragma once
// The text path of a file inside a package: relative to the package root, "/" between
// components. A path is tested where a file is used: held inside its package, and refused when
// it can name no file at all.
#include <compare>
#include <string>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct PackagePath {
    std::string relative;

    const std::string& description() const { return relative; }
    /// A NUL ends a name where the system reads it, so a check and an open would judge two
    /// different files: a path holding one names no file, and every use refuses it.
    bool namesAFile() const { return relative.find('\0') == std::string::npos; }
    /// The text with a NUL shown as "\0", for a message.
    std::string printable() const;
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
