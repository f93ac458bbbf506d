#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "OvikL10n/L10n.h"
#include "OvikPlatform/files/SpecialFiles.h"
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
    const std::string a = animation, o = (folder / "x.png").string(), big = "9223372036854775808";
    const struct {
        std::vector<std::string> arguments;
        int status;
        const char* key;
        std::vector<L10nArgument> values;
    } cases[] = {
        {{"thumbnail", a, "--size", "64", "--scale", "nan", "--output", o}, 2, "cli.usage.badNumber", {"--scale", "nan", "0.25", "8"}},
        {{"thumbnail", a, "--size", "64", "--scale", "1e400", "--output", o}, 2, "cli.usage.badNumber", {"--scale", "1e400", "0.25", "8"}},
        {{"render", a, "--at", big, "--output", o}, 2, "cli.usage.badMoment", {"--at", big}},
        {{"render", a, "--at", "1.5", "--output", o}, 2, "cli.usage.badMoment", {"--at", "1.5"}},
        {{"time", a, "--output", "-9223372036854775809"}, 2, "cli.usage.badMoment", {"--output", "-9223372036854775809"}},
        {{"filmstrip", a, "--count", "0", "--output", o}, 2, "cli.usage.badWholeNumber", {"--count", "0", std::int64_t(1), std::int64_t(100)}},
        {{"render", a, "--at", "6000001", "--output", o}, 1, "cli.time.outside", {"6000001", "6000000"}},
        {{"render", a, "--at", "-1", "--output", o}, 1, "cli.time.outside", {"-1", "6000000"}},
        {{"render", a}, 2, "cli.usage.missing", {"--output"}},
        {{"render", a, "--output", o, "--at"}, 2, "cli.usage.valueMissing", {}},
        {{"draft", "nonsense"}, 2, "cli.usage.unknownCommand", {"nonsense", "check, format, paths"}},
        {{"time", a, "--output", "1", "--played", "2"}, 2, "cli.usage.excludes", {}},
        {{"props", "--writable", "planet"}, 2, "cli.props.unknownTarget", {"planet", "object, media, lens, look, spaceObject, transition, draft"}},
    };
    for (const auto& c : cases) {
        const CommandResult result = runOvik(c.arguments, {"OVIK_LANGUAGE=en"});
        EXPECT_EQ(result.status, c.status) << c.key << ": " << result.err;
        EXPECT_EQ(firstLine(result.err), L10n::format(c.key, c.values)) << result.err;
        EXPECT_FALSE(fs::exists(o)) << c.key;
    }
    // The whole text of one refusal: the sentence, then where to read how the command is used.
    EXPECT_EQ(runOvik({"render", a, "--at", "", "--output", o}, {"OVIK_LANGUAGE=en"}).err,
              "--at takes a moment in whole microseconds; “” isn't one.\nSee “ovik render --help” for how to use it.\n");
    const CommandResult thumbnailer = runProgram(OVIK_THUMBNAILER, {"-s", "0", a, o}, {"OVIK_LANGUAGE=en"});
    EXPECT_EQ(thumbnailer.status, 2);
    EXPECT_EQ(firstLine(thumbnailer.err), L10n::format("cli.usage.badWholeNumber", {"--size", "0", std::int64_t(1), std::int64_t(4096)}));
}

