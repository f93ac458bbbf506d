#pragma once
// The store of draft packages: reading and writing the draft file of one package, and the one
// way a package is opened for reading its files, which every host shares.
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>

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

    /// How long a writer waits for another writer of the same package to finish.
    static constexpr std::chrono::milliseconds writerLockWait{10000};
    /// How old a temporary file of another write must be before a writer may clear it away.
    static constexpr std::chrono::seconds leftoverMinimumAge{5};

    /// Replaces `package`/draft.json atomically with the draft, pretty-printed, while holding
    /// the package's writer lock, and first clears away the temporary files that killed writes
    /// left in the package. Throws `DraftStoreFailure` (`writeFailed`), also when another
    /// writer holds the lock for longer than `wait`; a failure leaves the old file untouched.
    static void writeDraft(const Draft& draft, const std::filesystem::path& package,
                           std::chrono::milliseconds wait = writerLockWait);

    /// Reads the package's draft, lets `change` edit it, and writes it back when `change`
    /// answers true, all under the writer lock, so that no other writer's change made
    /// meanwhile is lost. Answers what `change` answered. Throws what `readDraft` and
    /// `writeDraft` throw; `change` isn't called when the lock or the draft can't be had. The
    /// lock is one per call, so `change` must not write this package itself.
    static bool update(const std::filesystem::path& package, const std::function<bool(Draft&)>& change,
                       std::chrono::milliseconds wait = writerLockWait);
};

} // namespace ovik
