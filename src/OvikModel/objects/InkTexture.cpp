#include "OvikModel/objects/InkTexture.h"

#include <cmath>

namespace ovik {
namespace {

constexpr const char* standardInkIsOmitted = "Standard ink is omitted";

bool within(double value, double low, double high) { return std::isfinite(value) && value >= low && value <= high; }

template <class Case>
JSONValue flat(const Case& ink) {
    JSONValue value = encodeJSON(ink);
    value.object()->insert_or_assign("kind", JSONValue(Case::name));
    return value;
}

template <class Case>
Case checked(JSONNode node, const CodingPath& path, const char* refusal) {
    Case ink = decodeJSON<Case>(node, path);
    if (!ink.isValid()) throw DecodingError::dataCorrupted(path, refusal);
    return ink;
}

} // namespace

bool InkTexture::dry::isValid() const { return within(amount, 0, 1) && within(grain, 0.25, 4); }

bool InkTexture::pixel::isValid() const { return within(cell, 1, 16); }

JSONValue JSONCoding<InkTexture>::encode(const InkTexture& ink) {
    if (ink.is<InkTexture::dry>()) return flat(ink.as<InkTexture::dry>());
    if (ink.is<InkTexture::pixel>()) return flat(ink.as<InkTexture::pixel>());
    throw EncodingError({}, standardInkIsOmitted);
}

InkTexture JSONCoding<InkTexture>::decode(JSONNode node, const CodingPath& path) {
    json_detail::expect(node, JSONNode::Kind::object, path, "Dictionary<String, Any>");
    JSONNode kindNode = node;
    if (!node.find("kind", kindNode)) throw DecodingError::keyNotFound(path, "kind");
    switch (decodeJSON<InkTexture::Kind>(kindNode, path.appending("kind"))) {
    case InkTexture::Kind::dry:
        return InkTexture{{}, checked<InkTexture::dry>(node, path, "Invalid dry ink parameters")};
    case InkTexture::Kind::pixel:
        return InkTexture{{}, checked<InkTexture::pixel>(node, path, "Invalid pixel ink cell")};
    case InkTexture::Kind::none: break;
    }
    throw DecodingError::dataCorrupted(path, standardInkIsOmitted);
}

} // namespace ovik
