#include <gtest/gtest.h>

#include <filesystem>
#include <future>
#include <vector>

#include "OvikPlatform/files/TemporaryFolder.h"
#include "RunCommand.h"

namespace ovik::testing {
namespace {

namespace fs = std::filesystem;

using ConcurrentWriters = TemporaryFolder;

// Started all at once, the processes overlap as much as the machine lets them.
TEST_F(ConcurrentWriters, EveryChangeThatReportsSuccessIsInTheFile) {
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
