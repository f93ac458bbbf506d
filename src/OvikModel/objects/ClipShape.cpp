#include "OvikModel/objects/ClipShape.h"

namespace ovik {

void ClipShape::Spread::encode(const ClipShape& clip, JSONValue::Object& object) {
    mergeKeys(object, KeyedCaseCoding<Source>::encode(clip.source));
}

// With neither a path nor a picture, the clip must name an object.
void ClipShape::Spread::decode(ClipShape& clip, JSONNode node, const CodingPath& path) {
    auto source = KeyedCaseCoding<Source>::decodeByKey(node, path);
    clip.source = source ? std::move(*source) : Source{{}, decodeJSON<Source::object>(node, path)};
}

} // namespace ovik
