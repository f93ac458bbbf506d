#include "RunCommand.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <string_view>

#include "OvikPlatform/media/FFmpegTool.h"

extern char** environ;

namespace ovik::testing {
namespace {

std::vector<std::string> cleanEnvironment(const std::vector<std::string>& extra) {
    static const std::string_view cleared[] = {"OVIK_LANGUAGE=", "LANGUAGE=", "LC_ALL=", "LC_MESSAGES=", "LANG=", "XDG_CONFIG_HOME="};
    std::vector<std::string> out;
    for (char** e = environ; *e != nullptr; ++e)
        if (std::none_of(std::begin(cleared), std::end(cleared),
                         [&](std::string_view name) { return std::string_view(*e).starts_with(name); }))
            out.emplace_back(*e);
    out.push_back("XDG_CONFIG_HOME=/nonexistent-ovik-test-config");
    out.insert(out.end(), extra.begin(), extra.end());
    return out;
}

} // namespace

CommandResult runProgram(const std::string& program, const std::vector<std::string>& arguments,
                         const std::vector<std::string>& environment) {
    static std::atomic<int> runs{0};
    const auto folder = std::filesystem::temp_directory_path() /
                        ("ovik-run-" + std::to_string(getpid()) + "-" + std::to_string(runs++));
    std::filesystem::create_directories(folder);
    const auto outPath = folder / "out", errPath = folder / "err";

    std::vector<std::string> argv{program};
    argv.insert(argv.end(), arguments.begin(), arguments.end());
    std::vector<char*> argvPointers, envPointers;
    for (auto& a : argv) argvPointers.push_back(a.data());
    argvPointers.push_back(nullptr);
    std::vector<std::string> env = cleanEnvironment(environment);
    for (auto& e : env) envPointers.push_back(e.data());
    envPointers.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, outPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    posix_spawn_file_actions_addopen(&actions, 2, errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    pid_t pid = 0;
    CommandResult result;
    if (posix_spawn(&pid, argv[0].c_str(), &actions, nullptr, argvPointers.data(), envPointers.data()) == 0) {
        int status = 0;
        rusage usage{};
        wait4(pid, &status, 0, &usage);
        result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        result.peakBytes = std::int64_t(usage.ru_maxrss) * 1024;
    }
    posix_spawn_file_actions_destroy(&actions);
    result.out = fileBytes(outPath);
    result.err = fileBytes(errPath);
    std::filesystem::remove_all(folder);
    return result;
}

} // namespace ovik::testing
