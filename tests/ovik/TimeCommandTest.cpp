#include <gtest/gtest.h>

#include <filesystem>

#include "OvikDrafts/FileDraftStore.h"
#include "OvikModel/time/TimeSamples.h"
#include "RunCommand.h"

namespace ovik::testing {
namespace {

const std::string timed = OVIK_EXAMPLES "/timed.ovikwork";

// A recording cut into [0, 1 s) and [2 s, 3 s), written once for the tests of this file.
const std::string& cutRecording() {
    static const std::string package = [] {
        const auto folder = std::filesystem::temp_directory_path() / ("ovik-time-" + std::to_string(getpid()));
        std::filesystem::create_directories(folder / "cut.ovikwork");
        Draft draft = draftOf({keptSection(1, {playing(0, 1'000'000), playing(2'000'000, 3'000'000)})});
        draft.media = CowList<Media>({draft.media[0]});
        FileDraftStore::writeDraft(draft, folder / "cut.ovikwork");
        return (folder / "cut.ovikwork").string();
    }();
    return package;
}

std::string json(std::string output, std::string played, std::string source, std::string section) {
    return R"({"output":)" + output + R"(,"played":)" + played + R"(,"section":)" + section + R"(,"source":)" + source +
           "}\n";
}

TEST(TimeCommand, MomentsOnTheThreeClocks) {
    const std::string section = "\"" + sectionID(1).description() + "\"";
    struct Case {
        std::vector<std::string> arguments;
        std::string out;
    };
    const Case cases[] = {
        {{"--source", "2500000"}, json("1500000", "1500000", "2500000", section)},
        {{"--source", "1500000"}, json("null", "null", "1500000", section)}, // cut away
        {{"--output", "1000000"}, json("1000000", "1000000", "2000000", section)},
        {{"--played", "2000000"}, json("2000000", "2000000", "3000000", section)},
    };
    for (const Case& c : cases) {
        std::vector<std::string> arguments{"time", cutRecording(), "--json"};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        const CommandResult result = runOvik(arguments);
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(result.out, c.out) << c.arguments[0] << " " << c.arguments[1];
    }
}

TEST(TimeCommand, PlayedTimeOfASpeedCurveMapsBack) {
    const CommandResult forward = runOvik({"time", timed, "--output", "2000000", "--json"});
    ASSERT_EQ(forward.status, 0) << forward.err;
    const std::size_t at = forward.out.find("\"played\":") + 9;
    const std::string played = forward.out.substr(at, forward.out.find(',', at) - at);
    EXPECT_NE(played, "2000000"); // the curve ran faster than normal before this moment
    const CommandResult back = runOvik({"time", timed, "--played", played, "--json"});
    EXPECT_EQ(back.out.substr(0, 19), R"({"output":2000000,")") << back.out;
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

TEST(TimeCommand, RefusesMomentsOutsideAndUnknownSections) {
    struct Case {
        std::vector<std::string> arguments;
        int status;
        std::string err;
    };
    const Case cases[] = {
        {{"time", timed, "--output", "-1"}, 1, "-1 µs lies outside the film (0 to 5111803 µs)"},
        {{"time", timed, "--output", "5111804"}, 1, "5111804 µs lies outside the film"},
        {{"time", timed, "--played", "99000000"}, 1, "99000000 µs lies outside the film (0 to 6200000 µs)"},
        {{"time", timed, "--source", "0", "--section", "nope"}, 1, "The draft has no section “nope”"},
        {{"time", timed}, 2, "Give one of --output, --played, --source, or --table"},
        {{"time", timed, "--table", "--json"}, 2, "--json"},
        {{"time", timed, "--output", "1.5"}, 2, "1.5"},
        {{"time", OVIK_EXAMPLES "/none.ovikwork", "--output", "0"}, 1, "“draft.json” doesn't exist"},
    };
    for (const Case& c : cases) {
        const CommandResult result = runOvik(c.arguments, {"OVIK_LANGUAGE=en"});
        EXPECT_EQ(result.status, c.status) << c.arguments.back();
        EXPECT_TRUE(result.out.empty()) << result.out;
        EXPECT_NE(result.err.find(c.err), std::string::npos) << result.err;
    }
}

} // namespace
} // namespace ovik::testing
