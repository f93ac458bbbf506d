#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "Command.h"
#include "DraftCheck.h"
#include "OvikDrafts/DraftPaths.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikL10n/L10n.h"
#include "OvikModel/DraftJSON.h"
#include "OvikPlatform/Error.h"

namespace ovik::cli {
namespace {

// Opening holds every file the draft names inside the package, as a thumbnail's does; the
// check then reads what a render would read, and the stored values against their ranges.
void check(const std::string& package) {
    const DraftDocument document = FileDraftStore::open(package);
    std::vector<std::string> problems = DraftCheck::fileProblems(document);
    for (auto more : {DraftCheck::keptRenderProblems(document), DraftCheck::rangeProblems(document.draft)})
        problems.insert(problems.end(), more.begin(), more.end());
    if (problems.empty()) {
        std::printf("%s\n", L10n::format("cli.draft.fine", {package}).c_str());
        return;
    }
    std::string text = L10n::format("cli.draft.problems", {package, std::int64_t(problems.size())});
    for (const std::string& problem : problems) text += "\n" + problem;
    throw Error(text);
}

// The draft as the engine writes it: what a save would put in draft.json, on standard output.
void format(const std::string& package) {
    const std::string bytes = DraftJSON::encode(FileDraftStore::readDraft(package), true);
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
    std::fputc('\n', stdout);
}

void paths(const std::string& package) {
    for (const PackagePath& path : draftPaths(FileDraftStore::readDraft(package)))
        std::printf("%s\n", path.relative.c_str());
}

void packageCommand(CLI::App& parent, const char* name, const char* help, void (*run)(const std::string&)) {
    CLI::App* command = parent.add_subcommand(name, help);
    auto package = std::make_shared<std::string>();
    command->add_option("PACKAGE", *package, "An .ovikwork package folder")->required();
    command->callback([package, run] { run(*package); });
}

} // namespace

void addDraftCommand(CLI::App& app) {
    CLI::App* draft = app.add_subcommand("draft", "Read a draft package");
    draft->require_subcommand(1);
    packageCommand(*draft, "check", "Read the draft and its files and report the first problem", check);
    packageCommand(*draft, "format", "Print draft.json as the engine would write it", format);
    packageCommand(*draft, "paths", "List every file the draft refers to", paths);
}

} // namespace ovik::cli
