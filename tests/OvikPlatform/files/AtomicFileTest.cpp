#include <gtest/gtest.h>

#include <cerrno>
#include <functional>
#include <vector>

#include "OvikPlatform/UUID.h"
#include "OvikPlatform/files/AtomicFile.h"
#include "OvikPlatform/files/PosixError.h"
#include "OvikPlatform/files/SpecialFiles.h"
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

TEST_F(AtomicFileTest, WriteReplacesTheTargetAndLeavesNoTemporaryFile) {
    const std::filesystem::path target = folder / "draft.json";
    const std::string payloads[] = {std::string("new\0bytes", 9), ""};
    for (const std::string& payload : payloads) {
        AtomicFile::write(payload, target);
        EXPECT_EQ(readText(target), payload);
        EXPECT_EQ(tree(folder), std::set<std::string>{"draft.json"});
    }
    AtomicFile::write(std::vector<std::uint8_t>{0, 255, 10}, target);
    EXPECT_EQ(readText(target), std::string("\0\xff\n", 3));
}

TEST_F(AtomicFileTest, WhatIsNotAPlainFileIsRefusedAndLeftAsItWas) {
    for (const testing::SpecialFile& special : testing::specialFiles) {
        SCOPED_TRACE(special.name);
        const std::filesystem::path target = folder / "out.png";
        special.make(target);
        const int expected = special.type == std::filesystem::file_type::directory ? EISDIR : ENXIO;
        EXPECT_EQ(errorCode([&] { AtomicFile::write("x", target); }), expected);
        EXPECT_EQ(std::filesystem::symlink_status(target).type(), special.type);
        EXPECT_EQ(tree(folder), std::set<std::string>{"out.png"});
        std::filesystem::remove(target);
    }
}

// Replacing a device node would take it from every program of the machine; nothing is even
// made beside it.
TEST_F(AtomicFileTest, ADeviceIsRefusedAlsoThroughALink) {
    const auto madeBeside = [] {
        for (const auto& entry : std::filesystem::directory_iterator("/dev"))
            if (entry.path().filename().string().starts_with(".null.")) return true;
        return false;
    };
    std::filesystem::create_symlink("/dev/null", folder / "out.png");
    for (const std::filesystem::path& target : {std::filesystem::path("/dev/null"), folder / "out.png"}) {
        EXPECT_EQ(errorCode([&] { AtomicFile::write("x", target); }), ENXIO) << target;
        EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
    }
    EXPECT_FALSE(madeBeside());
    EXPECT_EQ(std::filesystem::read_symlink(folder / "out.png"), "/dev/null");
}

TEST_F(AtomicFileTest, ALinkIsFollowedItsTargetReplacedAndTheLinkKept) {
    struct Case {
        const char* name;
        std::vector<std::pair<const char*, const char*>> links; // name, what it holds
        const char* target;                                      // the file that gets the bytes
    };
    const Case cases[] = {
        {"to a file", {{"out.png", "shots/kept.png"}}, "shots/kept.png"},
        {"to nothing yet", {{"out.png", "shots/new.png"}}, "shots/new.png"},
        {"through a linked folder", {{"out.png", "via/kept.png"}, {"via", "shots"}}, "shots/kept.png"},
        {"to a link", {{"out.png", "shots/again.png"}, {"shots/again.png", "kept.png"}}, "shots/kept.png"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::filesystem::create_directories(folder / "shots");
        writeText(folder / "shots/kept.png", "old");
        for (const auto& [name, held] : c.links) std::filesystem::create_symlink(held, folder / name);
        const auto before = tree(folder);

        AtomicFile::write("new", folder / "out.png");
        EXPECT_EQ(readText(folder / c.target), "new");
        for (const auto& [name, held] : c.links) EXPECT_EQ(std::filesystem::read_symlink(folder / name), held);
        auto after = before;
        after.insert(c.target);
        EXPECT_EQ(tree(folder), after);
        for (const auto& entry : std::filesystem::directory_iterator(folder)) std::filesystem::remove_all(entry.path());
    }
}

TEST_F(AtomicFileTest, TemporaryNameIsHiddenUniqueAndBesideTheTarget) {
    const std::filesystem::path target = folder / "draft.json";
    const std::filesystem::path first = AtomicFile::temporaryURL(target);
    EXPECT_EQ(first.parent_path(), folder);
    const std::string name = first.filename().string();
    ASSERT_EQ(name.size(), std::string(".draft.json..tmp").size() + 36) << name;
    EXPECT_TRUE(name.starts_with(".draft.json.") && name.ends_with(".tmp")) << name;
    EXPECT_TRUE(UUID::parse(name.substr(12, 36))) << name;
    EXPECT_NE(first, AtomicFile::temporaryURL(target));
}

TEST_F(AtomicFileTest, MoveExclusivelyNeverReplacesWhatIsThere) {
    struct Case {
        const char* name;
        std::function<void(const std::filesystem::path&)> makeDestination;
        bool moved;
    };
    const Case cases[] = {
        {"free name", [](const std::filesystem::path&) {}, true},
        {"non-empty folder", [](const std::filesystem::path& d) { std::filesystem::create_directories(d / "x"); }, false},
        {"empty folder", [](const std::filesystem::path& d) { std::filesystem::create_directory(d); }, false},
        {"file", [](const std::filesystem::path& d) { writeText(d, "theirs"); }, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const std::filesystem::path source = folder / "staging", destination = folder / "published";
        std::filesystem::create_directories(source);
        writeText(source / "draft.json", "ours");
        c.makeDestination(destination);
        const auto before = tree(folder);

        EXPECT_EQ(AtomicFile::moveExclusively(source, destination), c.moved);
        if (c.moved) {
            EXPECT_EQ(readText(destination / "draft.json"), "ours");
            EXPECT_FALSE(std::filesystem::exists(source));
        } else {
            EXPECT_EQ(tree(folder), before);
        }
        std::filesystem::remove_all(source);
        std::filesystem::remove_all(destination);
    }
}

TEST_F(AtomicFileTest, MissingFoldersAndSourcesFailAndLeaveNothing) {
    EXPECT_EQ(errorCode([&] { AtomicFile::write("x", folder / "missing" / "draft.json"); }), ENOENT);
    EXPECT_EQ(errorCode([&] { AtomicFile::moveExclusively(folder / "missing", folder / "target"); }), ENOENT);
    EXPECT_EQ(errorCode([&] { AtomicFile::replace(folder / "target", folder / "missing"); }), ENOENT);
    EXPECT_TRUE(tree(folder).empty());
}

TEST(PosixError, UnknownCodesBecomeEIO) {
    const std::pair<int, int> cases[] = {{ENOENT, ENOENT}, {EXDEV, EXDEV}, {0, EIO}, {-3, EIO}, {100000, EIO}};
    for (const auto& [code, expected] : cases) EXPECT_EQ(PosixError(code, "/x").code(), expected) << code;
}

} // namespace
} // namespace ovik
