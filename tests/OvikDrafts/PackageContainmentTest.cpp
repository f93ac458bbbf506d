#include <gtest/gtest.h>

#include "OvikDrafts/PackageContainment.h"
#include "OvikPlatform/files/TemporaryFolder.h"

namespace ovik {
namespace {

class PackageContainmentTest : public testing::TemporaryFolder {
protected:
    void SetUp() override {
        TemporaryFolder::SetUp();
        real = std::filesystem::canonical(folder);
        root = real / "A.ovikwork";
        std::filesystem::create_directories(root / "media");
        std::filesystem::create_directories(real / "outside");
        std::filesystem::create_directories(real / "A.ovikwork2");
    }
    std::filesystem::path real, root;
};

TEST_F(PackageContainmentTest, PathsInsideResolveToTheirRealPlace) {
    std::filesystem::create_symlink("media", root / "alias");
    std::filesystem::create_symlink(root, real / "link.ovikwork");
    struct Case {
        std::filesystem::path root;
        const char* path;
        std::filesystem::path expected;
    };
    const Case cases[] = {
        {root, "draft.json", root / "draft.json"},
        {root, "media/0F8B/screenshot.png", root / "media/0F8B/screenshot.png"},
        {root, "alias/x.mov", root / "media/x.mov"},
        {root, "media//./x.mov", root / "media/x.mov"},
        {real / "link.ovikwork", "media/x.mov", root / "media/x.mov"},
    };
    for (const Case& c : cases) EXPECT_EQ(PackageContainment::resolve(c.root, PackagePath{c.path}), c.expected) << c.path;
}

TEST_F(PackageContainmentTest, PathsThatLeaveThePackageAreRefused) {
    std::filesystem::create_symlink(real / "outside", root / "out");
    std::filesystem::create_symlink("/nonexistent/ghost", root / "ghost");
    std::filesystem::create_symlink("..", root / "up");
    std::filesystem::create_symlink("../A.ovikwork2", root / "sibling");
    std::filesystem::create_symlink(".", root / "self");
    using Reason = PackagePathError::Reason;
    const std::pair<const char*, Reason> cases[] = {
        {"/etc/passwd", Reason::absolute},    {"../outside/x", Reason::parentStep},
        {"media/../../x", Reason::parentStep}, {"media/..", Reason::parentStep},
        {"out/x.mov", Reason::outside},       {"ghost", Reason::outside},
        {"up/outside/x", Reason::outside},    {"sibling/x", Reason::outside},
        {"", Reason::outside},                {".", Reason::outside},
        {"self", Reason::outside},
    };
    for (const auto& [path, reason] : cases) {
        const auto before = tree(real);
        try {
            (void)PackageContainment::resolve(root, PackagePath{path});
            ADD_FAILURE() << path;
        } catch (const PackagePathError& error) {
            EXPECT_EQ(error.reason(), reason) << path;
            EXPECT_EQ(error.path().relative, path);
        }
        EXPECT_EQ(tree(real), before);
    }
}

TEST(PackageContainment, ComparesWholeComponentsNotText) {
    struct Case {
        const char* candidate;
        bool inside;
    };
    const Case cases[] = {
        {"/d/A.ovikwork/x", true}, {"/d/A.ovikwork/x/y", true}, {"/d/A.ovikwork2/x", false},
        {"/d/A.ovikwork", false},  {"/d", false},               {"/e/A.ovikwork/x", false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(PackageContainment::isInside(c.candidate, "/d/A.ovikwork"), c.inside) << c.candidate;
}

} // namespace
} // namespace ovik
