#pragma once
// A 3D model file imported into the package.
#include <string>

#include "OvikModel/PackagePath.h"
#include "OvikModel/values/Identifier.h"

namespace ovik {

struct ImportedModel {
    MediaID id;
    PackagePath file;
    std::string name;
    std::string sha256;

    bool operator==(const ImportedModel&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("id", &ImportedModel::id), required("file", &ImportedModel::file),
                          required("name", &ImportedModel::name), required("sha256", &ImportedModel::sha256)};
    }
};

} // namespace ovik
