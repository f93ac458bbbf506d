#pragma once
// A point that other objects can follow; it has no picture of its own.
#include "OvikPlatform/geometry/CGPoint.h"

namespace ovik {

struct FollowPointAnnotation {
    CGPoint center;

    bool operator==(const FollowPointAnnotation&) const = default;
    static constexpr auto jsonFields() { return std::tuple{required("center", &FollowPointAnnotation::center)}; }
};

} // namespace ovik
