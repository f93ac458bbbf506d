#pragma once
// A value offered to a property, with the property's title for messages. Each reader takes
// the value in one written form or fails with a `PropertyError` that names the property.
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "OvikModel/values/RGBA.h"
#include "OvikPlatform/geometry/CGRect.h"
#include "OvikPlatform/json/JSONValue.h"

namespace ovik {

struct PropertyValue {
    std::string name;
    JSONValue json;

    /// A finite number, within `range` when one is given.
    double number(const std::optional<std::pair<double, double>>& range = std::nullopt) const;
    std::string text() const;
    bool boolean() const;
    /// One of `words`.
    std::string choice(const std::vector<std::string>& words) const;
    /// "#RRGGBB".
    RGBA color() const;
    /// "#RRGGBB", or "none".
    std::optional<RGBA> colorOrNone() const;
    /// [x, y] with both finite, or "none".
    std::optional<CGPoint> pointOrNone() const;
    /// [[x, y], …], or "none".
    std::optional<std::vector<CGPoint>> pointsOrNone() const;
    /// [x, y, width, height], finite, with both sizes above 0; or "none".
    std::optional<CGRect> rectOrNone() const;
    /// A finite number, or "none".
    std::optional<double> numberOrNone(const std::optional<std::pair<double, double>>& range = std::nullopt) const;
};

} // namespace ovik
