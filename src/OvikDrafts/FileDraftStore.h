#pragma once
// The store of draft packages. Reading and writing the draft file of one package.
#include <filesystem>

#include "OvikModel/Draft.h"

namespace ovik {

class FileDraftStore {
public:
    /// The draft in `package`/draft.json. Throws `DraftStoreFailure`: `unsupportedSchema` when
    /// the file names another schema, `unreadable` ("name: reason") for any other failure.
    static Draft readDraft(const std::filesystem::path& package);

    /// Replaces `package`/draft.json atomically with the draft, pretty-printed. Throws
    /// `DraftStoreFailure` (`writeFailed`); a failure leaves the old file untouched.
    static void writeDraft(const Draft& draft, const std::filesystem::path& package);
};

} // namespace ovik
