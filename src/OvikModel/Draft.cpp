#include "OvikModel/Draft.h"

#include "OvikModel/DraftSchemaMismatch.h"

namespace ovik {
namespace {

constexpr std::string_view schemaKey = "schema";

void checkSchema(JSONNode node, const CodingPath& path) {
    JSONNode value = node;
    if (!node.find(schemaKey, value)) throw DecodingError::keyNotFound(path, schemaKey);
    const auto schema = JSONCoding<std::int64_t>::decode(value, path.appending(schemaKey));
    if (schema != Draft::currentSchema) throw DraftSchemaMismatch(schema);
}

} // namespace

JSONValue JSONCoding<Draft>::encode(const Draft& draft) {
    JSONValue::Object object = draft.otherKeys;
    object.insert_or_assign(std::string(schemaKey), JSONValue(Draft::currentSchema));
    return JSONValue(std::move(object));
}

Draft JSONCoding<Draft>::decode(JSONNode node, const CodingPath& path) {
    json_detail::expect(node, JSONNode::Kind::object, path, "Dictionary<String, Any>");
    checkSchema(node, path);
    Draft draft;
    for (const auto member : node.members())
        if (member.key != schemaKey) draft.otherKeys.insert_or_assign(std::string(member.key), member.value.value());
    return draft;
}

} // namespace ovik
