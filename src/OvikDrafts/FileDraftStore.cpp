#include "OvikDrafts/FileDraftStore.h"

#include <cerrno>
#include <optional>

#include "OvikDrafts/DraftPackage.h"
#include "OvikDrafts/DraftPaths.h"
#include "OvikDrafts/DraftStoreError.h"
#include "OvikDrafts/LocalizedDescription.h"
#include "OvikL10n/L10n.h"
#include "OvikModel/DraftJSON.h"
#include "OvikModel/SchemaProbe.h"
#include "OvikPlatform/files/AtomicFile.h"
#include "OvikPlatform/files/FileLock.h"
#include "OvikPlatform/files/PosixError.h"
#include "OvikPlatform/files/ReadFile.h"
#include "OvikPlatform/files/ResolvedPath.h"

namespace ovik {
namespace {

// The package's name without its extension, also when the path ends in "/".
std::string packageName(const std::filesystem::path& package) {
    std::filesystem::path named = package;
    while (!named.has_filename() && named.has_relative_path()) named = named.parent_path();
    return named.stem().string();
}

[[noreturn]] void throwUnreadable(const std::filesystem::path& package, const std::exception& error) {
    throw DraftStoreFailure(DraftStoreError::unreadable{packageName(package) + ": " + localizedDescription(error)});
}

std::filesystem::path resolvedRoot(const std::filesystem::path& package) {
    try {
        return resolvedPath(package);
    } catch (const PosixError& error) {
        throwUnreadable(package, error);
    }
}

// A folder that can't be examined on the way (a loop of links) makes the package unreadable.
std::filesystem::path contained(const std::filesystem::path& package, const std::filesystem::path& root,
                                const PackagePath& path, PackageContainment::Test inside) {
    try {
        return PackageContainment::resolve(root, path, inside);
    } catch (const PosixError& error) {
        throwUnreadable(package, error);
    }
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

Draft decodedDraft(std::string_view bytes, const std::filesystem::path& package) {
    const JSONDocument document = parsed(bytes, package);
    if (const auto schema = probedSchema(document.root()); schema && *schema != Draft::currentSchema)
        throw DraftStoreFailure(DraftStoreError::unsupportedSchema{*schema});
    try {
        return decodeJSON<Draft>(document.root());
    } catch (const Error& error) {
        throwUnreadable(package, error);
    }
}

// The draft file is held inside the package like any file the draft names.
Draft draftIn(const std::filesystem::path& package, const std::filesystem::path& root, PackageContainment::Test inside) {
    const std::filesystem::path file =
        contained(package, root, PackagePath{std::string(DraftPackage::draftFileName)}, inside);
    std::string bytes;
    try {
        bytes = readFile(file, FileDraftStore::maximumDraftBytes);
    } catch (const std::exception& error) {
        throwUnreadable(package, error);
    }
    return decodedDraft(bytes, package);
}

// Writers of a package take turns on a lock of the package folder: the one inode that stays
// while draft.json is replaced by a rename, and no file of ours to leave behind. Readers take
// no lock, since the rename hands them the old file or the new one whole.
FileLock writerLock(const std::filesystem::path& package, std::chrono::milliseconds wait) {
    try {
        return FileLock::acquire(package, wait);
    } catch (const PosixError& error) {
        if (error.code() == EWOULDBLOCK)
            throw DraftStoreFailure(DraftStoreError::writeFailed{L10n::format("drafts.lock.busy", {packageName(package)})});
        throw DraftStoreFailure(storeError(error));
    }
}

// Called with the writer lock held: no other draft write of this package is under way.
void writeLocked(const Draft& draft, const std::filesystem::path& package) {
    try {
        AtomicFile::removeLeftovers(package, FileDraftStore::leftoverMinimumAge);
        AtomicFile::write(DraftJSON::encode(draft, true), package / DraftPackage::draftFileName);
    } catch (const std::exception& error) {
        throw DraftStoreFailure(storeError(error));
    }
}

} // namespace

Draft FileDraftStore::readDraft(const std::filesystem::path& package, PackageContainment::Test inside) {
    return draftIn(package, resolvedRoot(package), inside);
}

DraftDocument FileDraftStore::open(const std::filesystem::path& package, PackageContainment::Test inside) {
    const std::filesystem::path root = resolvedRoot(package);
    Draft draft = draftIn(package, root, inside);
    for (const PackagePath& path : draftPaths(draft)) contained(package, root, path, inside);
    return DraftDocument{std::move(draft), root};
}

void FileDraftStore::writeDraft(const Draft& draft, const std::filesystem::path& package,
                                std::chrono::milliseconds wait) {
    const FileLock lock = writerLock(package, wait);
    writeLocked(draft, package);
}

bool FileDraftStore::update(const std::filesystem::path& package, const std::function<bool(Draft&)>& change,
                            std::chrono::milliseconds wait) {
    const FileLock lock = writerLock(package, wait);
    Draft draft = readDraft(package);
    if (!change(draft)) return false;
    writeLocked(draft, package);
    return true;
}

} // namespace ovik
