#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <unistd.h>

#include "OvikPlatform/files/SpecialFiles.h"
#include "OvikPlatform/files/TemporaryFolder.h"
#include "RunCommand.h"

namespace ovik::testing {
namespace {

namespace fs = std::filesystem;
using SpecialFilesCommands = TemporaryFolder;

const fs::path examples = OVIK_EXAMPLES;

struct Place {
    const char* package;
    /// How the name of the file replaced ends.
    const char* file;
    /// Whether a thumbnail and a render still come out: a kept render that isn't a plain file
    /// is as good as absent, and the thumbnail is composed instead.
    bool answers;
};

const Place places[] = {
    {"recording.ovikwork", "segment-001.mov", false},
    {"picture.ovikwork", "screenshot.png", false},
    {"photo.ovikwork", ".jpg", false},
    {"kept.ovikwork", "thumbnail-320.png", true},
};

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
    for (const Place& place : places) {
        for (const SpecialFile& special : unreadableFiles) {
            const std::string what = std::string(place.package) + ", " + special.name;
            const fs::path package = folder / place.package;
            fs::remove_all(package);
            fs::copy(examples / place.package, package, fs::copy_options::recursive);
            const fs::path file = fileEndingIn(package, place.file);
            fs::remove(file);
            special.make(file);
            const auto before = tree(package);
            const fs::path out = folder / "out.png";
            const std::vector<std::string> commands[] = {
                {OVIK_COMMAND, "thumbnail", package.string(), "--size", "64", "--output", out.string()},
                {OVIK_COMMAND, "render", package.string(), "--output", out.string()},
                {OVIK_THUMBNAILER, "-s", "64", package.string(), out.string()},
            };
            for (const std::vector<std::string>& command : commands) {
                fs::remove(out);
                const auto start = std::chrono::steady_clock::now();
                const CommandResult result = runProgram(command[0], {command.begin() + 1, command.end()});
                EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4)) << what << ": " << command[1];
                EXPECT_EQ(result.status, place.answers ? 0 : 1) << what << ": " << command[1] << ": " << result.err;
                EXPECT_EQ(fs::exists(out), place.answers) << what << ": " << command[1];
            }
            // What the check reports of such a file is its own business; it must not wait on it.
            (void)runOvik({"draft", "check", package.string()});
            EXPECT_EQ(tree(package), before) << what;
        }
    }
    ::alarm(0);
}

} // namespace
} // namespace ovik::testing
