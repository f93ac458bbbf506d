#include <CLI/CLI.hpp>

#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Command.h"
#include "CommandLine.h"
#include "UsageError.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikL10n/L10n.h"
#include "OvikModel/keys/DraftRenderKey.h"
#include "OvikModel/keys/ResultKey.h"

namespace ovik::cli {
namespace {

struct KeyOptions {
    std::string package;
    std::string maxPixel = "320";
    std::vector<std::string> results;
};

std::map<std::string, std::string> components(const std::vector<std::string>& pairs) {
    std::map<std::string, std::string> out;
    for (const std::string& pair : pairs) {
        const std::size_t equals = pair.find('=');
        if (equals == std::string::npos || equals == 0)
            throw UsageError(L10n::format("cli.key.badComponent", {pair}));
        out.insert_or_assign(pair.substr(0, equals), pair.substr(equals + 1));
    }
    return out;
}

void run(const KeyOptions& options) {
    if (!options.results.empty()) {
        std::printf("%s\n", ResultKey(components(options.results)).digest.c_str());
        return;
    }
    const std::int64_t maxPixel = integerArgument("--max-pixel", options.maxPixel, 1, std::int64_t(1) << 20);
    const Draft draft = FileDraftStore::readDraft(options.package);
    std::printf("%s\n", thumbnailKey(draft, maxPixel).rawValue.c_str());
}

} // namespace

void addKeyCommand(CLI::App& app) {
    CLI::App* command = app.add_subcommand("key", "Print the render key of a package's thumbnail, or a result key");
    auto options = std::make_shared<KeyOptions>();
    CLI::Option* package = command->add_option("PACKAGE", options->package, "An .ovikwork package folder");
    command->add_option("--max-pixel", options->maxPixel, "The thumbnail's long side in pixels")->needs(package);
    CLI::Option* result = command->add_option("--result", options->results, "NAME=VALUE components of a result key");
    package->excludes(result);
    command->callback([options] {
        if (options->package.empty() && options->results.empty())
            throw UsageError(L10n::text("cli.key.nothing"));
        run(*options);
    });
}

} // namespace ovik::cli
