#include "OvikModel/values/Numbers.h"

namespace ovik {

JSONValue JSONCoding<Numbers>::encode(const Numbers& numbers) {
    if (numbers.values.size() == 1) return JSONValue(numbers.values.front());
    return encodeJSON(numbers.values);
}

Numbers JSONCoding<Numbers>::decode(JSONNode node, const CodingPath& path) {
    if (node.kind() == JSONNode::Kind::integer || node.kind() == JSONNode::Kind::number)
        return Numbers{{node.number()}};
    return Numbers{JSONCoding<std::vector<double>>::decode(node, path)};
}

} // namespace ovik
