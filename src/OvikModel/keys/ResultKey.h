#pragma once
// The name of a result container: named components and the SHA-256 of them, in full. Each
// component is one line "key=value" in key order, so the digest doesn't depend on how the
// map was built. JSON keys: `components` and `digest`.
#include <map>
#include <string>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct ResultKey {
    std::map<std::string, std::string> components;
    std::string digest;

    ResultKey() = default;
    explicit ResultKey(std::map<std::string, std::string> components);

    bool operator==(const ResultKey&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple{required("components", &ResultKey::components), required("digest", &ResultKey::digest)};
    }
};

} // namespace ovik
