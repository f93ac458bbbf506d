#pragma once
// A named point on the timeline.
#include <optional>
#include <string>

#include "OvikModel/values/Identifier.h"
#include "OvikModel/values/Times.h"

namespace ovik {

struct Marker {
    MarkerID id;
    SourceTime time;
    std::string name;
    std::optional<SectionID> section;
    std::optional<bool> hit;

    bool operator==(const Marker&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("id", &Marker::id), required("time", &Marker::time), required("name", &Marker::name),
                          optional("section", &Marker::section), optional("hit", &Marker::hit)};
    }
};

} // namespace ovik
