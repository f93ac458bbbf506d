#include "OvikPlatform/image/FilterValue.h"

#include <algorithm>
#include <cmath>

namespace ovik {
namespace {

bool finite(double v) { return std::isfinite(v); }
bool finite(CGPoint p) { return finite(p.x) && finite(p.y); }
bool finite(const CGRect& r) { return finite(r.origin) && finite(r.size.width) && finite(r.size.height); }
bool finite(const Vector4& v) {
    return std::all_of(v.begin(), v.end(), [](double c) { return finite(c); });
}
bool finite(const ImageColor& c) { return c.isFinite(); }
bool finite(const CGAffineTransform& t) { return finite(Vector4{t.a, t.b, t.c, t.d}) && finite(t.tx) && finite(t.ty); }
bool finite(const Image&) { return true; }

} // namespace

bool FilterValue::isFinite() const {
    return std::visit([](const auto& v) { return finite(v); }, value_);
}

std::string FilterValue::describe(Kind kind) {
    switch (kind) {
    case Kind::number:
        return "a number";
    case Kind::point:
        return "a point";
    case Kind::rect:
        return "a rectangle";
    case Kind::vector:
        return "a vector of four numbers";
    case Kind::color:
        return "a colour";
    case Kind::transform:
        return "an affine transform";
    case Kind::image:
        return "an image";
    }
    return "a value";
}

} // namespace ovik
