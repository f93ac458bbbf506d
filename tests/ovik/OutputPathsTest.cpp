#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "OvikPlatform/files/SpecialFiles.h"
#include "OvikPlatform/files/TemporaryFolder.h"
#include "RunCommand.h"

namespace ovik::testing {
namespace {

namespace fs = std::filesystem;

using OutputPaths = TemporaryFolder;

// The commands share one writer: the command and the thumbnailer stand for all of them.
CommandResult run(bool thumbnailer, const fs::path& output) {
    const std::string package = OVIK_EXAMPLES "/animation.ovikwork";
    if (thumbnailer) return runProgram(OVIK_THUMBNAILER, {"-s", "16", package, output.string()}, {"OVIK_LANGUAGE=en"});
    return runOvik({"render", package, "--size", "16", "--output", output.string()}, {"OVIK_LANGUAGE=en"});
}

TEST_F(OutputPaths, EveryProgramThatWritesRefusesWhatIsNotAPlainFile) {
    const fs::path output = folder / "out.png";
    for (const bool thumbnailer : {false, true}) {
        for (const SpecialFile& special : specialFiles) {
            SCOPED_TRACE(std::string(thumbnailer ? "thumbnailer" : "render") + " onto " + special.name);
            special.make(output);
            const CommandResult result = run(thumbnailer, output);
            EXPECT_EQ(result.status, 1);
            EXPECT_NE(result.err.find("Can't write “" + output.string() + "”: "), std::string::npos) << result.err;
            EXPECT_EQ(fs::symlink_status(output).type(), special.type);
            EXPECT_EQ(tree(folder), std::set<std::string>{"out.png"});
            fs::remove(output);
        }
    }
    EXPECT_EQ(run(false, "/dev/null").err, "Can't write “/dev/null”: “null” isn't an ordinary file.\n");
}

} // namespace
} // namespace ovik::testing
