#pragma once
// A path flattened into straight pieces, for finding the point at a length along it. Every
// curved segment is cut into the same fixed number of pieces, so that a length names the
// same point on every machine.
#include <vector>

#include "OvikModel/objects/BezierPath.h"

namespace ovik {

class PathSampling {
public:
    /// Straight pieces per curved segment.
    static constexpr int piecesPerSegment = 32;

    explicit PathSampling(const BezierPath& path);

    bool isEmpty() const { return points_.empty(); }
    double length() const { return lengths_.empty() ? 0 : lengths_.back(); }
    /// The point `distance` along the path, held at its ends. The path must not be empty.
    CGPoint point(double distance) const;

private:
    std::vector<CGPoint> points_;
    /// The length from the start to each point.
    std::vector<double> lengths_;
};

} // namespace ovik
