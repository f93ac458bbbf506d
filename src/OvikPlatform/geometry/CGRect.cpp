#include "OvikPlatform/geometry/CGRect.h"

#include <algorithm>
#include <cmath>

namespace ovik {

double CGRect::minX() const { return std::min(origin.x, origin.x + size.width); }
double CGRect::minY() const { return std::min(origin.y, origin.y + size.height); }
double CGRect::maxX() const { return std::max(origin.x, origin.x + size.width); }
double CGRect::maxY() const { return std::max(origin.y, origin.y + size.height); }
double CGRect::width() const { return std::fabs(size.width); }
double CGRect::height() const { return std::fabs(size.height); }

CGRect CGRect::standardized() const { return CGRect{{minX(), minY()}, {width(), height()}}; }

JSONValue JSONCoding<CGRect>::encode(const CGRect& rect) {
    return JSONValue(JSONValue::Array{encodeJSON(rect.origin), encodeJSON(rect.size)});
}

CGRect JSONCoding<CGRect>::decode(JSONNode node, const CodingPath& path) {
    json_detail::expect(node, JSONNode::Kind::array, path, "Array<Any>");
    if (node.size() != 2)
        throw DecodingError::dataCorrupted(path, "Expected an origin and a size but found " +
                                                     std::to_string(node.size()) + " values.");
    auto element = node.elements().begin();
    CGRect rect;
    rect.origin = JSONCoding<CGPoint>::decode(*element, path.appending(std::int64_t(0)));
    ++element;
    rect.size = JSONCoding<CGSize>::decode(*element, path.appending(std::int64_t(1)));
    return rect;
}

} // namespace ovik
