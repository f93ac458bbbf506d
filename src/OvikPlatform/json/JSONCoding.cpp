#include "OvikPlatform/json/JSONCoding.h"

#include "OvikPlatform/json/JSONNumberText.h"

namespace ovik {
namespace json_detail {

void mismatch(JSONNode node, const CodingPath& path, std::string_view type) {
    if (node.isNull()) throw DecodingError::valueNotFound(path, type);
    throw DecodingError::typeMismatch(path, type, node.kindDescription());
}

void doesNotFit(JSONNode node, const CodingPath& path, std::string_view type) {
    std::string digits;
    std::uint64_t whole = 0;
    if (node.kind() == JSONNode::Kind::integer)
        digits = std::to_string(node.integer());
    else if (node.unsignedInteger(whole))
        digits = std::to_string(whole);
    else
        JSONNumberText::appendDouble(digits, node.number());
    throw DecodingError::numberOutOfRange(path, "Parsed JSON number <" + digits + "> does not fit in " + std::string(type) + ".");
}

} // namespace json_detail

TaggedCase TaggedCase::read(JSONNode node, const CodingPath& path) {
    if (node.kind() == JSONNode::Kind::string) return TaggedCase{node.string(), std::nullopt, path};
    if (node.kind() == JSONNode::Kind::object) {
        const auto members = node.members();
        auto first = members.begin();
        if (first != members.end()) {
            const auto member = *first;
            if (!(++first != members.end())) return TaggedCase{member.key, member.value, path};
        }
    }
    throw DecodingError::dataCorrupted(path, "Expected a case name or an object with one key");
}

JSONNode TaggedCase::requirePayload() const {
    if (payload) return *payload;
    throw DecodingError::dataCorrupted(codingPath, "Case " + std::string(name) + " needs a value");
}

JSONValue taggedValue(const CaseKey& key, JSONValue payload) {
    JSONValue::Object object;
    object.emplace(key.stringValue, std::move(payload));
    return JSONValue(std::move(object));
}

} // namespace ovik
