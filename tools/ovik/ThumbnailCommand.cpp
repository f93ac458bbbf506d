#include <CLI/CLI.hpp>

#include <charconv>
#include <cstdio>
#include <memory>
#include <string>

#include "Command.h"
#include "CommandLine.h"
#include "OvikDrafts/OutputFile.h"
#include "OvikL10n/L10n.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/json/JSONWriter.h"
#include "OvikQuickLookThumbnail/ThumbnailHost.h"
#include "UsageError.h"

namespace ovik::cli {
namespace {

struct ThumbnailOptions {
    std::string package;
    std::string size;
    std::string scale = "1";
    std::string output;
    bool json = false;
};

// "N" is a square box, "NxM" a box of N by M points.
CGSize boxSize(const std::string& text) {
    const std::size_t x = text.find('x');
    auto number = [&text](std::string_view part) {
        double value = 0;
        auto [ptr, ec] = std::from_chars(part.data(), part.data() + part.size(), value);
        if (ec != std::errc() || ptr != part.data() + part.size() || !(value > 0) || value > 16384)
            throw UsageError(L10n::format("cli.thumbnail.badSize", {text}));
        return value;
    };
    const std::string_view all(text);
    if (x == std::string::npos) return {number(all), number(all)};
    return {number(all.substr(0, x)), number(all.substr(x + 1))};
}

void report(const HostedThumbnail& thumbnail, const ThumbnailOptions& options) {
    if (!options.json) {
        const std::string what = thumbnail.keptFile ? L10n::format("cli.thumbnail.kept", {thumbnail.keptFile->string()})
                                                    : L10n::text("cli.thumbnail.composed");
        std::printf("%s\n", what.c_str());
        return;
    }
    JSONValue::Object answer{{"answer", thumbnail.keptFile ? "file" : "picture"},
                             {"output", options.output},
                             {"width", thumbnail.image.width()},
                             {"height", thumbnail.image.height()}};
    if (thumbnail.keptFile) answer.emplace("file", thumbnail.keptFile->string());
    std::printf("%s\n", JSONWriter::write(JSONValue(std::move(answer))).c_str());
}

void run(const ThumbnailOptions& options) {
    const ThumbnailRequest request{options.package, boxSize(options.size),
                                   numberArgument("--scale", options.scale, 0.25, 8)};
    const HostedThumbnail thumbnail = ThumbnailHost::answer(request);
    writeOutputFile(PNGCodec::encode(thumbnail.image), options.output);
    report(thumbnail, options);
}

} // namespace

void addThumbnailCommand(CLI::App& app) {
    CLI::App* command = app.add_subcommand("thumbnail", "Answer a thumbnail request for a package, as a file browser would");
    auto options = std::make_shared<ThumbnailOptions>();
    command->add_option("PACKAGE", options->package, "An .ovikwork package folder")->required();
    command->add_option("--size", options->size, "The largest size in points: N or NxM")->required();
    command->add_option("--scale", options->scale, "Pixels per point of the screen, 0.25 to 8");
    command->add_option("--output", options->output, "The PNG to write")->required();
    command->add_flag("--json", options->json, "Tell what answered as JSON");
    command->callback([options] { run(*options); });
}

} // namespace ovik::cli
