#include "OvikPlatform/geometry/CGAffineTransform.h"

#include <cmath>

namespace ovik {

CGAffineTransform CGAffineTransform::rotation(double radians) {
    const double cosine = std::cos(radians), sine = std::sin(radians);
    return {cosine, sine, -sine, cosine, 0, 0};
}

CGAffineTransform CGAffineTransform::concatenating(const CGAffineTransform& t) const {
    return {a * t.a + b * t.c,        a * t.b + b * t.d,        c * t.a + d * t.c,
            c * t.b + d * t.d,        tx * t.a + ty * t.c + t.tx, tx * t.b + ty * t.d + t.ty};
}

JSONValue JSONCoding<CGAffineTransform>::encode(const CGAffineTransform& t) {
    return JSONValue(JSONValue::Array{t.a, t.b, t.c, t.d, t.tx, t.ty});
}

CGAffineTransform JSONCoding<CGAffineTransform>::decode(JSONNode node, const CodingPath& path) {
    const std::vector<double> values = JSONCoding<std::vector<double>>::decode(node, path);
    if (values.size() != 6)
        throw DecodingError::dataCorrupted(path, "Expected 6 numbers but found " + std::to_string(values.size()) + ".");
    return {values[0], values[1], values[2], values[3], values[4], values[5]};
}

} // namespace ovik