// A failed write names the file asked for, never our temporary file beside it.
TEST_F(CommandRefusals, AFailedWriteNamesTheOutputNotItsTemporaryFile) {
    const L10n::LanguageOverride english("en");
    const std::string output = (folder / "gone" / "x.png").string();
    const CommandResult result = runOvik({"render", animation, "--output", output}, {"OVIK_LANGUAGE=en"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, L10n::format("drafts.output.cannotWrite", {output, L10n::format("drafts.files.noSuchFile", {"x.png"})}) + "\n");
}

// A file manager's log shows why a package gave no thumbnail: the general sentence, then the cause.
TEST_F(CommandRefusals, ThumbnailHostsTellWhyADraftCantBeRead) {
    const L10n::LanguageOverride english("en");
    const fs::path package = folder / "empty.ovikwork";
    const std::string out = (folder / "t.png").string();
    fs::create_directories(package);
    const std::string expected = L10n::text("quicklook.error.unreadable") + "\n" + "empty: " +
                                 L10n::format("drafts.files.noSuchFile", {"draft.json"}) + "\n";
    const CommandResult ovik = runOvik({"thumbnail", package.string(), "--size", "64", "--output", out}, {"OVIK_LANGUAGE=en"});
    const CommandResult thumbnailer = runProgram(OVIK_THUMBNAILER, {"-s", "64", package.string(), out}, {"OVIK_LANGUAGE=en"});
    for (const CommandResult* result : {&ovik, &thumbnailer}) {
        EXPECT_EQ(result->status, 1);
        EXPECT_EQ(result->err, expected);
    }
}

TEST(OvikCommand, TextSpeaksTheLanguageInForceAndWrongUsageExitsWithTwo) {
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{}, "没有结果文件：a/b.ovikres\n"},
        {{"LANG=en_US.UTF-8"}, "No result file: a/b.ovikres\n"},
        {{"LANG=en_US.UTF-8", "OVIK_LANGUAGE=fr"}, "没有结果文件：a/b.ovikres\n"},
        {{"LANGUAGE=fr:en", "LANG=zh_CN.UTF-8"}, "No result file: a/b.ovikres\n"},
    };
    for (const auto& [environment, expected] : cases)
        EXPECT_EQ(runOvik({"text", "results.file.missing", "a/b.ovikres"}, environment).out, expected)
            << (environment.empty() ? "" : environment.back());
    EXPECT_EQ(runOvik({"text", "model.lut.error.wrongCount", "27", "3"}).out, "这个 .cube 应有 27 行颜色，只有 3 行。\n");
    const CommandResult unknown = runOvik({"text", "no.such.key"});
    EXPECT_EQ(unknown.status, 0);
    EXPECT_EQ(unknown.out, "no.such.key\n");
    EXPECT_NE(runOvik({"version"}, {"OVIK_LANGUAGE=en"}).out.find("(en)"), std::string::npos);
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{}, {"text"}, {"frobnicate"}, {"version", "--bogus"}}) {
        const CommandResult result = runOvik(arguments); // wrong usage
        EXPECT_TRUE(result.status == 2 && result.out.empty() && !result.err.empty()) << (arguments.empty() ? "" : arguments[0]);
    }
}

// The commands share one writer: the command and the thumbnailer stand for all of them.
CommandResult run(bool thumbnailer, const fs::path& output) {
    if (thumbnailer) return runProgram(OVIK_THUMBNAILER, {"-s", "16", animation, output.string()}, {"OVIK_LANGUAGE=en"});
    return runOvik({"render", animation, "--size", "16", "--output", output.string()}, {"OVIK_LANGUAGE=en"});
}

TEST_F(CommandRefusals, EveryProgramThatWritesRefusesWhatIsNotAPlainFile) {
    const fs::path output = folder / "out.png";
    for (const bool thumbnailer : {false, true}) {
        for (const SpecialFile& special : specialFiles) {
            SCOPED_TRACE(std::string(thumbnailer ? "thumbnailer" : "render") + " onto " + special.name);
            special.make(output);
            const CommandResult result = run(thumbnailer, output);
            EXPECT_EQ(result.status, 1);
            EXPECT_NE(result.err.find("Can't write “" + output.string() + "”: "), std::string::npos) << result.err;
            EXPECT_EQ(fs::symlink_status(output).type(), special.type);
            EXPECT_EQ(tree(folder), std::set<std::string>{"out.png"});
            fs::remove(output);
        }
    }
    EXPECT_EQ(run(false, "/dev/null").err, "Can't write “/dev/null”: “null” isn't an ordinary file.\n");
}

} // namespace
} // namespace ovik::testing
