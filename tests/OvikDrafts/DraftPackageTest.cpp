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
    EXPECT_EQ(DraftPackage::mediaFolderFor(id).relative, "media/0F8B2C3D-4E5F-4A6B-8C7D-9E0F1A2B3C4D");
    EXPECT_EQ(DraftPackage::screenshotPathFor(id).relative,
              "media/0F8B2C3D-4E5F-4A6B-8C7D-9E0F1A2B3C4D/screenshot.png");
    EXPECT_EQ(DraftPackage::eventsPathFor(id).relative, "media/0F8B2C3D-4E5F-4A6B-8C7D-9E0F1A2B3C4D/events.json");
}

TEST_F(DraftPackageTest, OutputFoldersAreMadeWithTheirParents) {
    std::filesystem::create_directory(folder / "Existing.ovikwork");
    const char* cases[] = {"a/b/c", "a/b/c", "a/d/", "Existing.ovikwork/renders/KEY", "Existing.ovikwork"};
    for (const char* path : cases) {
        DraftPackage::createOutputDirectory(folder / path);
        EXPECT_TRUE(std::filesystem::is_directory(folder / path)) << path;
    }
    EXPECT_EQ(tree(folder), (std::set<std::string>{"a", "a/b", "a/b/c", "a/d", "Existing.ovikwork",
                                                   "Existing.ovikwork/renders", "Existing.ovikwork/renders/KEY"}));
}

TEST_F(DraftPackageTest, APackageIsNeverMadeByThisRoute) {
    std::filesystem::create_directory(folder / "a");
    TemporaryFolder::writeText(folder / "file", "x");
    const std::pair<const char*, int> cases[] = {
        {"a/b.ovikwork/c", ENOENT}, {"x/y/Missing.OVIKWORK/renders/k", ENOENT}, {"New.ovikwork", ENOENT},
        {"New.ovikwork/", ENOENT},  {"file/inner", EEXIST},
    };
    for (const auto& [path, code] : cases) {
        try {
            DraftPackage::createOutputDirectory(folder / path);
            ADD_FAILURE() << path;
        } catch (const PosixError& error) {
            EXPECT_EQ(error.code(), code) << path;
        }
        EXPECT_EQ(tree(folder), (std::set<std::string>{"a", "file"})) << path;
    }
}

} // namespace
} // namespace ovik
