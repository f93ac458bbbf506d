#pragma once
// The store of draft packages: reading and writing the draft file of one package, and the one
// way a package is opened for reading its files, which every host shares.
#include <cstddef>
#include <filesystem>

#include "OvikDrafts/PackageContainment.h"
#include "OvikModel/Draft.h"
#include "OvikModel/DraftDocument.h"

namespace ovik {

class FileDraftStore {
public:
    /// Far above any real draft file, low enough that a stray one can't exhaust memory.
    static constexpr std::size_t maximumDraftBytes = std::size_t(64) << 20;

    /// The draft in `package`/draft.json. Throws `PackagePathError` when draft.json leads
    /// outside the package, and `DraftStoreFailure`: `unsupportedSchema` when the file names
    /// another schema, `unreadable` ("name: reason") for any other failure, among them a draft
    /// file that isn't a plain file or holds more than `maximumDraftBytes`.
    static Draft readDraft(const std::filesystem::path& package,
                           PackageContainment::Test inside = PackageContainment::isInside);

    /// The package's draft with every file it names held inside the package by `inside`; its
    /// `packageURL` is the package standardized, with its links resolved. Throws what
    /// `readDraft` throws, and `PackagePathError` for the first path that leads outside.
    static DraftDocument open(const std::filesystem::path& package,
                              PackageContainment::Test inside = PackageContainment::isInside);

    /// Replaces `package`/draft.json atomically with the draft, pretty-printed. Throws
    /// `DraftStoreFailure` (`writeFailed`); a failure leaves the old file untouched.
    static void writeDraft(const Draft& draft, const std::filesystem::path& package);
};

} // namespace ovik
