#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>
#include <string>

#include "Command.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikDrafts/PackageContainment.h"
#include "OvikL10n/L10n.h"
#include "OvikModel/DraftJSON.h"
#include "OvikModel/keys/DraftRenderKey.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/files/ReadFile.h"
#include "OvikPlatform/files/ResolvedPath.h"
#include "OvikQuickLook/QuickLookDraft.h"
#include "OvikQuickLook/QuickLookPackage.h"

namespace ovik::cli {
namespace {

// Every file the draft names must stay inside the package; the files need not exist.
void checkPaths(const Draft& draft, const std::filesystem::path& package) {
    const std::filesystem::path root = resolvedPath(std::filesystem::absolute(package));
    for (const PackagePath& path : QuickLookPackage::paths(draft)) PackageContainment::resolve(root, path);
}

// A kept thumbnail that matches the draft's key must be a whole PNG, or hosts can't show it.
void checkKeptThumbnails(const Draft& draft, const std::filesystem::path& package) {
    for (std::int64_t size : QuickLookDraft::keptThumbnailPixels) {
        const std::filesystem::path file = package / "renders" / thumbnailKey(draft, size).rawValue /
                                           RenderKey::thumbnailFileName(size);
        std::error_code error;
        if (!std::filesystem::exists(file, error)) continue;
        try {
            PNGCodec::decode(readFile(file));
        } catch (const Error& failure) {
            throw Error(L10n::format("cli.draft.badKeptRender", {file.string(), failure.what()}));
        }
    }
}

void check(const std::string& package) {
    const Draft draft = FileDraftStore::readDraft(package);
    checkPaths(draft, package);
    checkKeptThumbnails(draft, package);
    std::printf("%s\n", L10n::format("cli.draft.fine", {package}).c_str());
}

// The draft as the engine writes it: what a save would put in draft.json, on standard output.
void format(const std::string& package) {
    const std::string bytes = DraftJSON::encode(FileDraftStore::readDraft(package), true);
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
    std::fputc('\n', stdout);
}

void paths(const std::string& package) {
    for (const PackagePath& path : QuickLookPackage::paths(FileDraftStore::readDraft(package)))
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
