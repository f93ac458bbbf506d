#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

#include "Command.h"
#include "CommandLine.h"
#include "OvikCompositor/LiveRendering.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikDrafts/OutputFile.h"
#include "OvikL10n/L10n.h"
#include "OvikPlatform/codecs/PNGCodec.h"

namespace ovik::cli {
namespace {

struct FilmstripOptions {
    std::string package;
    std::string count = "8";
    std::string height = "120";
    std::string output;
};

// The pictures side by side, left to right, in one bitmap.
CGImage joined(const std::vector<ImageBox>& pictures) {
    std::int64_t width = 0, height = 0;
    for (const ImageBox& each : pictures) {
        width += each.cgImage->width();
        height = std::max(height, each.cgImage->height());
    }
    std::vector<std::uint8_t> pixels(std::size_t(width * height * 4), 0);
    std::int64_t left = 0;
    for (const ImageBox& each : pictures) {
        const CGImage& image = *each.cgImage;
        for (std::int64_t row = 0; row < image.height(); ++row)
            std::memcpy(&pixels[std::size_t((row * width + left) * 4)], &image.pixels()[std::size_t(row * image.bytesPerRow())],
                        std::size_t(image.width() * 4));
        left += image.width();
    }
    return CGImage(width, height, width * 4, std::move(pixels));
}

void run(const FilmstripOptions& options) {
    const DraftDocument document = FileDraftStore::open(options.package);
    const std::int64_t count = integerArgument("--count", options.count, 1, 100);
    const std::int64_t height = integerArgument("--height", options.height, 8, 2048);
    const CGImage strip = joined(LiveRendering::shared().filmstrip(document, count, height));
    writeOutputFile(PNGCodec::encode(strip), options.output);
    const std::string size = std::to_string(strip.width()) + " × " + std::to_string(strip.height());
    std::printf("%s\n", L10n::format("cli.render.written", {options.output, size}).c_str());
}

} // namespace

void addFilmstripCommand(CLI::App& app) {
    CLI::App* command = app.add_subcommand("filmstrip", "Compose a strip of evenly spaced pictures of a draft's capture");
    auto options = std::make_shared<FilmstripOptions>();
    command->add_option("PACKAGE", options->package, "An .ovikwork package folder")->required();
    command->add_option("--count", options->count, "How many pictures, 1 to 100");
    command->add_option("--height", options->height, "The height of each picture in pixels, 8 to 2048");
    command->add_option("--output", options->output, "The PNG to write")->required();
    command->callback([options] { run(*options); });
}

} // namespace ovik::cli
