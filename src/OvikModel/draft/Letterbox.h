#pragma once
// Bars that bring the picture to a fixed ratio; the objects in `above` are drawn over them.
#include <vector>

#include "OvikModel/values/Identifier.h"
#include "OvikModel/values/RGBA.h"

namespace ovik {

struct Letterbox {
    /// Width over height.
    double ratio = 0;
    RGBA color{0, 0, 0, 1};
    std::vector<ObjectID> above;

    bool operator==(const Letterbox&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("ratio", &Letterbox::ratio), defaulted("color", &Letterbox::color),
                          defaulted("above", &Letterbox::above)};
    }
};

} // namespace ovik
