#pragma once
// Where an imported picture or movie came from; the package keeps the file by its content.
#include <cstdint>
#include <string>
#include <string_view>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct ImportedFile {
    /// The package folder that holds imported media.
    static constexpr std::string_view folder = "media";

    /// The file's name where it came from.
    std::string name;
    std::string sha256;
    /// Quarter turns applied to the picture.
    std::int64_t turns = 0;

    bool operator==(const ImportedFile&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("name", &ImportedFile::name), required("sha256", &ImportedFile::sha256),
                          defaulted("turns", &ImportedFile::turns)};
    }
};

} // namespace ovik
