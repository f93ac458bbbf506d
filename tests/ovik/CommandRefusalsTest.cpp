#include <gtest/gtest.h>

#include <filesystem>
#include <utility>

#include "OvikL10n/L10n.h"
#include "OvikPlatform/files/TemporaryFolder.h"
#include "RunCommand.h"

namespace ovik::testing {
namespace {

namespace fs = std::filesystem;

const std::string animation = OVIK_EXAMPLES "/animation.ovikwork"; // a film of 6 s

using CommandRefusals = TemporaryFolder;

std::string firstLine(const std::string& text) { return text.substr(0, text.find('\n')); }

// Wrong usage exits 2, a well-formed request that can't be met exits 1; either way the message
// is ours, from the text table, and nothing is written.
TEST_F(CommandRefusals, BadCommandLinesExitWithTheirStatusAndOurWords) {
    const L10n::LanguageOverride english("en");
    const std::string out = (folder / "x.png").string();
    const struct {
        std::vector<std::string> arguments;
        int status;
        const char* key;
        std::vector<L10nArgument> values;
    } cases[] = {
        {{"thumbnail", animation, "--size", "64", "--scale", "nan", "--output", out}, 2, "cli.usage.badNumber",
         {"--scale", "nan", "0.25", "8"}},
        {{"thumbnail", animation, "--size", "64", "--scale", "1e400", "--output", out}, 2, "cli.usage.badNumber",
         {"--scale", "1e400", "0.25", "8"}},
        {{"render", animation, "--at", "9223372036854775808", "--output", out}, 2, "cli.usage.badMoment",
         {"--at", "9223372036854775808"}},
        {{"render", animation, "--at", "", "--output", out}, 2, "cli.usage.badMoment", {"--at", ""}},
        {{"render", animation, "--at", "1.5", "--output", out}, 2, "cli.usage.badMoment", {"--at", "1.5"}},
        {{"state", animation, "椭圆 1", "--at", ""}, 2, "cli.usage.badMoment", {"--at", ""}},
        {{"time", animation, "--output", "-9223372036854775809"}, 2, "cli.usage.badMoment",
         {"--output", "-9223372036854775809"}},
        {{"filmstrip", animation, "--count", "0", "--output", out}, 2, "cli.usage.badWholeNumber",
         {"--count", "0", std::int64_t(1), std::int64_t(100)}},
        {{"render", animation, "--at", "6000001", "--output", out}, 1, "cli.time.outside", {"6000001", "6000000"}},
        {{"render", animation, "--at", "-1", "--output", out}, 1, "cli.time.outside", {"-1", "6000000"}},
        {{"render", animation}, 2, "cli.usage.missing", {"--output"}},
        {{"render", animation, "--output", out, "--at"}, 2, "cli.usage.valueMissing", {}},
        {{"draft", "nonsense"}, 2, "cli.usage.unknownCommand", {"nonsense", "check, format, paths"}},
        {{"time", animation, "--output", "1", "--played", "2"}, 2, "cli.usage.excludes", {}},
        {{"props", "--writable", "planet"}, 2, "cli.props.unknownTarget",
         {"planet", "object, media, lens, look, spaceObject, transition, draft"}},
    };
    for (const auto& c : cases) {
        const CommandResult result = runOvik(c.arguments, {"OVIK_LANGUAGE=en"});
        EXPECT_EQ(result.status, c.status) << c.key << ": " << result.err;
        EXPECT_EQ(firstLine(result.err), L10n::format(c.key, c.values)) << result.err;
        EXPECT_FALSE(fs::exists(out)) << c.key;
    }
    // The whole text of one refusal: the sentence, then where to read how the command is used.
    EXPECT_EQ(runOvik({"render", animation, "--at", "", "--output", out}, {"OVIK_LANGUAGE=en"}).err,
              "--at takes a moment in whole microseconds; “” isn't one.\nSee “ovik render --help” for how to use it.\n");
    const CommandResult thumbnailer = runProgram(OVIK_THUMBNAILER, {"-s", "0", animation, out}, {"OVIK_LANGUAGE=en"});
    EXPECT_EQ(thumbnailer.status, 2);
    EXPECT_EQ(firstLine(thumbnailer.err),
              L10n::format("cli.usage.badWholeNumber", {"--size", "0", std::int64_t(1), std::int64_t(4096)}));
}

// A failed write names the file asked for, never our temporary file beside it.
TEST_F(CommandRefusals, AFailedWriteNamesTheOutputNotItsTemporaryFile) {
    const L10n::LanguageOverride english("en");
    const std::string output = (folder / "gone" / "x.png").string();
    const CommandResult result = runOvik({"render", animation, "--output", output}, {"OVIK_LANGUAGE=en"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, L10n::format("drafts.output.cannotWrite",
                                       {output, L10n::format("drafts.files.noSuchFile", {"x.png"})}) +
                              "\n");
}

// A picture that can't be read is named by its place in the package and what is wrong with it,
// not by the decoder's or the system's own text.
TEST_F(CommandRefusals, AnUnreadablePictureIsNamedByItsPathInThePackage) {
    const L10n::LanguageOverride english("en");
    const fs::path package = folder / "picture.ovikwork";
    fs::copy(OVIK_EXAMPLES "/picture.ovikwork", package, fs::copy_options::recursive);
    const std::string out = (folder / "x.png").string();
    for (const auto& [damage, key] : {std::pair<const char*, const char*>{"junk", "compositor.source.damaged"},
                                      {nullptr, "compositor.source.missing"}}) {
        if (damage) writeText(package / "media/screenshot.png", damage);
        else fs::remove(package / "media/screenshot.png");
        const CommandResult result = runOvik({"render", package.string(), "--output", out}, {"OVIK_LANGUAGE=en"});
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.err, L10n::format("compositor.error.sourceUnreadable",
                                           {L10n::format(key, {"media/screenshot.png"})}) + "\n");
    }
}

// A file manager's log shows why a package gave no thumbnail: the general sentence, then the cause.
TEST_F(CommandRefusals, ThumbnailHostsTellWhyADraftCantBeRead) {
    const L10n::LanguageOverride english("en");
    const fs::path package = folder / "empty.ovikwork";
    fs::create_directories(package);
    const std::string out = (folder / "t.png").string();
    const std::string expected = L10n::text("quicklook.error.unreadable") + "\n" + "empty: " +
                                 L10n::format("drafts.files.noSuchFile", {"draft.json"}) + "\n";
    const CommandResult ovik = runOvik({"thumbnail", package.string(), "--size", "64", "--output", out}, {"OVIK_LANGUAGE=en"});
    EXPECT_EQ(ovik.status, 1);
    EXPECT_EQ(ovik.err, expected);
    const CommandResult thumbnailer = runProgram(OVIK_THUMBNAILER, {"-s", "64", package.string(), out}, {"OVIK_LANGUAGE=en"});
    EXPECT_EQ(thumbnailer.status, 1);
    EXPECT_EQ(thumbnailer.err, expected);
}

} // namespace
} // namespace ovik::testing
