#pragma once
// The schema number alone, read from a draft's bytes before the draft itself, so that a draft
// of another schema is refused by number before any other field is looked at.
#include <cstdint>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct SchemaProbe {
    std::int64_t schema = 0;

    bool operator==(const SchemaProbe&) const = default;
    static constexpr auto jsonFields() { return std::tuple{required("schema", &SchemaProbe::schema)}; }
};

} // namespace ovik
