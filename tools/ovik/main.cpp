// The `ovik` command: 0 on success; 1 with the localized message on standard error for a
// failure; 2 for wrong usage.
#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>

#include "Command.h"
#include "OvikPlatform/Error.h"

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
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& help) {
        return app.exit(help);
    } catch (const CLI::ParseError& error) {
        std::fprintf(stderr, "%s\n\n%s", error.what(), app.help().c_str());
        return 2;
    } catch (const ovik::Error& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
