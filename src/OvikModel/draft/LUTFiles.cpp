#include "OvikModel/draft/LUTFiles.h"

#include <set>

#include "OvikModel/Draft.h"
#include "OvikModel/objects/ObjectWalks.h"

namespace ovik {
namespace {

const std::string* lutDigest(const Effect& effect) {
    if (effect.primitive != EffectPrimitive::lut) return nullptr;
    const ProgramParam* digest = effect.storedParam("sha256");
    if (!digest || !digest->value.is<ProgramValue::text>()) return nullptr;
    return &digest->value.as<ProgramValue::text>().value;
}

void collect(const EffectStack& stack, std::set<PackagePath>& out) {
    for (const Effect& effect : stack.entries)
        if (const std::string* digest = lutDigest(effect)) out.insert(PackagePath{"luts/" + *digest + ".cube"});
}

} // namespace

std::vector<PackagePath> lutFiles(const Draft& draft) {
    std::set<PackagePath> paths;
    collect(draft.style.look, paths);
    for (const Media& media : draft.media) collect(media.effects, paths);
    for (const Section& section : draft.sections)
        if (section.look) collect(*section.look, paths);
    forEachNode(draft.objects, std::nullopt,
                [&](const ObjectNode& node, const ObjectLocation&) { collect(node.effects, paths); });
    return {paths.begin(), paths.end()};
}

} // namespace ovik
