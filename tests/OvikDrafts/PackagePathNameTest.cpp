#include <gtest/gtest.h>

#include "OvikDrafts/FileDraftStore.h"
#include "OvikDrafts/PackageCases.h"
#include "OvikL10n/L10n.h"
#include "OvikPlatform/files/PosixError.h"
#include "OvikPlatform/files/TemporaryFolder.h"

namespace ovik {
namespace {

using PackagePathName = testing::TemporaryFolder;

// Read by the system, the name would end at the NUL, "media/a.png": a check of the whole text
// and an open of its head would judge two different files.
const std::string withNul("media/a.png\0/../../../a.png", 27);

TEST_F(PackagePathName, APathHoldingANulIsRefusedWhereverItIsUsed) {
    const L10n::LanguageOverride english("en");
    const std::filesystem::path package = testing::makePackage(folder, {"a NUL", "media/a.png\\u0000/../../../a.png"});
    try {
        FileDraftStore::open(package);
        ADD_FAILURE() << "opened";
    } catch (const PackagePathError& error) {
        EXPECT_EQ(error.reason(), PackagePathError::Reason::notAName);
        EXPECT_EQ(error.path().relative, withNul);
        EXPECT_STREQ(error.what(), "“media/a.png\\0/../../../a.png” can't name a file: it holds a NUL character.");
    }
    const DraftDocument document{{}, package};
    EXPECT_THROW(document.url(PackagePath{withNul}), PosixError);
}

} // namespace
} // namespace ovik
