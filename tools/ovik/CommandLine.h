#pragma once
// What the `ovik` command and the thumbnailer share: running a parsed command line with every
// message localized (the parser's own refusals too), and reading typed option values.
#include <cstdint>
#include <string>
#include <string_view>

namespace CLI {
class App;
}

namespace ovik::cli {

/// Parses and runs `app`: 0 on success; 1 with the localized message on standard error for a
/// failure; 2 for wrong usage, with a pointer to the command's help.
int runCommandLine(CLI::App& app, int argc, char** argv);

/// A moment in whole microseconds (a signed 64-bit count). Throws `UsageError` naming
/// `option` for empty text, other characters, or a count past the 64-bit range.
std::int64_t momentArgument(std::string_view option, const std::string& text);

/// A finite number in [low, high]. Throws `UsageError` naming `option` otherwise.
double numberArgument(std::string_view option, const std::string& text, double low, double high);

/// A whole number in [low, high]. Throws `UsageError` naming `option` otherwise.
std::int64_t integerArgument(std::string_view option, const std::string& text, std::int64_t low, std::int64_t high);

} // namespace ovik::cli
