#pragma once
// A path of anchors with optional handles, as a person draws it with the pen tool.
#include <optional>
#include <vector>

#include "OvikPlatform/geometry/CGPoint.h"

namespace ovik {

struct PathAnchor {
    CGPoint point;
    std::optional<CGPoint> handleIn;
    std::optional<CGPoint> handleOut;
    bool isSmooth = false;

    bool operator==(const PathAnchor&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("point", &PathAnchor::point), optional("handleIn", &PathAnchor::handleIn),
                          optional("handleOut", &PathAnchor::handleOut), defaulted("isSmooth", &PathAnchor::isSmooth)};
    }
};

struct BezierPath {
    std::vector<PathAnchor> anchors;
    bool isClosed = false;

    bool operator==(const BezierPath&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("anchors", &BezierPath::anchors), defaulted("isClosed", &BezierPath::isClosed)};
    }
};

} // namespace ovik
