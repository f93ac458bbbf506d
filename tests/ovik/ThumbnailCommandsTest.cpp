#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/files/TemporaryFolder.h"
#include "RunCommand.h"

namespace ovik::testing {
namespace {

namespace fs = std::filesystem;

const fs::path examples = OVIK_EXAMPLES;

std::string slurp(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

class ThumbnailCommands : public TemporaryFolder {};

TEST_F(ThumbnailCommands, AKeptThumbnailAnswersAndFitsTheBox) {
    const fs::path out = folder / "t.png";
    const CommandResult result =
        runOvik({"thumbnail", (examples / "kept.ovikwork").string(), "--size", "200x100", "--scale", "2", "--output",
                 out.string(), "--json"});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_NE(result.out.find(R"("answer":"file")"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("thumbnail-520.png"), std::string::npos) << result.out; // 400 pixels: the 520 rung
    const CGImage image = PNGCodec::decode(slurp(out));
    EXPECT_EQ(image.height(), 200);
    EXPECT_EQ(image.width(), 320); // the kept picture is 16:10
}

TEST_F(ThumbnailCommands, AStalePackageIsComposedOnTheSpot) {
    const fs::path out = folder / "t.png";
    const CommandResult result = runOvik(
        {"thumbnail", (examples / "stale.ovikwork").string(), "--size", "256", "--output", out.string(), "--json"});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_NE(result.out.find(R"("answer":"picture")"), std::string::npos) << result.out;
    const CGImage image = PNGCodec::decode(slurp(out));
    EXPECT_EQ(std::max(image.width(), image.height()), 256);
}

TEST_F(ThumbnailCommands, OutsideOrMissingPackagesAreUnreadableAndNothingIsWritten) {
    for (const char* name : {"outside.ovikwork", "missing.ovikwork"}) {
        const fs::path out = folder / "t.png";
        const CommandResult result =
            runOvik({"thumbnail", (examples / name).string(), "--size", "256", "--output", out.string()}, {"OVIK_LANGUAGE=en"});
        EXPECT_EQ(result.status, 1) << name;
        EXPECT_EQ(result.err, "This draft can't be read.\n") << name;
        EXPECT_FALSE(fs::exists(out)) << name;
    }
}

TEST_F(ThumbnailCommands, ThumbnailerWritesAPNGWithinTheSize) {
    const fs::path out = folder / "t.png";
    const std::string uri = "file://" + (examples / "kept.ovikwork").string();
    const CommandResult result = runProgram(OVIK_THUMBNAILER, {"-s", "128", uri, out.string()});
    ASSERT_EQ(result.status, 0) << result.err;
    const CGImage image = PNGCodec::decode(slurp(out));
    EXPECT_EQ(std::max(image.width(), image.height()), 128);
    EXPECT_EQ(runProgram(OVIK_THUMBNAILER, {"-s", "128", (examples / "outside.ovikwork").string(), out.string() + "2"}).status, 1);
    EXPECT_FALSE(fs::exists(out.string() + "2"));
    EXPECT_EQ(runProgram(OVIK_THUMBNAILER, {"128", "a", "b"}).status, 2);
}

TEST(DraftCommands, CheckTellsTheFirstProblem) {
    struct Case {
        const char* package;
        int status;
        const char* words;
    };
    const Case cases[] = {
        {"kept.ovikwork", 0, "The draft is fine"},
        {"stale.ovikwork", 0, "The draft is fine"}, // stale renders are not a problem of the draft
        {"outside.ovikwork", 1, "The path “../screenshot.png” can't contain “..”."},
        {"missing.ovikwork", 1, "missing: The file “draft.json” doesn't exist."},
    };
    for (const Case& c : cases) {
        const CommandResult result = runOvik({"draft", "check", (examples / c.package).string()}, {"OVIK_LANGUAGE=en"});
        EXPECT_EQ(result.status, c.status) << c.package;
        EXPECT_NE((result.out + result.err).find(c.words), std::string::npos) << c.package << ": " << result.out << result.err;
    }
}

TEST(DraftCommands, FormatGivesBackTheFileAndPathsListTheFiles) {
    const CommandResult format = runOvik({"draft", "format", (examples / "kept.ovikwork").string()});
    ASSERT_EQ(format.status, 0);
    EXPECT_EQ(format.out, slurp(examples / "kept.ovikwork/draft.json") + "\n");
    const CommandResult paths = runOvik({"draft", "paths", (examples / "kept.ovikwork").string()});
    EXPECT_EQ(paths.out, "media/screenshot.png\n");
}

TEST(KeyCommand, PrintsTheThumbnailKeyOrAResultDigest) {
    const CommandResult key = runOvik({"key", (examples / "kept.ovikwork").string(), "--max-pixel", "520"});
    ASSERT_EQ(key.status, 0);
    ASSERT_EQ(key.out.size(), 33u);
    EXPECT_TRUE(fs::exists(examples / "kept.ovikwork/renders" / key.out.substr(0, 32) / "thumbnail-520.png"));
    // sha256 of "a=1\nb=2\n", whatever order the components are given in
    const CommandResult digest = runOvik({"key", "--result", "b=2", "--result", "a=1"});
    EXPECT_EQ(digest.out, "4a73850fde34aad40ff8649b93a66523a5fe744357a3931caea0f10609d0d930\n");
    EXPECT_EQ(runOvik({"key", "--result", "novalue"}).status, 2);
    EXPECT_EQ(runOvik({"key"}).status, 2);
}

} // namespace
} // namespace ovik::testing
