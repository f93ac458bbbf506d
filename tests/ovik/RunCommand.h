#pragma once
// Runs the built `ovik` command with an environment and arguments, and collects what it wrote.
#include <string>
#include <vector>

namespace ovik::testing {

struct CommandResult {
    int status = -1;
    std::string out;
    std::string err;
};

/// `environment` entries are "NAME=value"; the command's language variables are cleared first
/// so that the machine's settings never leak into a test.
CommandResult runOvik(const std::vector<std::string>& arguments, const std::vector<std::string>& environment = {});

} // namespace ovik::testing
