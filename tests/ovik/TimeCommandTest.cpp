#include <gtest/gtest.h>

#include <filesystem>

#include "OvikDrafts/FileDraftStore.h"
#include "OvikModel/time/RoundingDraft.h"
#include "OvikPlatform/files/TemporaryFolder.h"
#include "RunCommand.h"

namespace ovik::testing {
namespace {

using TimeCommand = TemporaryFolder;

TEST_F(TimeCommand, MomentsOnTheThreeClocksAndMomentsRefused) {
    Draft draft = roundingDraft();
    draft.media = CowList<Media>({draft.media[0]});
    FileDraftStore::writeDraft(draft, folder); // the folder is the package
    const auto json = [](std::string output, std::string played, std::string source, std::uint8_t section) {
        return R"({"output":)" + output + R"(,"played":)" + played + R"(,"section":")" +
               sectionID(section).description() + R"(","source":)" + source + "}\n";
    };
    // `out` is the error's text when refused.
    const struct { std::vector<std::string> arguments; int status; std::string out; } cases[] = {
        {{"--source", "1"}, 0, json("1", "1", "1", 1)}, // half a µs of film at double speed
        {{"--source", "5000", "--section", sectionID(2).description()}, 0, json("null", "null", "5000", 2)},
        {{"--played", "1048878"}, 0, json("574590", "1048878", "201", 2)},
        {{"--output", "544288"}, 0, json("544288", "1048877", "201", 2)},
        {{"--output", "-1"}, 1, "-1 µs lies outside the film (0 to 1075790 µs)\n"},
        {{"--played", "2550079"}, 1, "2550079 µs lies outside the film (0 to 2550078 µs)\n"},
        {{"--source", "0", "--section", "nope"}, 1, "The draft has no section “nope”\n"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> arguments{"time", folder.string(), "--json"};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        const CommandResult result = runOvik(arguments, {"OVIK_LANGUAGE=en"});
        EXPECT_EQ(result.status, c.status) << result.err;
        EXPECT_EQ(c.status ? result.err : result.out, c.out) << c.arguments[0] << " " << c.arguments[1];
    }
    EXPECT_EQ(runOvik({"time", folder.string()}).status, 2); // no moment given
}

TEST_F(TimeCommand, TableShowsPiecesAndTheSpeedCurve) {
    const CommandResult result = runOvik({"time", OVIK_EXAMPLES "/timed.ovikwork", "--table"}, {"OVIK_LANGUAGE=en"});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out.rfind("Film 5111803 µs, 2 sections\n", 0), 0u) << result.out.substr(0, 80);
    for (const char* line : {"freeze 500000 µs", "Speed curve: 1× at 0 µs, 2× at 2000000 µs, hold 500000 µs at 1000000 µs",
                             "transition 800000 µs"})
        EXPECT_NE(result.out.find(line), std::string::npos) << line;
}

} // namespace
} // namespace ovik::testing
