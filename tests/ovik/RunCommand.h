#pragma once
// Runs a built program (the `ovik` command, the thumbnailer) with an environment and arguments,
// and collects what it wrote.
#include <cstdint>
#include <string>
#include <vector>

namespace ovik::testing {

struct CommandResult {
    int status = -1;
    std::string out;
    std::string err;
    std::int64_t peakBytes = 0; // the most memory the program held
};

/// `environment` entries are "NAME=value"; the command's language variables are cleared first
/// so that the machine's settings never leak into a test. Safe to call from several threads.
CommandResult runProgram(const std::string& program, const std::vector<std::string>& arguments,
                         const std::vector<std::string>& environment = {});
inline CommandResult runOvik(const std::vector<std::string>& arguments, const std::vector<std::string>& environment = {}) {
    return runProgram(OVIK_COMMAND, arguments, environment);
}

} // namespace ovik::testing
