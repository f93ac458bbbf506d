#include <gtest/gtest.h>

#include <cerrno>

#include "OvikDrafts/DraftStoreError.h"
#include "OvikDrafts/LocalizedDescription.h"
#include "OvikPlatform/files/PosixError.h"
#include "OvikPlatform/json/DecodingError.h"

namespace ovik {
namespace {

TEST(DraftStoreError, CasesWithFinishedTextShowItUnchanged) {
    const std::pair<DraftStoreError, const char*> cases[] = {
        {DraftStoreError::make(DraftStoreError::unreadable{"Draft: reason"}), "Draft: reason"},
        {DraftStoreError::make(DraftStoreError::writeFailed{"no free name for Draft"}), "no free name for Draft"},
        {DraftStoreError::make(DraftStoreError::invalidName{"名称太长"}), "名称太长"},
    };
    for (const auto& [error, text] : cases) EXPECT_STREQ(DraftStoreFailure(error).what(), text);
}

TEST(DraftStoreError, StoreErrorPassesStoreFailuresAndWrapsTheRest) {
    const DraftStoreFailure own(DraftStoreError::nameTaken{"Draft"});
    EXPECT_EQ(storeError(own), own.error());

    const PosixError file(ENOSPC, "/drafts/A.ovikwork/draft.json");
    const DecodingError decoding = DecodingError::dataCorrupted(CodingPath(), "broken");
    const std::runtime_error plain("plain failure");
    for (const std::exception* error : std::initializer_list<const std::exception*>{&file, &decoding, &plain}) {
        const DraftStoreError wrapped = storeError(*error);
        ASSERT_TRUE(wrapped.is<DraftStoreError::writeFailed>());
        EXPECT_EQ(wrapped.as<DraftStoreError::writeFailed>().value, localizedDescription(*error));
    }
    EXPECT_EQ(localizedDescription(plain), "plain failure");
}

} // namespace
} // namespace ovik
