#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <functional>
#include <optional>
#include <thread>

#include "OvikDrafts/DraftPackage.h"
#include "OvikDrafts/DraftPaths.h"
#include "OvikDrafts/DraftStoreError.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikDrafts/PackageCases.h"
#include "OvikDrafts/PackageContainment.h"
#include "OvikL10n/L10n.h"
#include "OvikModel/draft/DraftSamples.h"
#include "OvikPlatform/files/FileLock.h"
#include "OvikPlatform/files/PosixError.h"
#include "OvikPlatform/files/TemporaryFolder.h"

namespace ovik {
namespace {

namespace fs = std::filesystem;

constexpr const char* uuid = "6F1C2B9A-0D4E-4B7A-9C3E-2A1B0C9D8E7F";

class FileDraftStoreTest : public testing::TemporaryFolder {
protected:
    void SetUp() override {
        TemporaryFolder::SetUp();
        package = folder / "My Draft.ovikwork";
        fs::create_directory(package);
    }
    // What reading `at` is refused with: "schema N", or the unreadable text. Nothing is written.
    std::string refusal(const fs::path& at) {
        const auto before = tree(folder);
        try {
            (void)FileDraftStore::readDraft(at);
        } catch (const DraftStoreFailure& failure) {
            EXPECT_EQ(tree(folder), before);
            if (failure.error().is<DraftStoreError::unsupportedSchema>())
                return "schema " + std::to_string(failure.error().as<DraftStoreError::unsupportedSchema>().value);
            return failure.error().as<DraftStoreError::unreadable>().value;
        }
        return "read";
    }
    // The package holding the rich sample draft, read back.
    Draft rich() {
        writeText(package / "draft.json", testing::richDraftText());
        return FileDraftStore::readDraft(package);
    }
    // Leftovers count as old by their modification time.
    static void age(const fs::path& path) {
        fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::minutes(1));
    }
    fs::path package;
};

TEST_F(FileDraftStoreTest, ADraftReadAndWrittenBackKeepsItsBytesAndAFailedWriteKeepsThem) {
    fs::create_directory(folder / "Copy.ovikwork");
    Draft draft = rich();
    FileDraftStore::writeDraft(draft, folder / "Copy.ovikwork");
    draft.layout.gap = std::numeric_limits<double>::infinity();
    EXPECT_THROW(FileDraftStore::writeDraft(draft, folder / "Copy.ovikwork"), DraftStoreFailure); // not finite
    EXPECT_EQ(readText(folder / "Copy.ovikwork/draft.json"), testing::richDraftText());
    EXPECT_EQ(tree(folder / "Copy.ovikwork"), std::set<std::string>{"draft.json"});
}

// A damaged draft file is told in words for a person under the package's name: never the
// parser's reason, nor the digits of a number that doesn't fit.
TEST_F(FileDraftStoreTest, AnotherSchemaIsRefusedByNumberAnythingElseIsUnreadableUnderThePackagesName) {
    const L10n::LanguageOverride english("en");
    const std::pair<std::string, std::string> cases[] = {
        {R"({"schema": 9})", "schema 9"}, {R"({"schema": 0, "sections": "not even a list"})", "schema 0"},
        {R"({"schema":8,)", "My Draft: The file isn't valid JSON."}, {"\xff\xfe", "My Draft: The file isn't valid JSON."},
        {R"({"schema":1e300})", "My Draft: The number at “schema” is too large for it."},
        {testing::draftJSON(testing::canvasMedia, ""),
         "My Draft: The data at “the top level” is damaged: A draft needs at least one media and one section"}};
    for (const auto& [json, words] : cases) {
        writeText(package / "draft.json", json);
        const std::string text = refusal(package);
        EXPECT_EQ(text.rfind(words, 0), 0u) << json << ": " << text;
    }
    for (const char* json : {"[]", R"({"schema": "8"})"}) {
        writeText(package / "draft.json", json);
        const std::string text = refusal(package);
        EXPECT_TRUE(text.rfind("My Draft: ", 0) == 0 && text.size() > 10) << json << ": " << text; // then a reason
    }
    EXPECT_EQ(refusal(folder / "Missing.ovikwork/").rfind("Missing: ", 0), 0u);
}

// draft.json is read only as a plain file inside its package and under the size cap: a link to
// an endless device, or to a file past the cap, is refused before anything is read.
TEST_F(FileDraftStoreTest, ALinkToAnEndlessDeviceOrPastTheCapIsRefusedUnread) {
    fs::create_symlink("/dev/zero", folder / "zero");
    for (const char* target : {"/dev/zero", "../zero"}) { // the device, and a link beside the package to it
        fs::remove(package / "draft.json");
        fs::create_symlink(target, package / "draft.json");
        try {
            (void)FileDraftStore::open(package);
            ADD_FAILURE() << target;
        } catch (const PackagePathError& error) {
            EXPECT_EQ(error.reason(), PackagePathError::Reason::outside) << target;
            EXPECT_EQ(error.path().relative, "draft.json") << target;
        }
    }
    // Sparse: as large as the cap allows and a byte more, at no cost of disk.
    fs::remove(package / "draft.json");
    writeText(package / "big", "");
    fs::resize_file(package / "big", FileDraftStore::maximumDraftBytes + 1);
    fs::create_symlink("big", package / "draft.json");
    EXPECT_EQ(refusal(package), "My Draft: " + L10n::format("drafts.files.tooLarge", {"big"}));
}

TEST_F(FileDraftStoreTest, OutputFoldersAreMadeWithTheirParentsButNeverAPackage) {
    DraftPackage::createOutputDirectory(folder / "My Draft.ovikwork/renders/a/b/");
    writeText(folder / "file", "x");
    const auto made = tree(folder);
    EXPECT_TRUE(made.contains("My Draft.ovikwork/renders/a/b"));
    const std::pair<const char*, int> refused[] = {
        {"a/b.ovikwork/c", ENOENT}, {"x/Missing.OVIKWORK/renders/k", ENOENT}, {"New.ovikwork/", ENOENT}, {"file/in", EEXIST}};
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

TEST_F(FileDraftStoreTest, TheNextWriteSweepsOnlyOldUnlockedFilesOfTheTemporaryPattern) {
    const Draft draft = rich();
    const std::string u = uuid, ours = ".draft.json." + u + ".tmp";
    // `kind`: a file, a directory or a link. A write that began a moment ago may still be on its
    // way to its rename: only old leftovers go.
    const struct { std::string name; char kind; bool old, swept; } cases[] = {
        {ours, 'f', true, true},  {".ovik-index.json." + u + ".tmp", 'f', true, true}, {ours + ".bak", 'f', true, false},
        {"draft.json." + u + ".tmp", 'f', true, false}, {".." + u + ".tmp", 'f', true, false}, {".draft.json.tmp", 'f', true, false},
        {".draft.json.6f1c2b9a-0d4e-4b7a-9c3e-2a1b0c9d8e7f.tmp", 'f', true, false},
        {ours, 'd', true, false}, {ours, 'l', true, false}, {ours, 'f', false, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const fs::path path = package / c.name;
        if (c.kind == 'd') fs::create_directory(path);
        else if (c.kind == 'l') fs::create_symlink("draft.json", path);
        else writeText(path, "{\"sch");
        if (c.old) age(path);
        FileDraftStore::writeDraft(draft, package);
        EXPECT_EQ(fs::exists(fs::symlink_status(path)), !c.swept);
        EXPECT_EQ(readText(package / "draft.json"), testing::richDraftText());
        fs::remove_all(path);
    }
}

// A writer holds the lock of its temporary file while it lives (the kernel drops it with a killed
// writer's process); the sweep leaves the file to it until then.
TEST_F(FileDraftStoreTest, AWritersTemporaryFileGoesOnlyOnceItsLockIsReleased) {
    const Draft draft = rich();
    const fs::path temporary = package / (std::string(".draft.json.") + uuid + ".tmp");
    const int fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0644);
    ASSERT_TRUE(fd >= 0 && ::flock(fd, LOCK_EX) == 0);
    age(temporary);
    FileDraftStore::writeDraft(draft, package);
    EXPECT_TRUE(fs::exists(temporary)) << "swept while its writer was alive";
    ::close(fd);
    FileDraftStore::writeDraft(draft, package);
    EXPECT_EQ(tree(package), std::set<std::string>{"draft.json"});
}

TEST_F(FileDraftStoreTest, AWriterWaitsForTheLockAndGivesUpWithoutTouchingTheDraft) {
    using namespace std::chrono_literals;
    const L10n::LanguageOverride english("en");
    const Draft draft = rich();
    std::optional<FileLock> held = FileLock::acquire(package, 0ms);
    bool changed = false;
    const std::function<void()> writes[] = {
        [&] { FileDraftStore::update(package, [&](Draft&) { return changed = true; }, 100ms); },
        [&] { FileDraftStore::writeDraft(draft, package, 100ms); },
    };
    for (const auto& write : writes) {
        const auto start = std::chrono::steady_clock::now();
        try {
            write();
            ADD_FAILURE() << "written while another writer held the package";
        } catch (const DraftStoreFailure& failure) {
            EXPECT_STREQ(failure.what(), "“My Draft” is being changed by another program. Try again in a moment.");
            EXPECT_TRUE(failure.error().is<DraftStoreError::writeFailed>());
        }
        EXPECT_GE(std::chrono::steady_clock::now() - start, 100ms);
    }
    EXPECT_FALSE(changed);
    EXPECT_EQ(readText(package / "draft.json"), testing::richDraftText());

    // A holder that lets go while a writer waits lets that writer through.
    std::thread holder([&] { std::this_thread::sleep_for(50ms), held.reset(); });
    EXPECT_TRUE(FileDraftStore::update(package, [&](Draft& d) { return changed = d.kept = true; }, 10s));
    holder.join();
    EXPECT_TRUE(FileDraftStore::readDraft(package).kept);
}

TEST_F(FileDraftStoreTest, OpeningHoldsTheDraftFileAndEveryPathInside) {
    ::alarm(20); // a read that waits on a FIFO ends the run here instead of hanging it
    for (const testing::PackageCase& c : testing::packageCases) {
        TearDown();
        SetUp();
        const fs::path package = testing::makePackage(folder, c);
        const auto before = tree(folder);
        std::string text;
        try {
            EXPECT_EQ(FileDraftStore::open(package).packageURL, fs::canonical(package)) << c.name;
        } catch (const PackagePathError& error) {
            EXPECT_EQ(error.path().relative, c.refused) << c.name;
            text = error.what();
        } catch (const DraftStoreFailure& error) {
            EXPECT_TRUE(error.error().is<DraftStoreError::unreadable>()) << c.name;
            text = error.what();
        }
        EXPECT_EQ(text, c.refusal ? c.prefix + L10n::format(c.refusal, {c.refused}) : "") << c.name;
        EXPECT_EQ(tree(folder), before) << c.name;
    }
    ::alarm(0);
}

// The stored draft's media are a movie, a recording with its events, a picture, a canvas and a
// screenshot; its fonts are written "old" before "dd44".
TEST(DraftPaths, MediaThenPicturesThenFontsThenLookTables) {
    Draft draft = decodeJSON<Draft>(std::string_view(testing::richDraftText()));
    draft.style.look = decodeJSON<EffectStack>(std::string_view(
        R"({"entries":[{"primitive":"lut","params":[{"name":"sha256","value":{"text":"cc"}}]}]})"));
    draft.style.background = Background{{}, Background::image{PackagePath{"assets/A/back.png"}}};
    std::vector<std::string> texts;
    for (const PackagePath& path : draftPaths(draft)) texts.push_back(path.relative);
    EXPECT_EQ(texts, (std::vector<std::string>{"media/segment-001.mov", "media/segment-001.mov", "media/segment-002.mov",
                                               "events/events.json", "media/aa11.png", "media/screenshot.png", "assets/A/back.png",
                                               "fonts/dd44.otf", "fonts/old.otf", "luts/cc.cube"}));
}

// Read by the system, the name would end at the NUL, "media/a.png": a check of the whole text
// and an open of its head would judge two different files.
const std::string withNul("media/a.png\0/../../../a.png", 27);

TEST_F(FileDraftStoreTest, APathHoldingANulIsRefusedWhereverItIsUsed) {
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
