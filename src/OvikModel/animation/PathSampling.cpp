#include "OvikModel/animation/PathSampling.h"

#include <algorithm>
#include <cmath>

namespace ovik {
namespace {

CGPoint cubicPoint(const CGPoint& p0, const CGPoint& c1, const CGPoint& c2, const CGPoint& p3, double s) {
    const double r = 1 - s;
    const double a = r * r * r, b = 3 * r * r * s, c = 3 * r * s * s, d = s * s * s;
    return CGPoint{a * p0.x + b * c1.x + c * c2.x + d * p3.x, a * p0.y + b * c1.y + c * c2.y + d * p3.y};
}

} // namespace

PathSampling::PathSampling(const BezierPath& path) {
    const auto& anchors = path.anchors;
    if (anchors.empty()) return;
    points_.push_back(anchors.front().point);
    const std::size_t segments = path.isClosed && anchors.size() > 1 ? anchors.size() : anchors.size() - 1;
    for (std::size_t i = 0; i < segments; ++i) {
        const PathAnchor& from = anchors[i];
        const PathAnchor& to = anchors[(i + 1) % anchors.size()];
        const CGPoint c1 = from.handleOut.value_or(from.point);
        const CGPoint c2 = to.handleIn.value_or(to.point);
        for (int piece = 1; piece <= piecesPerSegment; ++piece)
            points_.push_back(cubicPoint(from.point, c1, c2, to.point, double(piece) / piecesPerSegment));
    }
    lengths_.push_back(0);
    for (std::size_t i = 1; i < points_.size(); ++i)
        lengths_.push_back(lengths_.back() + std::hypot(points_[i].x - points_[i - 1].x, points_[i].y - points_[i - 1].y));
}

CGPoint PathSampling::point(double distance) const {
    if (!(distance > 0)) return points_.front();
    if (distance >= length()) return points_.back();
    const auto after = std::size_t(std::upper_bound(lengths_.begin(), lengths_.end(), distance) - lengths_.begin());
    const double piece = lengths_[after] - lengths_[after - 1];
    const double f = piece > 0 ? (distance - lengths_[after - 1]) / piece : 0;
    const CGPoint& a = points_[after - 1];
    const CGPoint& b = points_[after];
    return CGPoint{a.x + f * (b.x - a.x), a.y + f * (b.y - a.y)};
}

} // namespace ovik
