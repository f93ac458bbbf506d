#pragma once
// The mathematics of evaluating actions. So far: easing of progress along a curve.
#include "OvikModel/animation/ActionCurve.h"

namespace ovik {

struct ActionEvaluator {
    /// Eased progress for progress `t`. Every curve but `overshoot` holds 0 below 0 and 1 above 1;
    /// `overshoot` rises past 1 between its ends.
    static double ease(const ActionCurve& curve, double t);

    /// A damped spring's position at normalised progress `t` (not seconds).
    static double spring(double t, double stiffness, double damping);

    /// CSS-style cubic Bézier easing with ends (0,0) and (1,1).
    static double bezier(double t, double x1, double y1, double x2, double y2);
};

} // namespace ovik
