#include "OvikModel/objects/ImageSource.h"

namespace ovik {

JSONValue JSONCoding<ImageSource>::encode(const ImageSource& source) {
    return KeyedCaseCoding<ImageSource>::encode(source);
}

ImageSource JSONCoding<ImageSource>::decode(JSONNode node, const CodingPath& path) {
    if (auto source = KeyedCaseCoding<ImageSource>::decodeByKey(node, path)) return std::move(*source);
    throw DecodingError::dataCorrupted(path, "An image source names a media, an object or a section");
}

} // namespace ovik
