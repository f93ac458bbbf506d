// draft.json is read only as a plain file inside its package and under the size cap: a link to
// an endless device or to a file past the cap is refused before anything is read.
#include <gtest/gtest.h>

#include <fstream>

#include "OvikDrafts/DraftStoreError.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikDrafts/PackageContainment.h"
#include "OvikL10n/L10n.h"
#include "OvikPlatform/files/TemporaryFolder.h"

namespace ovik {
namespace {

namespace fs = std::filesystem;

using BoundedDraftRead = testing::TemporaryFolder;

TEST_F(BoundedDraftRead, ALinkToAnEndlessDeviceOrPastTheCapIsRefusedUnread) {
    const fs::path package = folder / "Linked.ovikwork";
    fs::create_directory(package);
    fs::create_symlink("/dev/zero", folder / "zero");
    // Sparse: as large as the cap allows and a byte more, at no cost of disk.
    std::ofstream(package / "big").close();
    fs::resize_file(package / "big", FileDraftStore::maximumDraftBytes + 1);
    const struct {
        const char* what;
        fs::path target;
    } cases[] = {
        {"the device itself", "/dev/zero"},
        {"a link beside the package that leads to it", "../zero"},
    };
    for (const auto& c : cases) {
        fs::remove(package / "draft.json");
        fs::create_symlink(c.target, package / "draft.json");
        try {
            (void)FileDraftStore::open(package);
            ADD_FAILURE() << c.what;
        } catch (const PackagePathError& error) {
            EXPECT_EQ(error.reason(), PackagePathError::Reason::outside) << c.what;
            EXPECT_EQ(error.path().relative, "draft.json") << c.what;
        }
    }
    fs::remove(package / "draft.json");
    fs::create_symlink("big", package / "draft.json");
    try {
        (void)FileDraftStore::open(package);
        ADD_FAILURE() << "a draft past the cap was read";
    } catch (const DraftStoreFailure& failure) {
        EXPECT_EQ(failure.error().as<DraftStoreError::unreadable>().value,
                  "Linked: " + L10n::format("drafts.files.tooLarge", {"big"}));
    }
}

} // namespace
} // namespace ovik
