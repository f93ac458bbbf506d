#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>
#include <optional>
#include <string>

#include "Command.h"
#include "CommandLine.h"
#include "FilmMoment.h"
#include "OvikCompositor/LiveRendering.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikDrafts/OutputFile.h"
#include "OvikL10n/L10n.h"
#include "OvikPlatform/codecs/PNGCodec.h"

namespace ovik::cli {
namespace {

struct RenderOptions {
    std::string package;
    std::optional<std::string> at;
    std::optional<std::string> size;
    std::string output;
};

void run(const RenderOptions& options) {
    std::optional<OutputTime> at;
    if (options.at) at = OutputTime{momentArgument("--at", *options.at)};
    std::optional<std::int64_t> size;
    if (options.size) size = integerArgument("--size", *options.size, 1, 32768);
    const DraftDocument document = FileDraftStore::open(options.package);
    if (at) requireOnFilm(at->microseconds, filmLength(document.draft));
    const ImageBox still = LiveRendering::shared().still(document, at, size);
    writeOutputFile(PNGCodec::encode(*still.cgImage), options.output);
    std::printf("%s\n", L10n::format("cli.render.written", {options.output, still.pixelSize().description()}).c_str());
}

} // namespace

void addRenderCommand(CLI::App& app) {
    CLI::App* command = app.add_subcommand("render", "Compose one still of a draft at a moment of the film");
    auto options = std::make_shared<RenderOptions>();
    command->add_option("PACKAGE", options->package, "An .ovikwork package folder")->required();
    command->add_option("--at", options->at, "The film moment in microseconds (default: the draft's poster moment)");
    command->add_option("--size", options->size, "The longest side in pixels, at most (never enlarged)");
    command->add_option("--output", options->output, "The PNG to write")->required();
    command->callback([options] { run(*options); });
}

} // namespace ovik::cli
