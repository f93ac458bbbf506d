// The `ovik` command: 0 on success; 1 with the localized message on standard error for a
// failure; 2 for wrong usage.
#include <CLI/CLI.hpp>

#include "Command.h"
#include "CommandLine.h"

int main(int argc, char** argv) {
    CLI::App app{"Ovik: reads, renders and converts .ovikwork drafts", "ovik"};
    app.require_subcommand(1);
    ovik::cli::addVersionCommand(app);
    ovik::cli::addTextCommand(app);
    ovik::cli::addDraftCommand(app);
    ovik::cli::addThumbnailCommand(app);
    ovik::cli::addKeyCommand(app);
    ovik::cli::addTimeCommand(app);
    ovik::cli::addPropsCommand(app);
    ovik::cli::addPropertyCommands(app);
    ovik::cli::addStateCommand(app);
    ovik::cli::addRenderCommand(app);
    ovik::cli::addFilmstripCommand(app);
    return ovik::cli::runCommandLine(app, argc, argv);
}
