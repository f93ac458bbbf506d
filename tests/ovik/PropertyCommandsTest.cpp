#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <future>
#include <vector>

#include "OvikDrafts/FileDraftStore.h"
#include "OvikPlatform/files/TemporaryFolder.h"
#include "RunCommand.h"

namespace ovik::testing {
namespace {

namespace fs = std::filesystem;

using PropertyCommands = TemporaryFolder;

TEST_F(PropertyCommands, PropsListsRowsByPrefixOrWritableKind) {
    // `rows` 0: any number.
    const struct { std::vector<std::string> arguments; std::size_t rows; std::string shown, absent; } cases[] = {
        {{"props", "cursor."}, 11, "cursor.look                          choice           arrow|pointer|dot", ""},
        {{"props", "--writable", "media"}, 1, "blend ", ""}, // the one row written on media itself
        {{"props", "--writable", "object"}, 0, "\nhidden ", "\nposition "}, // actions alone move it
    };
    for (const auto& c : cases) {
        const CommandResult result = runOvik(c.arguments, {"OVIK_LANGUAGE=en"});
        const auto rows = std::size_t(std::count(result.out.begin(), result.out.end(), '\n'));
        EXPECT_TRUE(c.rows == 0 || rows == c.rows) << rows;
        EXPECT_NE(result.out.find(c.shown), std::string::npos) << c.shown;
        EXPECT_TRUE(c.absent.empty() || result.out.find(c.absent) == std::string::npos) << c.absent;
    }
}

TEST_F(PropertyCommands, SetThenGetWhatIsRefusedAndStateAtAMoment) {
    const std::string package = (folder / "set.ovikwork").string();
    fs::copy(OVIK_EXAMPLES "/animation.ovikwork", package, fs::copy_options::recursive);
    const CommandResult set = runOvik({"set", package, "文字 1.hidden", "true"}, {"OVIK_LANGUAGE=en"});
    ASSERT_EQ(set.status, 0) << set.err;
    EXPECT_EQ(set.out, "Change Hidden\n");
    EXPECT_EQ(runOvik({"get", package, "文字 1.hidden"}).out, "true\n");
    // The same value again, or a value refused, leaves the file as it is.
    const std::string before = readText(fs::path(package) / "draft.json");
    const struct { std::string path, value; int status; std::string text; } cases[] = {
        {"文字 1.hidden", "true", 0, "The value is the same; the draft is unchanged.\n"},
        {"style.padding", "999", 1, "Padding takes 0 to 400, but got 999"},
        {"Nobody.hidden", "true", 1, "no object called “Nobody”"},
    };
    for (const auto& c : cases) {
        const CommandResult result = runOvik({"set", package, c.path, c.value}, {"OVIK_LANGUAGE=en"});
        EXPECT_EQ(result.status, c.status) << c.path;
        EXPECT_NE((result.out + result.err).find(c.text), std::string::npos) << result.err;
        EXPECT_EQ(readText(fs::path(package) / "draft.json"), before) << c.path;
    }

    // The ellipse turns from black towards orange over its first second.
    Draft draft = FileDraftStore::readDraft(package);
    Action tint;
    tint.property = PropertyKey::color();
    tint.mode.cases = ActionMode::to{ActionValue::makeColor(RGBA{0, 0, 0, 1}), ActionValue::makeColor(RGBA{1, 0.5, 0.25, 1})};
    tint.curve.cases = ActionCurve::linear{};
    tint.range.cases = ActionRange::between{SourceTime{0}, SourceTime{1'000'000}};
    draft.objects.mutableItems()[1].actions.push_back(tint);
    FileDraftStore::writeDraft(draft, package);
    // At 0.3 s the colour is (0.3, 0.15, 0.075), which hex text would round to 77/255, 38/255, 19/255.
    const CommandResult tinted = runOvik({"state", package, "椭圆 1", "--at", "300000", "--json"});
    ASSERT_EQ(tinted.status, 0) << tinted.err;
    EXPECT_NE(tinted.out.find(R"("color":{"alpha":1,"blue":0.075,"green":0.15,"red":0.3},)"), std::string::npos) << tinted.out;
    // Text for people: each field on a line of its own, the colour in hex.
    const CommandResult readable = runOvik({"state", package, "椭圆 1", "--at", "2000000"});
    EXPECT_NE(readable.out.find("color         \"#FF8040FF\"\n"), std::string::npos) << readable.out;
    EXPECT_NE(readable.out.find("offset        [200,0]\n"), std::string::npos);
    EXPECT_EQ(runOvik({"state", package, "Nobody", "--at", "0"}).status, 1);
}

// Started all at once, the processes overlap as much as the machine lets them.
TEST_F(PropertyCommands, EveryChangeThatReportsSuccessIsInTheFile) {
    const std::pair<const char*, const char*> changes[] = {
        {"style.padding", "17"},    {"style.cornerRadius", "13"}, {"style.shadow", "11"},     {"cursor.size", "1.5"},
        {"zoom.settings.factor", "3"}, {"audio.volume", "0.5"},   {"layout.gap", "9"},        {"style.handDrawn", "true"},
        {"cursor.shown", "false"},  {"cursor.look", "\"dot\""},   {"layout.mode", "\"grid\""}, {"keys.typing", "false"},
    };
    const fs::path package = folder / "A.ovikwork";
    fs::copy(OVIK_EXAMPLES "/animation.ovikwork", package, fs::copy_options::recursive);
    std::vector<std::future<CommandResult>> writers;
    for (const auto& change : changes)
        writers.push_back(std::async(std::launch::async, [&package, change] {
            return runOvik({"set", package.string(), change.first, change.second});
        }));
    for (std::size_t i = 0; i < writers.size(); ++i) {
        const CommandResult result = writers[i].get();
        EXPECT_EQ(result.status, 0) << changes[i].first << ": " << result.err;
    }
    for (const auto& [path, value] : changes) EXPECT_EQ(runOvik({"get", package.string(), path}).out, std::string(value) + "\n") << path;
    EXPECT_EQ(tree(package), tree(OVIK_EXAMPLES "/animation.ovikwork"));
}

} // namespace
} // namespace ovik::testing
