#include <gtest/gtest.h>

#include <cerrno>
#include <functional>

#include "OvikPlatform/files/AtomicFile.h"
#include "OvikPlatform/files/PosixError.h"
#include "OvikPlatform/files/TemporaryFolder.h"

namespace ovik {
namespace {

using AtomicFileTest = testing::TemporaryFolder;

int errorCode(const std::function<void()>& action) {
    try {
        action();
    } catch (const PosixError& error) {
        return error.code();
    }
    return 0;
}

TEST_F(AtomicFileTest, WriteReplacesTheTargetFromAHiddenFileBesideIt) {
    const std::filesystem::path target = folder / "draft.json";
    for (const std::string& payload : {std::string("old"), std::string("new\0bytes", 9), std::string()}) {
        AtomicFile::write(payload, target);
        EXPECT_EQ(readText(target), payload);
        EXPECT_EQ(tree(folder), std::set<std::string>{"draft.json"});
    }
    const std::filesystem::path temporary = AtomicFile::temporaryURL(target);
    EXPECT_EQ(temporary.parent_path(), folder);
    EXPECT_TRUE(temporary.filename().string().starts_with(".draft.json."));
    EXPECT_NE(temporary, AtomicFile::temporaryURL(target));
}

TEST_F(AtomicFileTest, AFailedWriteLeavesNothingAndKeepsTheTarget) {
    EXPECT_EQ(errorCode([&] { AtomicFile::write("x", folder / "missing" / "draft.json"); }), ENOENT);
    EXPECT_TRUE(tree(folder).empty());
    // A folder with content can't be replaced by a file: the rename fails after the write.
    std::filesystem::create_directories(folder / "draft.json" / "inner");
    EXPECT_EQ(errorCode([&] { AtomicFile::write("x", folder / "draft.json"); }), EISDIR);
    EXPECT_EQ(tree(folder), (std::set<std::string>{"draft.json", "draft.json/inner"}));
    EXPECT_EQ(errorCode([&] { AtomicFile::replace(folder / "target", folder / "missing"); }), ENOENT);
}

TEST_F(AtomicFileTest, MoveExclusivelyNeverReplacesWhatIsThere) {
    const std::filesystem::path source = folder / "staging", destination = folder / "published";
    const std::pair<const char*, std::function<void()>> taken[] = {
        {"non-empty folder", [&] { std::filesystem::create_directories(destination / "x"); }},
        {"empty folder", [&] { std::filesystem::create_directory(destination); }},
        {"file", [&] { writeText(destination, "theirs"); }},
    };
    std::filesystem::create_directories(source);
    writeText(source / "draft.json", "ours");
    for (const auto& [what, make] : taken) {
        make();
        const auto before = tree(folder);
        EXPECT_FALSE(AtomicFile::moveExclusively(source, destination)) << what;
        EXPECT_EQ(tree(folder), before) << what;
        std::filesystem::remove_all(destination);
    }
    EXPECT_TRUE(AtomicFile::moveExclusively(source, destination));
    EXPECT_EQ(tree(folder), (std::set<std::string>{"published", "published/draft.json"}));
    EXPECT_EQ(errorCode([&] { AtomicFile::moveExclusively(source, folder / "target"); }), ENOENT);
}

TEST(PosixError, UnknownCodesBecomeEIO) {
    const std::pair<int, int> cases[] = {
        {ENOENT, ENOENT}, {EHWPOISON, EHWPOISON}, {EHWPOISON + 1, EIO}, {0, EIO}, {-3, EIO}};
    for (const auto& [code, expected] : cases) EXPECT_EQ(PosixError(code, "/x").code(), expected) << code;
}

} // namespace
} // namespace ovik
