#include <gtest/gtest.h>

#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <tuple>

#include "OvikDrafts/PackageCases.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/files/SpecialFiles.h"
#include "OvikPlatform/files/TemporaryFolder.h"
#include "RunCommand.h"

namespace ovik::testing {
namespace {

namespace fs = std::filesystem;

const fs::path examples = OVIK_EXAMPLES;

using PackageCommands = TemporaryFolder;

TEST_F(PackageCommands, AKeptThumbnailAnswersAndFitsTheBoxAStaleOneIsComposed) {
    const fs::path out = folder / "t.png";
    const std::string kept = (examples / "kept.ovikwork").string(), stale = (examples / "stale.ovikwork").string();
    const CommandResult fitted = runOvik({"thumbnail", kept, "--size", "200x100", "--scale", "2", "--output", out.string(), "--json"});
    ASSERT_EQ(fitted.status, 0) << fitted.err;
    EXPECT_NE(fitted.out.find(R"("answer":"file")"), std::string::npos) << fitted.out;
    EXPECT_NE(fitted.out.find("thumbnail-520.png"), std::string::npos) << fitted.out; // 400 pixels: the 520 rung
    const CGImage picture = PNGCodec::decode(readText(out));
    EXPECT_EQ((std::pair{picture.width(), picture.height()}), (std::pair{320L, 200L})); // the kept picture is 16:10
    const CommandResult composed = runOvik({"thumbnail", stale, "--size", "256", "--output", out.string(), "--json"});
    ASSERT_EQ(composed.status, 0) << composed.err;
    EXPECT_NE(composed.out.find(R"("answer":"picture")"), std::string::npos) << composed.out;
    const CGImage drawn = PNGCodec::decode(readText(out));
    EXPECT_EQ(std::max(drawn.width(), drawn.height()), 256);
    // The thumbnailer takes a URI and fits the picture to its size.
    ASSERT_EQ(runProgram(OVIK_THUMBNAILER, {"-s", "128", "file://" + kept, out.string()}).status, 0);
    const CGImage image = PNGCodec::decode(readText(out));
    EXPECT_EQ(std::max(image.width(), image.height()), 128);
}

TEST_F(PackageCommands, EveryCommandOpensExactlyThePackagesTheStoreOpensAndWritesNothingInThem) {
    for (const PackageCase& c : packageCases) {
        TearDown();
        SetUp();
        const fs::path package = makePackage(folder, c);
        const auto before = tree(package);
        const std::string out = (folder / "t.png").string();
        const CommandResult check = runOvik({"draft", "check", package.string()});
        const CommandResult thumbnail = runOvik({"thumbnail", package.string(), "--size", "64", "--output", out}, {"OVIK_LANGUAGE=en"});
        for (const CommandResult* result : {&check, &thumbnail})
            EXPECT_EQ(result->status, c.refusal ? 1 : 0) << c.name << ": " << result->err;
        if (c.refusal) {
            EXPECT_NE(thumbnail.err.find("“" + c.refused + "”"), std::string::npos) << c.name << ": " << thumbnail.err;
            EXPECT_NE(check.err.find("“" + c.refused + "”"), std::string::npos) << c.name << ": " << check.err;
        }
        EXPECT_EQ(tree(package), before) << c.name;
    }
}

// Stale renders are not a problem of the draft.
TEST_F(PackageCommands, DraftCheckFormatPathsAndKeys) {
    const std::string kept = (examples / "kept.ovikwork").string();
    EXPECT_EQ(runOvik({"draft", "check", (examples / "stale.ovikwork").string()}, {"OVIK_LANGUAGE=en"}).out.rfind("The draft is fine", 0), 0u);
    EXPECT_EQ(runOvik({"draft", "format", kept}).out, readText(examples / "kept.ovikwork/draft.json") + "\n");
    EXPECT_EQ(runOvik({"draft", "paths", kept}).out, "media/screenshot.png\n");
    // The key of a thumbnail, and a result digest: sha256 of "a=1\nb=2\n" whatever the order given.
    const CommandResult key = runOvik({"key", kept, "--max-pixel", "520"});
    ASSERT_EQ(key.out.size(), 33u);
    EXPECT_TRUE(fs::exists(examples / "kept.ovikwork/renders" / key.out.substr(0, 32) / "thumbnail-520.png"));
    EXPECT_EQ(runOvik({"key", "--result", "b=2", "--result", "a=1"}).out,
              "4a73850fde34aad40ff8649b93a66523a5fe744357a3931caea0f10609d0d930\n");
}

fs::path fileEndingIn(const fs::path& package, const std::string& ending) {
    for (const auto& entry : fs::recursive_directory_iterator(package))
        if (entry.path().string().ends_with(ending)) return entry.path();
    ADD_FAILURE() << package << " has no " << ending;
    return package / ending;
}

// A special file where a package names a movie, a picture or a kept render is never waited
// on: every command ends well within a decoder's deadline (5 s), fails or answers as the place
// says, and writes nothing, neither its output on failure nor anything in the package.
TEST_F(PackageCommands, AreNeverWaitedOn) {
    ::alarm(120); // a command that waits for a writer ends the run here instead of hanging it
    // The package, how the name of the file replaced ends, and whether a thumbnail and a render still
    // come out: a kept render that isn't a plain file is as good as absent, and the thumbnail is composed.
    const std::tuple<const char*, const char*, bool> places[] = {
        {"recording.ovikwork", "segment-001.mov", false}, {"picture.ovikwork", "screenshot.png", false},
        {"photo.ovikwork", ".jpg", false},                {"kept.ovikwork", "thumbnail-320.png", true},
    };
    for (const auto& [name, ending, answers] : places) {
        for (const SpecialFile& special : unreadableFiles) {
            const std::string what = std::string(name) + ", " + special.name;
            const fs::path package = folder / name, out = folder / "out.png";
            fs::remove_all(package);
            fs::copy(fs::path(OVIK_EXAMPLES) / name, package, fs::copy_options::recursive);
            const fs::path file = fileEndingIn(package, ending);
            fs::remove(file);
            special.make(file);
            const auto before = tree(package);
            for (const char* command : {"thumbnail", "render"}) {
                fs::remove(out);
                const auto start = std::chrono::steady_clock::now();
                const CommandResult result = runOvik({command, package.string(), "--size", "64", "--output", out.string()});
                EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4)) << what << ": " << command;
                EXPECT_EQ(result.status, answers ? 0 : 1) << what << ": " << command << ": " << result.err;
                EXPECT_EQ(fs::exists(out), answers) << what << ": " << command;
            }
            (void)runOvik({"draft", "check", package.string()}); // its verdict is its own business; it must not wait
            EXPECT_EQ(tree(package), before) << what;
        }
    }
    ::alarm(0);
}

} // namespace
} // namespace ovik::testing
