#include <gtest/gtest.h>

#include <chrono>
#include <tuple>
#include <filesystem>
#include <unistd.h>

#include "OvikPlatform/files/SpecialFiles.h"
#include "OvikPlatform/files/TemporaryFolder.h"
#include "RunCommand.h"

namespace ovik::testing {
namespace {

namespace fs = std::filesystem;
using SpecialFilesCommands = TemporaryFolder;

fs::path fileEndingIn(const fs::path& package, const std::string& ending) {
    for (const auto& entry : fs::recursive_directory_iterator(package))
        if (entry.path().string().ends_with(ending)) return entry.path();
    ADD_FAILURE() << package << " has no " << ending;
    return package / ending;
}

// A special file where a package names a movie, a picture or a kept render is never waited
// on: every command ends well within a decoder's deadline (5 s), fails or answers as the place
// says, and writes nothing, neither its output on failure nor anything in the package.
TEST_F(SpecialFilesCommands, AreNeverWaitedOn) {
    ::alarm(120); // a command that waits for a writer ends the run here instead of hanging it
    // The package, how the name of the file replaced ends, and whether a thumbnail and a render still
    // come out: a kept render that isn't a plain file is as good as absent, and the thumbnail is composed.
    const std::tuple<const char*, const char*, bool> places[] = {
        {"recording.ovikwork", "segment-001.mov", false}, {"picture.ovikwork", "screenshot.png", false},
        {"photo.ovikwork", ".jpg", false},                {"kept.ovikwork", "thumbnail-320.png", true},
    };
    for (const auto& [name, ending, answers] : places) {
        for (const SpecialFile& special : unreadableFiles) {
            const std::string what = std::string(name) + ", " + special.name;
            const fs::path package = folder / name, out = folder / "out.png";
            fs::remove_all(package);
            fs::copy(fs::path(OVIK_EXAMPLES) / name, package, fs::copy_options::recursive);
            const fs::path file = fileEndingIn(package, ending);
            fs::remove(file);
            special.make(file);
            const auto before = tree(package);
            for (const char* command : {"thumbnail", "render"}) {
                fs::remove(out);
                const auto start = std::chrono::steady_clock::now();
                const CommandResult result = runOvik({command, package.string(), "--size", "64", "--output", out.string()});
                EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4)) << what << ": " << command;
                EXPECT_EQ(result.status, answers ? 0 : 1) << what << ": " << command << ": " << result.err;
                EXPECT_EQ(fs::exists(out), answers) << what << ": " << command;
            }
            (void)runOvik({"draft", "check", package.string()}); // its verdict is its own business; it must not wait
            EXPECT_EQ(tree(package), before) << what;
        }
    }
    ::alarm(0);
}

} // namespace
} // namespace ovik::testing
