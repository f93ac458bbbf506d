#pragma once
// Subcommands of the `ovik` host. Each adds itself to the app; its callback throws an
// `ovik::Error` for a failure, which the host prints and turns into exit status 1.
namespace CLI {
class App;
}

namespace ovik::cli {

void addVersionCommand(CLI::App& app);
void addTextCommand(CLI::App& app);
void addDraftCommand(CLI::App& app);
void addThumbnailCommand(CLI::App& app);
void addKeyCommand(CLI::App& app);
void addTimeCommand(CLI::App& app);
void addPropsCommand(CLI::App& app);
void addPropertyCommands(CLI::App& app);
void addStateCommand(CLI::App& app);
void addRenderCommand(CLI::App& app);
void addFilmstripCommand(CLI::App& app);

} // namespace ovik::cli
