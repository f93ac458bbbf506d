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

TEST_F(OutputPaths, ALinkAtTheOutputPathKeepsPointingAtTheNewPicture) {
    fs::create_directory(folder / "shots");
    writeText(folder / "shots/kept.png", "old");
    fs::create_symlink("shots/kept.png", folder / "out.png");
    for (const Writer& writer : writers()) {
        SCOPED_TRACE(writer.name);
        const CommandResult result = run(writer, folder / "out.png");
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(readText(folder / "shots/kept.png").substr(1, 3), "PNG");
        EXPECT_EQ(fs::read_symlink(folder / "out.png"), "shots/kept.png");
        EXPECT_EQ(tree(folder), (std::set<std::string>{"out.png", "shots", "shots/kept.png"}));
        writeText(folder / "shots/kept.png", "old");
    }
}

} // namespace
} // namespace ovik::testing
