#include "OvikModel/draft/LUTFiles.h"

#include <set>

#include "OvikModel/Draft.h"
#include "OvikModel/objects/ObjectWalks.h"

namespace ovik {
namespace {

// A parameter's text, stored tagged ({"text": "…"}) or bare.
const std::string* textValue(const JSONValue& value) {
    if (const std::string* text = value.string()) return text;
    if (const JSONValue* tagged = value.at("text")) return tagged->string();
    return nullptr;
}

const std::string* lutDigest(const JSONValue& effect) {
    const JSONValue* primitive = effect.at("primitive");
    const JSONValue* params = effect.at("params");
    if (!primitive || !primitive->string() || *primitive->string() != "lut" || !params || !params->array())
        return nullptr;
    for (const JSONValue& param : *params->array()) {
        const JSONValue* name = param.at("name");
        const JSONValue* value = param.at("value");
        if (name && name->string() && *name->string() == "sha256" && value) return textValue(*value);
    }
    return nullptr;
}

void collect(const std::optional<JSONValue>& stack, std::set<PackagePath>& out) {
    if (!stack) return;
    const JSONValue* entries = stack->at("entries");
    if (!entries || !entries->array()) return;
    for (const JSONValue& effect : *entries->array())
        if (const std::string* digest = lutDigest(effect)) out.insert(PackagePath{"luts/" + *digest + ".cube"});
}

} // namespace

std::vector<PackagePath> lutFiles(const Draft& draft) {
    std::set<PackagePath> paths;
    collect(draft.style.look, paths);
    for (const Media& media : draft.media) collect(media.effects, paths);
    for (const Section& section : draft.sections) collect(section.look, paths);
    forEachNode(draft.objects, std::nullopt,
                [&](const ObjectNode& node, const ObjectLocation&) { collect(node.effects, paths); });
    return {paths.begin(), paths.end()};
}

} // namespace ovik
