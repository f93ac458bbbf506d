#include <CLI/CLI.hpp>

#include <cstdio>

#include "Command.h"
#include "OvikL10n/L10n.h"

namespace ovik::cli {

void addVersionCommand(CLI::App& app) {
    CLI::App* command = app.add_subcommand("version", "Print the version of the engine and the language in force");
    command->callback([] { std::printf("ovik %s (%s)\n", OVIK_VERSION, L10n::language().c_str()); });
}

} // namespace ovik::cli
