#include "OvikL10n/L10nSource.h"

#include "OvikPlatform/json/JSONDocument.h"

namespace ovik {

// The build checks that each table is one JSON object; a member whose value is not a string
// has no text to give and is left out. Of a key written twice, the first text counts.
L10nSource::Table L10nSource::parse(std::string_view bytes) {
    const JSONDocument document = JSONDocument::parse(bytes);
    Table table;
    const JSONNode root = document.root();
    table.reserve(root.size());
    for (const auto& [key, value] : root.members()) {
        if (value.kind() == JSONNode::Kind::string) table.emplace(key, value.string());
    }
    return table;
}

const L10nSource::Table& L10nSource::values() {
    static const Table table = parse(compiledBaseTable());
    return table;
}

const L10nSource::Table* L10nSource::translation(std::string_view language) {
    if (language == "en") {
        static const Table table = parse(compiledEnglishTable());
        return &table;
    }
    return nullptr;
}

std::string L10nSource::lookup(std::string_view key, const Table* translation, const Table& base) {
    if (translation) {
        if (const auto found = translation->find(key); found != translation->end()) return found->second;
    }
    const auto found = base.find(key);
    return found != base.end() ? found->second : std::string(key);
}

} // namespace ovik
