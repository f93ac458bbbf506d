// The sample packages that carry real media: a recording, a drawn screenshot and an imported
// photo. Each must open, keep its one file inside its media folder, and describe it truly.
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

void expectTrueRecording(const Draft& draft, const fs::path& file) {
    const Recording& recording = draft.media[0].source.as<MediaSource::recording>().value;
    const MediaProbe::Movie movie = MediaProbe::movie(file);
    EXPECT_EQ((PixelSize{movie.width, movie.height}), recording.pixelSize);
    EXPECT_EQ(movie.frameRate, recording.frameRate);
    EXPECT_EQ(recording.segments[0].duration, MediaDuration{4'000'000});
    EXPECT_EQ(movie.duration, MediaTime::microseconds(recording.segments[0].duration.microseconds));
}

void expectTrueStill(const Draft& draft, const fs::path& file) {
    const Screenshot& still = draft.media[0].source.as<MediaSource::screenshot>().value;
    const std::string bytes = readFile(file);
    const CGImage image = ImageDecoder::decode(bytes);
    EXPECT_EQ((PixelSize{image.width(), image.height()}), still.pixelSize) << file;
    ASSERT_EQ(still.imported.has_value(), file.extension() == ".jpg") << file; // the photo is imported
    if (!still.imported) return;
    EXPECT_EQ(still.imported->sha256, hexString(SHA256::hash(bytes)));
    EXPECT_EQ(file.filename(), still.imported->sha256 + ".jpg");
}

TEST(MediaExamples, EachPassesTheCheckAndDescribesTheOneFileInItsMediaFolder) {
    const std::pair<const char*, const char*> cases[] = {
        {"recording.ovikwork", R"(media/segment-001\.mov)"}, {"picture.ovikwork", R"(media/screenshot\.png)"},
        {"photo.ovikwork", R"(media/[0-9a-f]{64}\.jpg)"}, // imported: named by its digest
    };
    for (const auto& [name, listed] : cases) {
        const fs::path package = fs::path(OVIK_EXAMPLES) / name;
        const CommandResult check = runOvik({"draft", "check", package.string()});
        EXPECT_EQ(check.status, 0) << name << ": " << check.err;
        const std::string paths = runOvik({"draft", "paths", package.string()}).out;
        ASSERT_TRUE(std::regex_match(paths, std::regex(std::string(listed) + "\n"))) << name << ": " << paths;
        EXPECT_FALSE(fs::exists(package / "renders")) << name; // a thumbnail is always composed
        const Draft draft = FileDraftStore::readDraft(package);
        const fs::path file = package / paths.substr(0, paths.size() - 1);
        if (draft.media[0].source.is<MediaSource::recording>()) expectTrueRecording(draft, file);
        else expectTrueStill(draft, file);
    }
}

} // namespace
} // namespace ovik::testing
