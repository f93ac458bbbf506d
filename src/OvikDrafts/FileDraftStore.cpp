#include "OvikDrafts/FileDraftStore.h"

#include <optional>

#include "OvikDrafts/DraftPackage.h"
#include "OvikDrafts/DraftStoreError.h"
#include "OvikDrafts/LocalizedDescription.h"
#include "OvikModel/DraftJSON.h"
#include "OvikModel/SchemaProbe.h"
#include "OvikPlatform/files/AtomicFile.h"
#include "OvikPlatform/files/ReadFile.h"

namespace ovik {
namespace {

std::filesystem::path draftFile(const std::filesystem::path& package) {
    return package / DraftPackage::draftFileName;
}

// The package's name without its extension, also when the path ends in "/".
std::string packageName(const std::filesystem::path& package) {
    std::filesystem::path named = package;
    while (!named.has_filename() && named.has_relative_path()) named = named.parent_path();
    return named.stem().string();
}

[[noreturn]] void throwUnreadable(const std::filesystem::path& package, const std::exception& error) {
    throw DraftStoreFailure(DraftStoreError::unreadable{packageName(package) + ": " + localizedDescription(error)});
}

// A file that is no JSON object, or lacks a whole-number `schema`, is left for the draft's
// own decoder to refuse with a better reason.
std::optional<std::int64_t> probedSchema(JSONNode root) {
    try {
        return decodeJSON<SchemaProbe>(root).schema;
    } catch (const DecodingError&) {
        return std::nullopt;
    }
}

// The bytes are parsed once for both the probe and the draft; text that is no JSON at all
// fails both the same way.
JSONDocument parsed(std::string_view bytes, const std::filesystem::path& package) {
    try {
        return JSONDocument::parse(bytes);
    } catch (const DecodingError& error) {
        throwUnreadable(package, error);
    }
}

} // namespace

Draft FileDraftStore::readDraft(const std::filesystem::path& package) {
    std::string bytes;
    try {
        bytes = readFile(draftFile(package));
    } catch (const std::exception& error) {
        throwUnreadable(package, error);
    }
    const JSONDocument document = parsed(bytes, package);
    if (const auto schema = probedSchema(document.root()); schema && *schema != Draft::currentSchema)
        throw DraftStoreFailure(DraftStoreError::unsupportedSchema{*schema});
    try {
        return decodeJSON<Draft>(document.root());
    } catch (const Error& error) {
        throwUnreadable(package, error);
    }
}

void FileDraftStore::writeDraft(const Draft& draft, const std::filesystem::path& package) {
    try {
        AtomicFile::write(DraftJSON::encode(draft, true), draftFile(package));
    } catch (const std::exception& error) {
        throw DraftStoreFailure(storeError(error));
    }
}

} // namespace ovik
