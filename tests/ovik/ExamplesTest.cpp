// The sample packages that carry real media: a recording, a drawn screenshot and an imported
// photo. Each must open, keep its file inside the package, and describe that file truly.
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>

#include "OvikDrafts/FileDraftStore.h"
#include "OvikPlatform/codecs/ImageDecoder.h"
#include "OvikPlatform/crypto/SHA256.h"
#include "OvikPlatform/files/ReadFile.h"
#include "OvikPlatform/media/MediaProbe.h"
#include "RunCommand.h"

namespace ovik::testing {
namespace {

namespace fs = std::filesystem;

const fs::path examples = OVIK_EXAMPLES;

TEST(MediaExamples, EachPassesTheCheckAndListsOneFileInsideItsMediaFolder) {
    struct Case {
        const char* package;
        const char* listed;
    };
    const Case cases[] = {
        {"recording.ovikwork", R"(media/segment-001\.mov)"},
        {"picture.ovikwork", R"(media/screenshot\.png)"},
        {"photo.ovikwork", R"(media/[0-9a-f]{64}\.jpg)"}, // imported: named by its digest
    };
    for (const Case& c : cases) {
        const fs::path package = examples / c.package;
        const CommandResult check = runOvik({"draft", "check", package.string()}, {"OVIK_LANGUAGE=en"});
        EXPECT_EQ(check.status, 0) << c.package << ": " << check.err;
        const CommandResult paths = runOvik({"draft", "paths", package.string()});
        ASSERT_TRUE(std::regex_match(paths.out, std::regex(std::string(c.listed) + "\n"))) << c.package << ": " << paths.out;
        const fs::path file = package / paths.out.substr(0, paths.out.size() - 1);
        ASSERT_TRUE(fs::is_regular_file(file)) << file;
        EXPECT_GT(fs::file_size(file), 0u) << file;
        EXPECT_EQ(fs::canonical(file).parent_path(), fs::canonical(package / "media")) << file;
        // Nothing kept: a thumbnail of these packages is always composed from the draft.
        EXPECT_FALSE(fs::exists(package / "renders")) << c.package;
    }
}

TEST(MediaExamples, TheRecordingKeepsAllOfItsFourSecondMovie) {
    const fs::path package = examples / "recording.ovikwork";
    const Draft draft = FileDraftStore::readDraft(package);
    ASSERT_TRUE(draft.media[0].source.is<MediaSource::recording>());
    const Recording& recording = draft.media[0].source.as<MediaSource::recording>().value;
    ASSERT_EQ(recording.segments.size(), 1u);
    const MediaProbe::Movie movie = MediaProbe::movie(package / recording.segments[0].movie.relative);
    EXPECT_EQ(movie.width, 1280);
    EXPECT_EQ(movie.height, 720);
    EXPECT_EQ(movie.frameRate, 30);
    EXPECT_EQ(movie.duration, MediaTime::microseconds(4'000'000));
    EXPECT_EQ(recording.pixelSize, (PixelSize{1280, 720}));
    EXPECT_EQ(recording.frameRate, 30);
    EXPECT_EQ(recording.segments[0].duration, MediaDuration{4'000'000});

    ASSERT_EQ(draft.sections.size(), 1u);
    ASSERT_TRUE(draft.sections[0].length.is<Section::Length::kept>());
    const std::vector<KeptStretch>& kept = draft.sections[0].length.as<Section::Length::kept>().value;
    ASSERT_EQ(kept.size(), 1u);
    EXPECT_EQ(kept[0].range, (SourceRange{SourceTime{0}, SourceTime{4'000'000}}));
    EXPECT_EQ(kept[0].rate, 1);
    EXPECT_FALSE(kept[0].isFreeze());
}

TEST(MediaExamples, StillsDecodeAtTheSizeTheirDraftsGive) {
    struct Case {
        const char* package;
        ImageFormat format;
        PixelSize size;
        bool imported;
    };
    const Case cases[] = {
        {"picture.ovikwork", ImageFormat::png, {1280, 800}, false},
        {"photo.ovikwork", ImageFormat::jpeg, {1600, 1200}, true},
    };
    for (const Case& c : cases) {
        const fs::path package = examples / c.package;
        const Draft draft = FileDraftStore::readDraft(package);
        ASSERT_TRUE(draft.media[0].source.is<MediaSource::screenshot>()) << c.package;
        const Screenshot& still = draft.media[0].source.as<MediaSource::screenshot>().value;
        const std::string bytes = readFile(package / still.image.relative);
        EXPECT_EQ(imageFormat(bytes), c.format) << c.package;
        const CGImage image = ImageDecoder::decode(bytes);
        EXPECT_EQ((PixelSize{image.width(), image.height()}), c.size) << c.package;
        EXPECT_EQ(still.pixelSize, c.size) << c.package;
        ASSERT_EQ(still.imported.has_value(), c.imported) << c.package;
        if (c.imported) {
            const std::string digest = hexString(SHA256::hash(bytes));
            EXPECT_EQ(still.imported->sha256, digest);
            EXPECT_EQ(still.image.relative, "media/" + digest + ".jpg");
        }
    }
}

} // namespace
} // namespace ovik::testing
