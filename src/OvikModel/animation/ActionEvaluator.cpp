#include "OvikModel/animation/ActionEvaluator.h"

#include <algorithm>
#include <cmath>

namespace ovik {
namespace {

constexpr double tolerance = 1e-9;

double overshoot(double t) {
    const double u = t <= 0 ? -1.0 : std::min(t, 1.0) - 1.0;
    return 1 + 2.70158 * u * u * u + 1.70158 * u * u;
}

double smoothstep(double t) { return t * t * (3 - 2 * t); }

// One coordinate of the cubic with ends 0 and 1 and control values a, b, at parameter s.
double cubic(double s, double a, double b) {
    const double r = 1 - s;
    return 3 * r * r * s * a + 3 * r * s * s * b + s * s * s;
}
double cubicSlope(double s, double a, double b) {
    const double r = 1 - s;
    return 3 * r * r * a + 6 * r * s * (b - a) + 3 * s * s * (1 - b);
}

// The parameter whose x is `t`: Newton from s = t, then bisection where Newton stalls.
double bezierParameter(double t, double x1, double x2) {
    double s = t;
    for (int step = 0; step < 8; ++step) {
        const double error = cubic(s, x1, x2) - t;
        if (std::fabs(error) < tolerance) return s;
        const double slope = cubicSlope(s, x1, x2);
        if (std::fabs(slope) < tolerance) break;
        s = std::clamp(s - error / slope, 0.0, 1.0);
    }
    double lo = 0, hi = 1;
    for (int step = 0; step < 60; ++step) {
        s = (lo + hi) / 2;
        const double error = cubic(s, x1, x2) - t;
        if (std::fabs(error) < tolerance) return s;
        (error < 0 ? lo : hi) = s;
    }
    return s;
}

} // namespace

double ActionEvaluator::ease(const ActionCurve& curve, double t) {
    if (curve.is<ActionCurve::overshoot>()) return overshoot(t);
    if (t <= 0) return 0;
    if (t >= 1) return 1;
    if (const auto* s = std::get_if<ActionCurve::spring>(&curve.cases)) return spring(t, s->stiffness, s->damping);
    if (const auto* s = std::get_if<ActionCurve::steps>(&curve.cases)) {
        const double m = double(std::max<std::int64_t>(s->count, 1));
        return std::floor(t * m) / m;
    }
    if (const auto* b = std::get_if<ActionCurve::bezier>(&curve.cases)) return bezier(t, b->x1, b->y1, b->x2, b->y2);
    if (curve.is<ActionCurve::linear>()) return t;
    return smoothstep(t);
}

double ActionEvaluator::spring(double t, double stiffness, double damping) {
    const double w = std::sqrt(std::max(stiffness, 1e-9));
    const double z = std::max(damping, 0.0) / (2 * w);
    if (z < 1) {
        const double wd = std::sqrt(1 - z * z);
        return 1 - std::exp(-z * w * t) * (std::cos(w * wd * t) + (z / wd) * std::sin(w * wd * t));
    }
    if (z == 1) return 1 - std::exp(-w * t) * (1 + w * t);
    const double s = std::sqrt(z * z - 1);
    const double r1 = -w * (z - s), r2 = -w * (z + s);
    return 1 + (r2 * std::exp(r1 * t) - r1 * std::exp(r2 * t)) / (r1 - r2);
}

double ActionEvaluator::bezier(double t, double x1, double y1, double x2, double y2) {
    return cubic(bezierParameter(t, x1, x2), y1, y2);
}

} // namespace ovik
