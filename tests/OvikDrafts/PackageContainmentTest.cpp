#include <gtest/gtest.h>

#include <unistd.h>

#include "OvikDrafts/DraftPaths.h"
#include "OvikDrafts/DraftStoreError.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikDrafts/PackageCases.h"
#include "OvikL10n/L10n.h"
#include "OvikModel/objects/AnnotationDefaults.h"
#include "OvikPlatform/files/TemporaryFolder.h"

namespace ovik {
namespace {

namespace fs = std::filesystem;
using PackageContainmentTest = testing::TemporaryFolder;

TEST_F(PackageContainmentTest, OpeningHoldsTheDraftFileAndEveryPathInside) {
    ::alarm(20); // a read that waits on a FIFO ends the run here instead of hanging it
    for (const testing::PackageCase& c : testing::packageCases) {
        TearDown();
        SetUp();
        const fs::path package = testing::makePackage(folder, c);
        const auto before = tree(folder);
        std::string text;
        try {
            EXPECT_EQ(FileDraftStore::open(package).packageURL, fs::canonical(package)) << c.name;
        } catch (const PackagePathError& error) {
            EXPECT_EQ(error.path().relative, c.refused) << c.name;
            text = error.what();
        } catch (const DraftStoreFailure& error) {
            EXPECT_TRUE(error.error().is<DraftStoreError::unreadable>()) << c.name;
            text = error.what();
        }
        EXPECT_EQ(text, c.refusal ? c.prefix + L10n::format(c.refusal, {c.refused}) : "") << c.name;
        EXPECT_EQ(tree(folder), before) << c.name;
    }
    ::alarm(0);
}

// An effect stack of one look table.
EffectStack lutStack(const std::string& digest) {
    return decodeJSON<EffectStack>(
        std::string_view(R"({"entries":[{"primitive":"lut","params":[{"name":"name","value":{"text":"Warm"}},)"
                         R"({"name":"sha256","value":{"text":")" + digest + R"("}}]}]})"));
}

TEST(DraftPaths, MediaThenPicturesThenFontsThenLookTables) {
    Draft draft;
    Media shot, recording;
    shot.source = MediaSource::makeScreenshot(Screenshot{PackagePath{"media/shot.png"}, PixelSize{4, 3}, 1, "sRGB", {}, {}});
    Recording recorded;
    for (const char* movie : {"media/segment-002.mov", "media/segment-001.mov"}) recorded.segments.emplace_back().movie.relative = movie;
    recorded.events = PackagePath{"events/events.json"};
    recording.source = MediaSource::makeRecording(recorded);
    draft.media = CowList<Media>{recording, shot};
    DraftFont a, b;
    a.file.relative = "fonts/a.otf";
    b.file.relative = "fonts/b.otf";
    draft.fonts = CowList<DraftFont>{b, a};
    ObjectNode sticker;
    sticker.content = ObjectContent::makeAnnotation(
        AnnotationDefaults::standard().sticker(CGRect{{0, 0}, {10, 10}}, PackagePath{"assets/X/s.png"}));
    sticker.effects = lutStack("bb");
    ObjectNode group;
    group.content = ObjectContent::makeGroup({sticker});
    draft.objects = CowList<ObjectNode>{group};
    draft.style.look = lutStack("aa");
    std::vector<std::string> texts;
    for (const PackagePath& path : draftPaths(draft)) texts.push_back(path.relative);
    EXPECT_EQ(texts, (std::vector<std::string>{"media/segment-002.mov", "media/segment-001.mov", "events/events.json",
                                               "media/shot.png", "assets/X/s.png", "fonts/a.otf", "fonts/b.otf",
                                               "luts/aa.cube", "luts/bb.cube"}));
}

} // namespace
} // namespace ovik
