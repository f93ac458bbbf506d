#include <gtest/gtest.h>

#include <cerrno>

#include "OvikPlatform/files/PosixError.h"
#include "OvikPlatform/files/ReadFile.h"
#include "OvikPlatform/files/ResolvedPath.h"
#include "OvikPlatform/files/TemporaryFolder.h"

namespace ovik {
namespace {

class ResolvedPathTest : public testing::TemporaryFolder {
protected:
    void SetUp() override {
        TemporaryFolder::SetUp();
        real = std::filesystem::canonical(folder);
        std::filesystem::create_directories(real / "d" / "sub");
    }
    void link(const std::filesystem::path& target, const std::string& name) {
        std::filesystem::create_symlink(target, real / name);
    }
    int errorCode(const std::function<void()>& action) const {
        try {
            action();
        } catch (const PosixError& error) {
            EXPECT_TRUE(error.path().string().starts_with(real.string())) << error.path();
            return error.code();
        }
        return 0;
    }
    std::filesystem::path real;
};

TEST_F(ResolvedPathTest, FollowsEveryLinkAndKeepsTheMissingTail) {
    link("d/sub", "inside");
    link("/nonexistent/place", "dangling");
    link("../" + real.filename().string() + "/d", "roundabout");
    // A chain of 40 links, as many as the kernel follows in one lookup.
    link("d", "chain0");
    for (int i = 1; i < 40; ++i) link("chain" + std::to_string(i - 1), "chain" + std::to_string(i));
    const std::pair<std::filesystem::path, std::filesystem::path> cases[] = {
        {real / "inside" / "file.png", real / "d" / "sub" / "file.png"},
        {real / "dangling" / "more", "/nonexistent/place/more"},
        {real / "roundabout" / "sub", real / "d" / "sub"},
        {real / "chain39" / "sub" / "x", real / "d" / "sub" / "x"},
        {real / "missing" / "." / "a" / ".." / "b", real / "missing" / "b"},
        {"/..", "/"},
    };
    for (const auto& [input, expected] : cases) EXPECT_EQ(resolvedPath(input), expected) << input;
    // One link more, or a loop, is an error.
    link("chain39", "chain40");
    link("b", "a");
    link("a", "b");
    EXPECT_EQ(errorCode([&] { (void)resolvedPath(real / "chain40"); }), ELOOP);
    EXPECT_EQ(errorCode([&] { (void)resolvedPath(real / "a" / "x"); }), ELOOP);
}

TEST_F(ResolvedPathTest, ReadFileGivesTheBytesOrATypedError) {
    writeText(real / "data", std::string("a\0b", 3));
    EXPECT_EQ(readFile(real / "data"), std::string("a\0b", 3));
    EXPECT_EQ(errorCode([&] { (void)readFile(real / "missing"); }), ENOENT);
    EXPECT_EQ(errorCode([&] { (void)readFile(real / "d"); }), EISDIR);
}

} // namespace
} // namespace ovik
