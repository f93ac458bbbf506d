#pragma once
// A numbered disc that marks steps.
#include <cstdint>

#include "OvikPlatform/geometry/CGPoint.h"
#include "OvikModel/values/RGBA.h"

namespace ovik {

struct CounterAnnotation {
    CGPoint center;
    std::int64_t number = 1;
    double diameter = 0;
    RGBA color;

    bool operator==(const CounterAnnotation&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{
            required("center", &CounterAnnotation::center), required("number", &CounterAnnotation::number),
            required("diameter", &CounterAnnotation::diameter), required("color", &CounterAnnotation::color)};
    }
};

} // namespace ovik
