#include "OvikModel/animation/ActionValue.h"

#include <algorithm>
#include <cmath>

namespace ovik {
namespace {

bool finite(const CGPoint& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

} // namespace

bool ActionValue::isFinite(const BezierPath& path) {
    return std::all_of(path.anchors.begin(), path.anchors.end(), [](const PathAnchor& a) {
        return finite(a.point) && (!a.handleIn || finite(*a.handleIn)) && (!a.handleOut || finite(*a.handleOut));
    });
}

bool ActionValue::isFinite() const {
    if (const auto* n = std::get_if<number>(&cases)) return std::isfinite(n->value);
    if (const auto* v = std::get_if<vector>(&cases)) return std::isfinite(v->dx) && std::isfinite(v->dy);
    if (const auto* c = std::get_if<color>(&cases))
        return std::isfinite(c->value.red) && std::isfinite(c->value.green) && std::isfinite(c->value.blue) &&
               std::isfinite(c->value.alpha);
    if (const auto* p = std::get_if<path>(&cases)) return isFinite(p->value);
    return true;
}

} // namespace ovik
