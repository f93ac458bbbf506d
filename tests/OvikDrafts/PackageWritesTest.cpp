#include <gtest/gtest.h>

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <optional>
#include <thread>

#include "OvikDrafts/DraftStoreError.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikL10n/L10n.h"
#include "OvikModel/draft/DraftSamples.h"
#include "OvikPlatform/files/FileLock.h"
#include "OvikPlatform/files/TemporaryFolder.h"

namespace ovik {
namespace {

namespace fs = std::filesystem;

constexpr const char* uuid = "6F1C2B9A-0D4E-4B7A-9C3E-2A1B0C9D8E7F";

class PackageWritesTest : public testing::TemporaryFolder {
protected:
    void SetUp() override {
        TemporaryFolder::SetUp();
        package = folder / "A.ovikwork";
        fs::create_directory(package);
        writeText(package / "draft.json", testing::richDraftText());
        draft = FileDraftStore::readDraft(package);
    }
    // Leftovers count as old by their modification time.
    static void age(const fs::path& path) {
        fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::minutes(1));
    }
    fs::path package;
    Draft draft;
};

TEST_F(PackageWritesTest, TheNextWriteSweepsOnlyOldUnlockedFilesOfTheTemporaryPattern) {
    const std::string u = uuid, ours = ".draft.json." + u + ".tmp";
    // `kind`: a file, a directory or a link. A write that began a moment ago may still be on its
    // way to its rename: only old leftovers go.
    const struct { std::string name; char kind; bool old, swept; } cases[] = {
        {ours, 'f', true, true},  {".ovik-index.json." + u + ".tmp", 'f', true, true}, {ours + ".bak", 'f', true, false},
        {"draft.json." + u + ".tmp", 'f', true, false}, {".draft.json.6f1c2b9a-0d4e-4b7a-9c3e-2a1b0c9d8e7f.tmp", 'f', true, false},
        {".." + u + ".tmp", 'f', true, false}, {".draft.json.tmp", 'f', true, false},
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

// A writer in another process holds the lock of its temporary file until it is killed; the
// kernel drops the lock with the process.
TEST_F(PackageWritesTest, AKilledWritersTemporaryFileGoesOnlyOnceItsWriterIsGone) {
    const fs::path temporary = package / (std::string(".draft.json.") + uuid + ".tmp");
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t writer = ::fork();
    ASSERT_GE(writer, 0);
    if (writer == 0) {
        const int fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0644);
        if (fd < 0 || ::flock(fd, LOCK_EX) != 0 || ::write(fd, "{\"sch", 5) != 5 || ::write(ready[1], "r", 1) != 1) _exit(1);
        for (;;) ::pause();
    }
    char signal = 0;
    ASSERT_EQ(::read(ready[0], &signal, 1), 1);
    age(temporary);
    FileDraftStore::writeDraft(draft, package);
    EXPECT_TRUE(fs::exists(temporary)) << "swept while its writer was alive";

    ::kill(writer, SIGKILL), ::waitpid(writer, nullptr, 0);
    ::close(ready[0]), ::close(ready[1]);
    FileDraftStore::writeDraft(draft, package);
    EXPECT_EQ(tree(package), std::set<std::string>{"draft.json"});
}

TEST_F(PackageWritesTest, AWriterWaitsForTheLockAndGivesUpWithoutTouchingTheDraft) {
    using namespace std::chrono_literals;
    L10n::LanguageOverride english("en");
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
            EXPECT_STREQ(failure.what(), "“A” is being changed by another program. Try again in a moment.");
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

} // namespace
} // namespace ovik
