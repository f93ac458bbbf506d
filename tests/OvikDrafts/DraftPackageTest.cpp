#include <gtest/gtest.h>

#include <cerrno>

#include "OvikDrafts/DraftPackage.h"
#include "OvikPlatform/files/PosixError.h"
#include "OvikPlatform/files/TemporaryFolder.h"

namespace ovik {
namespace {

using DraftPackageTest = testing::TemporaryFolder;

TEST(DraftPackage, PathsOfAFurtherMediaUseItsUpperCaseText) {
    const MediaID id{*UUID::parse("0f8b2c3d-4e5f-4a6b-8c7d-9e0f1a2b3c4d")};
    EXPECT_EQ(DraftPackage::screenshotPathFor(id).relative, "media/0F8B2C3D-4E5F-4A6B-8C7D-9E0F1A2B3C4D/screenshot.png");
}

TEST_F(DraftPackageTest, OutputFoldersAreMadeWithTheirParentsButNeverAPackage) {
    std::filesystem::create_directory(folder / "Existing.ovikwork");
    writeText(folder / "file", "x");
    for (const char* path : {"a/b/c", "a/b/c", "a/d/", "Existing.ovikwork/renders/KEY"}) {
        DraftPackage::createOutputDirectory(folder / path);
        EXPECT_TRUE(std::filesystem::is_directory(folder / path)) << path;
    }
    const auto made = tree(folder);
    const std::pair<const char*, int> refused[] = {
        {"a/b.ovikwork/c", ENOENT}, {"x/y/Missing.OVIKWORK/renders/k", ENOENT}, {"New.ovikwork/", ENOENT}, {"file/in", EEXIST}};
    for (const auto& [path, code] : refused) {
        try {
            DraftPackage::createOutputDirectory(folder / path);
            ADD_FAILURE() << path;
        } catch (const PosixError& error) {
            EXPECT_EQ(error.code(), code) << path;
        }
        EXPECT_EQ(tree(folder), made) << path;
    }
}

} // namespace
} // namespace ovik
