#pragma once
// The depth that makes a flat object solid, with its bevel and the materials of its faces.
#include <cstdint>
#include <optional>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

/// The profile of a bevel; the space model shares it.
enum class BevelProfile { flat, round };
constexpr auto enumCases(BevelProfile*) {
    return EnumCases<BevelProfile, 2>{"BevelProfile", {{BevelProfile::flat, "flat"}, {BevelProfile::round, "round"}}};
}

struct Thickness {
    double depth = 0;
    double bevel = 0;
    std::int64_t bevelSegments = 3;
    BevelProfile bevelProfile = BevelProfile::round;
    std::optional<OpaqueJSON> material;     // pending: Space.Material
    std::optional<OpaqueJSON> sideMaterial; // pending: Space.Material
    std::optional<OpaqueJSON> backMaterial; // pending: Space.Material

    bool operator==(const Thickness&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("depth", &Thickness::depth),
                          defaulted("bevel", &Thickness::bevel),
                          defaulted("bevelSegments", &Thickness::bevelSegments),
                          defaulted("bevelProfile", &Thickness::bevelProfile),
                          optional("material", &Thickness::material),
                          optional("sideMaterial", &Thickness::sideMaterial),
                          optional("backMaterial", &Thickness::backMaterial)};
    }
};

} // namespace ovik
