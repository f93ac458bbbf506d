#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>
#include <string>

#include "Command.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikL10n/L10n.h"
#include "OvikModel/DraftJSON.h"

namespace ovik::cli {
namespace {

void check(const std::string& package) {
    FileDraftStore::readDraft(package);
    std::printf("%s\n", L10n::format("cli.draft.fine", {package}).c_str());
}

// The draft as the engine writes it: what a save would put in draft.json, on standard output.
void format(const std::string& package) {
    const std::string bytes = DraftJSON::encode(FileDraftStore::readDraft(package), true);
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
    std::fputc('\n', stdout);
}

CLI::App* packageCommand(CLI::App& parent, const char* name, const char* help, void (*run)(const std::string&)) {
    CLI::App* command = parent.add_subcommand(name, help);
    auto package = std::make_shared<std::string>();
    command->add_option("PACKAGE", *package, "An .ovikwork package folder")->required();
    command->callback([package, run] { run(*package); });
    return command;
}

} // namespace

void addDraftCommand(CLI::App& app) {
    CLI::App* draft = app.add_subcommand("draft", "Read a draft package");
    draft->require_subcommand(1);
    packageCommand(*draft, "check", "Read the draft and report its first problem", check);
    packageCommand(*draft, "format", "Print draft.json as the engine would write it", format);
}

} // namespace ovik::cli
