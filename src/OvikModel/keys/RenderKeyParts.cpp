#include "OvikModel/keys/RenderKeyParts.h"

#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {
namespace {

thread_local bool inlineFlag = false;

template <class T>
std::string payloadBytes(const T& value) {
    return JSONWriter::write(encodeJSON(value), {.pretty = false, .escapeSlashes = true});
}

} // namespace

RenderKeyParts& RenderKeyParts::shared() {
    static RenderKeyParts parts;
    return parts;
}

std::string RenderKeyParts::json(const std::vector<ObjectNode>& objects) {
    if (objects.empty()) return "null";
    const std::vector<std::string> parts =
        objects_.parts(objects, [](const ObjectNode& node) { return node.id; }, payloadBytes<ObjectNode>);
    std::string out = "[" + parts.front();
    for (std::size_t index = 1; index < parts.size(); ++index) out += "," + parts[index];
    return out + "]";
}

std::string RenderKeyParts::json(const Music& music) { return songs_.bytes(music, payloadBytes<Music>); }

bool RenderKeyParts::inlineOnly() { return inlineFlag; }

RenderKeyParts::InlineScope::InlineScope(bool on) : previous_(inlineFlag) { inlineFlag = on; }

RenderKeyParts::InlineScope::~InlineScope() { inlineFlag = previous_; }

} // namespace ovik
