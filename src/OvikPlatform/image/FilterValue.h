#pragma once
// One input of a filter: a number, a point, a rectangle, a vector of four, a colour, a
// transform or an image.
#include <string>
#include <variant>

#include "OvikPlatform/geometry/CGAffineTransform.h"
#include "OvikPlatform/geometry/CGRect.h"
#include "OvikPlatform/image/ColorMatrix.h"
#include "OvikPlatform/image/Image.h"
#include "OvikPlatform/image/ImageColor.h"

namespace ovik {

class FilterValue {
public:
    enum class Kind { number, point, rect, vector, color, transform, image };
    using Value = std::variant<double, CGPoint, CGRect, Vector4, ImageColor, CGAffineTransform, Image>;

    FilterValue(double number) : value_(number) {}
    FilterValue(CGPoint point) : value_(point) {}
    FilterValue(CGRect rect) : value_(rect) {}
    FilterValue(Vector4 vector) : value_(vector) {}
    FilterValue(ImageColor color) : value_(color) {}
    FilterValue(CGAffineTransform transform) : value_(transform) {}
    FilterValue(Image image) : value_(std::move(image)) {}

    Kind kind() const { return Kind(value_.index()); }
    const Value& value() const { return value_; }
    /// Every number in it is finite; an image always is.
    bool isFinite() const;

    /// "a number", "a point", ...
    static std::string describe(Kind kind);

private:
    Value value_;
};

} // namespace ovik
