#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>
#include <functional>
#include <vector>

#include "OvikL10n/L10n.h"
#include "OvikPlatform/files/TemporaryFolder.h"
#include "RunCommand.h"

namespace ovik::testing {
namespace {

namespace fs = std::filesystem;

const fs::path examples = OVIK_EXAMPLES;

using DraftCheck = TemporaryFolder;

// Each damage to a copy of a sample package is one problem the check names, in our words.
TEST_F(DraftCheck, NamesEachFileThatCantBeUsedAndEachValueOutOfRange) {
    const L10n::LanguageOverride english("en");
    const std::string movie = "media/segment-001.mov", picture = "media/screenshot.png";
    const struct { const char* sample; std::function<void(const fs::path&)> damage; std::string problem; } cases[] = {
        {"recording", [&](const fs::path& p) { fs::remove(p / movie); },
         "“media/segment-001.mov” can't be used: The file “segment-001.mov” doesn't exist."},
        {"picture", [&](const fs::path& p) { fs::remove(p / picture), ::mkfifo((p / picture).c_str(), 0644); }, // never waited on
         L10n::format("cli.draft.unusableFile", {picture, L10n::format("drafts.files.notAFile", {"screenshot.png"})})},
        {"picture", [&](const fs::path& p) { writeText(p / picture, "not a picture"); }, L10n::format("cli.draft.notPicture", {picture})},
        {"recording", [&](const fs::path& p) { writeText(p / movie, std::string(4096, 'x')); }, L10n::format("cli.draft.notMovie", {movie})},
        {"animation",
         [](const fs::path& p) {
             std::string text = readText(p / "draft.json");
             writeText(p / "draft.json", text.replace(text.find("\"padding\" : 0,"), 14, "\"padding\" : -48,"));
         },
         L10n::format("cli.draft.outOfRange", {"style.padding", "-48", "0", "400"})},
    };
    int index = 0;
    for (const auto& c : cases) {
        const fs::path package = folder / (std::to_string(index++) + ".ovikwork");
        fs::copy(examples / (std::string(c.sample) + ".ovikwork"), package, fs::copy_options::recursive);
        c.damage(package);
        const CommandResult result = runOvik({"draft", "check", package.string()}, {"OVIK_LANGUAGE=en"});
        EXPECT_EQ(result.status, 1) << c.problem;
        EXPECT_EQ(result.err, L10n::format("cli.draft.problems", {package.string(), std::int64_t(1)}) + "\n" + c.problem + "\n");
    }
    // Reading still takes the value the check reports.
    EXPECT_EQ(runOvik({"get", (folder / "4.ovikwork").string(), "style.padding"}).out, "-48\n");
}

// Kept renders are held to the package, and the thumbnails of the draft's keys must be whole.
TEST_F(DraftCheck, HoldsKeptRendersToThePackage) {
    const L10n::LanguageOverride english("en");
    const fs::path package = folder / "kept.ovikwork";
    fs::copy(examples / "kept.ovikwork", package, fs::copy_options::recursive);
    ASSERT_EQ(runOvik({"draft", "check", package.string()}).status, 0);
    writeText(folder / "outside.png", "x");
    fs::create_directory_symlink(folder, package / "renders" / "elsewhere");
    const std::string err = runOvik({"draft", "check", package.string()}, {"OVIK_LANGUAGE=en"}).err;
    EXPECT_NE(err.find("\n" + L10n::format("drafts.path.outside", {"renders/elsewhere"}) + "\n"), std::string::npos) << err;
    std::vector<std::string> spoiled;
    for (const auto& entry : fs::recursive_directory_iterator(package / "renders"))
        if (entry.path().filename().string().starts_with("thumbnail-")) {
            writeText(entry.path(), "junk");
            spoiled.push_back(entry.path().lexically_relative(package).string());
        }
    ASSERT_EQ(spoiled.size(), 3u);
    const std::string all = runOvik({"draft", "check", package.string()}, {"OVIK_LANGUAGE=en"}).err;
    for (const std::string& file : spoiled)
        EXPECT_NE(all.find(L10n::format("cli.draft.badKeptRender", {file}) + "\n"), std::string::npos) << all;
}

} // namespace
} // namespace ovik::testing
