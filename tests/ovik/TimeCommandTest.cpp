#include <gtest/gtest.h>

#include <filesystem>

#include "OvikDrafts/FileDraftStore.h"
#include "OvikModel/time/RoundingDraft.h"
#include "RunCommand.h"

namespace ovik::testing {
namespace {

const std::string timed = OVIK_EXAMPLES "/timed.ovikwork";

TEST(TimeCommand, MomentsOnTheThreeClocks) {
    const auto folder = std::filesystem::temp_directory_path() / ("ovik-time-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder / "clocks.ovikwork");
    Draft draft = roundingDraft();
    draft.media = CowList<Media>({draft.media[0]});
    FileDraftStore::writeDraft(draft, folder / "clocks.ovikwork");
    const auto json = [](std::string output, std::string played, std::string source, std::uint8_t section) {
        return R"({"output":)" + output + R"(,"played":)" + played + R"(,"section":")" +
               sectionID(section).description() + R"(","source":)" + source + "}\n";
    };
    const struct {
        std::vector<std::string> arguments;
        std::string out;
    } cases[] = {
        {{"--source", "1"}, json("1", "1", "1", 1)}, // half a µs of film at double speed
        {{"--source", "5000", "--section", sectionID(2).description()}, json("null", "null", "5000", 2)},
        {{"--played", "1048878"}, json("574590", "1048878", "201", 2)},
        {{"--output", "544288"}, json("544288", "1048877", "201", 2)},
    };
    for (const auto& c : cases) {
        std::vector<std::string> arguments{"time", (folder / "clocks.ovikwork").string(), "--json"};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        const CommandResult result = runOvik(arguments);
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(result.out, c.out) << c.arguments[0] << " " << c.arguments[1];
    }
    std::filesystem::remove_all(folder);
}

TEST(TimeCommand, TableShowsPiecesAndTheSpeedCurve) {
    const CommandResult result = runOvik({"time", timed, "--table"}, {"OVIK_LANGUAGE=en"});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out.rfind("Film 5111803 µs, 2 sections\n", 0), 0u) << result.out.substr(0, 80);
    EXPECT_NE(result.out.find("freeze 500000 µs"), std::string::npos);
    EXPECT_NE(result.out.find("Speed curve: 1× at 0 µs, 2× at 2000000 µs, hold 500000 µs at 1000000 µs"),
              std::string::npos);
    EXPECT_NE(result.out.find("transition 800000 µs"), std::string::npos);
}

TEST(TimeCommand, RefusesMomentsOffTheFilmAndUnknownSections) {
    const struct {
        std::vector<std::string> arguments;
        int status;
        std::string err;
    } cases[] = {
        {{"--output", "-1"}, 1, "-1 µs lies outside the film (0 to 5111803 µs)"},
        {{"--output", "5111804"}, 1, "5111804 µs lies outside"},
        {{"--played", "6200001"}, 1, "(0 to 6200000 µs)"}, // the film without its speed curve
        {{"--source", "0", "--section", "nope"}, 1, "The draft has no section “nope”"},
        {{}, 2, "Give one of --output, --played, --source, or --table"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> arguments{"time", timed};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        const CommandResult result = runOvik(arguments, {"OVIK_LANGUAGE=en"});
        EXPECT_EQ(result.status, c.status) << c.err;
        EXPECT_TRUE(result.out.empty()) << result.out;
        EXPECT_NE(result.err.find(c.err), std::string::npos) << result.err;
    }
}

} // namespace
} // namespace ovik::testing
