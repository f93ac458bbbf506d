#pragma once
// The vector file (SVG, or a page of a PDF) that an object was imported from, with the names
// of the elements that the import had to leave out.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "OvikModel/PackagePath.h"

namespace ovik {

struct VectorSource {
    PackagePath file;
    std::string name;
    std::string sha256;
    std::optional<std::int64_t> page;
    std::vector<std::string> skipped;

    bool operator==(const VectorSource&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("file", &VectorSource::file), required("name", &VectorSource::name),
                          required("sha256", &VectorSource::sha256), optional("page", &VectorSource::page),
                          defaulted("skipped", &VectorSource::skipped)};
    }
};

} // namespace ovik
