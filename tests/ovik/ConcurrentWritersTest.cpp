#include <gtest/gtest.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "OvikPlatform/files/TemporaryFolder.h"
#include "RunCommand.h"

extern char** environ;

namespace ovik::testing {
namespace {

namespace fs = std::filesystem;

using ConcurrentWriters = TemporaryFolder;

// Started all at once, each with its own output files: the processes overlap as much as the
// machine lets them.
std::vector<pid_t> spawnAll(const std::vector<std::vector<std::string>>& commands, const fs::path& logs) {
    std::vector<pid_t> started;
    for (std::size_t i = 0; i < commands.size(); ++i) {
        std::vector<std::string> argv{OVIK_COMMAND};
        argv.insert(argv.end(), commands[i].begin(), commands[i].end());
        std::vector<char*> pointers;
        for (std::string& argument : argv) pointers.push_back(argument.data());
        pointers.push_back(nullptr);
        const std::string out = (logs / (std::to_string(i) + ".out")).string();
        const std::string err = (logs / (std::to_string(i) + ".err")).string();
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        posix_spawn_file_actions_addopen(&actions, 2, err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        pid_t pid = 0;
        EXPECT_EQ(posix_spawn(&pid, argv[0].c_str(), &actions, nullptr, pointers.data(), environ), 0);
        posix_spawn_file_actions_destroy(&actions);
        started.push_back(pid);
    }
    return started;
}

int exitStatus(pid_t pid) {
    int status = 0;
    if (waitpid(pid, &status, 0) != pid) return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

TEST_F(ConcurrentWriters, EveryChangeThatReportsSuccessIsInTheFile) {
    const std::pair<const char*, const char*> changes[] = {
        {"style.padding", "17"},       {"style.cornerRadius", "13"},  {"style.shadow", "11"},
        {"style.backgroundBlur", "7"}, {"style.shutter", "91"},       {"cursor.size", "1.5"},
        {"cursor.smoothing", "0.25"},  {"zoom.settings.factor", "3"}, {"camera.size", "0.2"},
        {"audio.volume", "0.5"},       {"layout.gap", "9"},           {"screenshot-animation.duration", "4"},
        {"style.handDrawn", "true"},   {"cursor.shown", "false"},     {"cursor.look", "\"dot\""},
        {"cursor.clickEffect", "\"glow\""}, {"audio.muted", "true"},  {"keys.typing", "false"},
        {"layout.mode", "\"grid\""},   {"style.deviceFrame", "\"iPhone\""},
    };
    const fs::path package = folder / "A.ovikwork";
    fs::copy(OVIK_EXAMPLES "/animation.ovikwork", package, fs::copy_options::recursive);
    std::vector<std::vector<std::string>> commands;
    for (const auto& [path, value] : changes) commands.push_back({"set", package.string(), path, value});

    const std::vector<pid_t> writers = spawnAll(commands, folder);
    for (std::size_t i = 0; i < writers.size(); ++i)
        EXPECT_EQ(exitStatus(writers[i]), 0) << changes[i].first << ": " << readText(folder / (std::to_string(i) + ".err"));
    for (const auto& [path, value] : changes) EXPECT_EQ(runOvik({"get", package.string(), path}).out, std::string(value) + "\n") << path;
    EXPECT_EQ(tree(package), tree(OVIK_EXAMPLES "/animation.ovikwork"));
}

} // namespace
} // namespace ovik::testing
