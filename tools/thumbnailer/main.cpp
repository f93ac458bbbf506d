// `ovik-thumbnailer -s SIZE INPUT OUTPUT`: the thumbnailer that freedesktop file managers
// run for .ovikwork packages. INPUT is a path or a file:// URI; OUTPUT gets a PNG whose long
// side is at most SIZE. Exit status 0 on success, 1 when no thumbnail can be made, 2 for
// wrong usage. A failure says on standard error that the draft can't be read, and why.
#include <CLI/CLI.hpp>

#include <string>

#include "CommandLine.h"
#include "OvikDrafts/OutputFile.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikQuickLookThumbnail/ThumbnailHost.h"

namespace {

int hexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// File managers may hand a URI: "file:///home/a/My%20Draft.ovikwork".
std::string localPath(const std::string& input) {
    const std::string scheme = "file://";
    if (input.rfind(scheme, 0) != 0) return input;
    std::string path;
    for (std::size_t i = scheme.size(); i < input.size(); ++i) {
        if (input[i] == '%' && i + 2 < input.size() && hexValue(input[i + 1]) >= 0 && hexValue(input[i + 2]) >= 0) {
            path += char(hexValue(input[i + 1]) * 16 + hexValue(input[i + 2]));
            i += 2;
        } else {
            path += input[i];
        }
    }
    return path;
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app{"Makes the thumbnail of an .ovikwork package for file managers", "ovik-thumbnailer"};
    std::string size;
    std::string input, output;
    app.add_option("-s,--size", size, "The largest side in pixels, 1 to 4096")->required();
    app.add_option("INPUT", input, "The package, as a path or a file:// URI")->required();
    app.add_option("OUTPUT", output, "The PNG to write")->required();
    app.callback([&] {
        const auto side = double(ovik::cli::integerArgument("--size", size, 1, 4096));
        const ovik::ThumbnailRequest request{localPath(input), {side, side}, 1};
        const ovik::HostedThumbnail thumbnail = ovik::ThumbnailHost::answer(request);
        ovik::writeOutputFile(ovik::PNGCodec::encode(thumbnail.image), output);
    });
    return ovik::cli::runCommandLine(app, argc, argv);
}
