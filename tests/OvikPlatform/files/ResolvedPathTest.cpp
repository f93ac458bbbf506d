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
    std::filesystem::path real;
};

TEST_F(ResolvedPathTest, FollowsEveryLinkAndKeepsTheMissingTail) {
    link("d/sub", "inside");
    link("/nonexistent/place", "dangling");
    link("../" + real.filename().string() + "/d", "roundabout");
    link("d", "chain1");
    link("chain1", "chain2");
    struct Case {
        std::filesystem::path input, expected;
    };
    const Case cases[] = {
        {real / "inside" / "file.png", real / "d" / "sub" / "file.png"},
        {real / "dangling" / "more", "/nonexistent/place/more"},
        {real / "roundabout" / "sub", real / "d" / "sub"},
        {real / "chain2" / "sub" / "x", real / "d" / "sub" / "x"},
        {real / "missing" / "." / "a" / ".." / "b", real / "missing" / "b"},
        {real / "d" / "sub" / "..", real / "d"},
        {"/..", "/"},
    };
    for (const Case& c : cases) EXPECT_EQ(resolvedPath(c.input), c.expected) << c.input;
}

TEST_F(ResolvedPathTest, ALoopOfLinksIsAnError) {
    link("b", "a");
    link("a", "b");
    try {
        (void)resolvedPath(real / "a" / "x");
        FAIL() << "a loop resolved";
    } catch (const PosixError& error) {
        EXPECT_EQ(error.code(), ELOOP);
    }
}

TEST_F(ResolvedPathTest, ReadFileGivesTheBytesOrATypedError) {
    writeText(real / "data", std::string("a\0b", 3));
    EXPECT_EQ(readFile(real / "data"), std::string("a\0b", 3));
    const std::pair<std::filesystem::path, int> failures[] = {{real / "missing", ENOENT}, {real / "d", EISDIR}};
    for (const auto& [path, code] : failures) {
        try {
            (void)readFile(path);
            ADD_FAILURE() << path;
        } catch (const PosixError& error) {
            EXPECT_EQ(error.code(), code) << path;
            EXPECT_EQ(error.path(), path);
        }
    }
}

} // namespace
} // namespace ovik
