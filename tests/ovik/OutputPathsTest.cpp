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

struct Writer {
    const char* name;
    std::string program;
    std::vector<std::string> arguments; // the output path follows
};

std::vector<Writer> writers() {
    const std::string package = OVIK_EXAMPLES "/animation.ovikwork";
    return {
        {"thumbnail", OVIK_COMMAND, {"thumbnail", package, "--size", "16", "--output"}},
        {"render", OVIK_COMMAND, {"render", package, "--size", "16", "--output"}},
        {"filmstrip", OVIK_COMMAND, {"filmstrip", package, "--count", "2", "--height", "16", "--output"}},
        {"ovik-thumbnailer", OVIK_THUMBNAILER, {"-s", "16", package}},
    };
}

CommandResult run(const Writer& writer, const fs::path& output) {
    std::vector<std::string> arguments = writer.arguments;
    arguments.push_back(output.string());
    return runProgram(writer.program, arguments, {"OVIK_LANGUAGE=en"});
}

TEST_F(OutputPaths, EveryCommandThatWritesRefusesWhatIsNotAPlainFile) {
    const fs::path output = folder / "out.png";
    for (const Writer& writer : writers()) {
        for (const SpecialFile& special : specialFiles) {
            SCOPED_TRACE(std::string(writer.name) + " onto " + special.name);
            special.make(output);
            const CommandResult result = run(writer, output);
            EXPECT_EQ(result.status, 1);
            EXPECT_NE(result.err.find("Can't write “" + output.string() + "”: "), std::string::npos) << result.err;
            EXPECT_EQ(fs::symlink_status(output).type(), special.type);
            EXPECT_EQ(tree(folder), std::set<std::string>{"out.png"});
            fs::remove(output);
        }
    }
    EXPECT_EQ(run(writers()[1], "/dev/null").err, "Can't write “/dev/null”: “null” isn't an ordinary file.\n");
}

} // namespace
} // namespace ovik::testing
