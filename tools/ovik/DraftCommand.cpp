#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>
#include <string>

#include "Command.h"
#include "OvikDrafts/DraftPaths.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikL10n/L10n.h"
#include "OvikModel/DraftJSON.h"
#include "OvikModel/keys/DraftRenderKey.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/files/ReadFile.h"
#include "OvikQuickLook/QuickLookDraft.h"
#include "OvikQuickLook/QuickLookPackage.h"

namespace ovik::cli {
namespace {

// A kept thumbnail that a host would be answered with must be a whole PNG, or it can't show it.
void checkKeptThumbnails(const QuickLookPackage& package) {
    for (std::int64_t size : QuickLookDraft::keptThumbnailPixels) {
        const auto file =
            package.render(thumbnailKey(package.document.draft, size), "png", RenderKey::thumbnailFileName(size));
        if (!file) continue;
        try {
            PNGCodec::decode(readFile(*file));
        } catch (const Error& failure) {
            throw Error(L10n::format("cli.draft.badKeptRender", {file->string(), failure.what()}));
        }
    }
}

// Opening holds every file the draft names inside the package, as a thumbnail's does; the files
// need not exist.
void check(const std::string& package) {
    DraftDocument document = FileDraftStore::open(package);
    checkKeptThumbnails(QuickLookPackage{document.packageURL, std::move(document)});
    std::printf("%s\n", L10n::format("cli.draft.fine", {package}).c_str());
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
