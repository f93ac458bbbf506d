#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>
#include <optional>
#include <string>

#include "Command.h"
#include "OvikCompositor/LiveRendering.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikDrafts/OutputFile.h"
#include "OvikL10n/L10n.h"
#include "OvikPlatform/codecs/PNGCodec.h"

namespace ovik::cli {
namespace {

struct RenderOptions {
    std::string package;
    std::optional<std::int64_t> at;
    std::optional<std::int64_t> size;
    std::string output;
};

void run(const RenderOptions& options) {
    const DraftDocument document = FileDraftStore::open(options.package);
    const std::optional<OutputTime> at = options.at ? std::optional(OutputTime{*options.at}) : std::nullopt;
    const ImageBox still = LiveRendering::shared().still(document, at, options.size);
    writeOutputFile(PNGCodec::encode(*still.cgImage), options.output);
    std::printf("%s\n", L10n::format("cli.render.written", {options.output, still.pixelSize().description()}).c_str());
}

} // namespace

void addRenderCommand(CLI::App& app) {
    CLI::App* command = app.add_subcommand("render", "Compose one still of a draft at a moment of the film");
    auto options = std::make_shared<RenderOptions>();
    command->add_option("PACKAGE", options->package, "An .ovikwork package folder")->required();
    command->add_option("--at", options->at, "The film moment in microseconds (default: the draft's poster moment)")
        ->check(CLI::NonNegativeNumber);
    command->add_option("--size", options->size, "The longest side in pixels, at most (never enlarged)")
        ->check(CLI::Range(std::int64_t(1), std::int64_t(32768)));
    command->add_option("--output", options->output, "The PNG to write")->required();
    command->callback([options] { run(*options); });
}

} // namespace ovik::cli
