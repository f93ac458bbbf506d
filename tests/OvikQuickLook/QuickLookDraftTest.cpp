#include <gtest/gtest.h>

#include <optional>

#include "OvikDrafts/FileDraftStore.h"
#include "OvikModel/keys/BuiltInFormats.h"
#include "OvikModel/keys/DraftRenderKey.h"
#include "OvikModel/objects/AnnotationDefaults.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/files/TemporaryFolder.h"
#include "OvikQuickLook/QuickLookDraft.h"
#include "OvikQuickLook/QuickLookError.h"
#include "OvikQuickLook/QuickLookPackage.h"

namespace ovik {
namespace {

namespace fs = std::filesystem;

// An effect stack of one look table.
EffectStack lutStack(const std::string& digest) {
    return decodeJSON<EffectStack>(
        std::string_view(R"({"entries":[{"primitive":"lut","params":[{"name":"name","value":{"text":"Warm"}},)"
                         R"({"name":"sha256","value":{"text":")" + digest + R"("}}]}]})"));
}

Draft screenshotDraft(const std::string& image) {
    Draft draft;
    draft.id = DraftID{*UUID::parse("6F9619FF-8B86-4011-B42D-00C04FC964FF")};
    draft.name = "draft";
    Media media;
    media.id = MediaID{*UUID::parse("6F9619FF-8B86-4011-B42D-00C04FC96400")};
    media.source = MediaSource::makeScreenshot(Screenshot{PackagePath{image}, PixelSize{40, 30}, 1, "sRGB", {}, {}});
    draft.media = CowList<Media>{media};
    Section section;
    section.id = SectionID{*UUID::parse("6F9619FF-8B86-4011-B42D-00C04FC96401")};
    section.media = media.id;
    section.length = Section::Length::makeStill(MediaDuration{5000000});
    draft.sections = CowList<Section>{section};
    return draft;
}

class QuickLookDraftTest : public testing::TemporaryFolder {
protected:
    void SetUp() override {
        TemporaryFolder::SetUp();
        package = folder / "a.ovikwork";
        fs::create_directories(package / "media");
        draft = screenshotDraft("media/shot.png");
        FileDraftStore::writeDraft(draft, package);
    }

    fs::path keptPath(std::int64_t size) const {
        return package / "renders" / thumbnailKey(draft, size).rawValue / RenderKey::thumbnailFileName(size);
    }
    void keep(std::int64_t size, const std::string& bytes = "png") const {
        fs::create_directories(keptPath(size).parent_path());
        writeText(keptPath(size), bytes);
    }
    std::optional<fs::path> answer(std::int64_t maxPixel) const {
        const auto thumbnail = QuickLookDraft::thumbnail(package, maxPixel);
        return thumbnail.is<QuickLookDraft::Thumbnail::file>() ? std::optional(thumbnail.as<QuickLookDraft::Thumbnail::file>().value)
                                                               : std::nullopt;
    }

    fs::path package;
    Draft draft;
};

TEST_F(QuickLookDraftTest, TheLadderStartsAtTheSmallestKeptSizeNotBelowTheRequest) {
    for (std::int64_t size : {320, 520, 1400}) keep(size);
    const std::pair<std::int64_t, std::int64_t> cases[] = {{1, 320},   {320, 320},   {321, 520}, {500, 520},
                                                          {520, 520}, {521, 1400}, {1400, 1400},
                                                          // above the largest, composing fails: the largest kept size
                                                          {1401, 1400}, {5000, 1400}};
    for (const auto& [maxPixel, size] : cases) EXPECT_EQ(answer(maxPixel), keptPath(size)) << maxPixel;
}

TEST_F(QuickLookDraftTest, WhenComposingFailsAnyKeptSizeWillDo) {
    keep(320);
    EXPECT_EQ(answer(1000), keptPath(320));
    fs::remove(keptPath(320));
    EXPECT_THROW(answer(1000), QuickLookFailure);
}

TEST_F(QuickLookDraftTest, EmptyHiddenAndMisnamedRendersCountAsAbsent) {
    keep(320, "");                 // empty
    keep(520);
    const fs::path folder = keptPath(520).parent_path();
    fs::rename(keptPath(520), folder / "THUMBNAIL-520.png"); // the name must match exactly
    writeText(folder / ".thumbnail-520.png", "png");          // hidden
    keep(1400);
    EXPECT_EQ(answer(100), keptPath(1400));
}

TEST_F(QuickLookDraftTest, AnyFileNameMatchesWhenNoneIsAsked) {
    keep(520);
    const fs::path folder = keptPath(520).parent_path();
    fs::rename(keptPath(520), folder / "b.PNG");
    writeText(folder / "a.txt", "text");
    const QuickLookPackage opened = QuickLookPackage::open(package);
    EXPECT_EQ(opened.render(thumbnailKey(draft, 520), "png", std::nullopt), folder / "b.PNG");
}

TEST_F(QuickLookDraftTest, AnEditMakesEveryKeptThumbnailStale) {
    for (std::int64_t size : {320, 520, 1400}) keep(size);
    Draft edited = draft;
    edited.media.mutableItems()[0].placement.scale = 0.5;
    FileDraftStore::writeDraft(edited, package);
    EXPECT_THROW(answer(320), QuickLookFailure);
}

TEST_F(QuickLookDraftTest, RendersLinkedFromOutsideAreRefused) {
    const fs::path outside = folder / "elsewhere";
    fs::create_directories(outside / thumbnailKey(draft, 320).rawValue);
    writeText(outside / thumbnailKey(draft, 320).rawValue / RenderKey::thumbnailFileName(320), "png");
    fs::create_directory_symlink(outside, package / "renders");
    EXPECT_THROW(answer(320), QuickLookFailure);
}

TEST_F(QuickLookDraftTest, ThePackageIsNeverWrittenInto) {
    keep(520);
    const auto before = tree(package);
    (void)answer(500);
    (void)answer(2000); // a miss that falls back to the kept size
    (void)QuickLookDraft::draft(package);
    EXPECT_EQ(tree(package), before);
}

TEST_F(QuickLookDraftTest, UnreadablePackages) {
    struct Case {
        const char* what;
        std::function<void(const fs::path&)> spoil;
    };
    const Case cases[] = {
        {"no draft.json", [](const fs::path& p) { fs::remove(p / "draft.json"); }},
        {"not JSON", [](const fs::path& p) { writeText(p / "draft.json", "{"); }},
        {"newer schema", [](const fs::path& p) { writeText(p / "draft.json", R"({"schema": 9})"); }},
        {"media through ..",
         [](const fs::path& p) { FileDraftStore::writeDraft(screenshotDraft("../outside.png"), p); }},
        {"media absolute",
         [](const fs::path& p) { FileDraftStore::writeDraft(screenshotDraft("/etc/hosts"), p); }},
        {"media linked outside",
         [](const fs::path& p) { fs::create_symlink("/etc/hosts", p / "media/shot.png"); }},
        {"draft.json linked outside",
         [](const fs::path& p) {
             fs::rename(p / "draft.json", p.parent_path() / "real.json");
             fs::create_symlink(p.parent_path() / "real.json", p / "draft.json");
         }},
        {"look table through ..",
         [](const fs::path& p) {
             Draft spoiled = screenshotDraft("media/shot.png");
             spoiled.style.look = lutStack("../../outside");
             FileDraftStore::writeDraft(spoiled, p);
         }},
        {"a file, not a folder", [](const fs::path& p) {
             fs::remove_all(p);
             writeText(p, "x");
         }},
    };
    for (const Case& c : cases) {
        SetUp();
        c.spoil(package);
        EXPECT_THROW(QuickLookPackage::open(package), QuickLookFailure) << c.what;
        EXPECT_FALSE(QuickLookDraft::draft(package).has_value()) << c.what;
        TearDown();
    }
}

TEST_F(QuickLookDraftTest, PathsListMediaThenObjectsThenFontsThenLookTables) {
    Draft rich = draft;
    rich.fonts = CowList<DraftFont>{DraftFont{PackagePath{"fonts/b.otf"}, "B", "B", "Regular", "b", "b.otf"},
                                    DraftFont{PackagePath{"fonts/a.otf"}, "A", "A", "Regular", "a", "a.otf"}};
    ObjectNode sticker;
    sticker.name = "s";
    sticker.content = ObjectContent::makeAnnotation(
        AnnotationDefaults::standard().sticker(CGRect{{0, 0}, {10, 10}}, PackagePath{"assets/X/s.png"}));
    sticker.effects = lutStack("bb");
    ObjectNode group;
    group.name = "g";
    group.content = ObjectContent::makeGroup({sticker});
    rich.objects = CowList<ObjectNode>{sticker, group};
    rich.style.look = lutStack("cc");
    Section looked = rich.sections[0];
    looked.look = lutStack("aa");
    rich.sections = CowList<Section>{looked};
    // Each table once, sorted, after the fonts, from the look, the sections and nested objects.
    const std::vector<PackagePath> expected = {PackagePath{"media/shot.png"}, PackagePath{"assets/X/s.png"},
                                               PackagePath{"fonts/a.otf"},    PackagePath{"fonts/b.otf"},
                                               PackagePath{"luts/aa.cube"},   PackagePath{"luts/bb.cube"},
                                               PackagePath{"luts/cc.cube"}};
    EXPECT_EQ(QuickLookPackage::paths(rich), expected);
}

TEST_F(QuickLookDraftTest, PreviewPrefersAKeptRenderThenTheCaptureItself) {
    const auto previewFile = [this] {
        const auto preview = QuickLookDraft::preview(package, QuickLookDraft::previewMaxPixel);
        return preview.as<QuickLookDraft::Preview::file>().value;
    };
    EXPECT_THROW(previewFile(), QuickLookFailure); // the capture's file doesn't exist yet
    writeText(package / "media/shot.png", "png");
    EXPECT_EQ(previewFile(), package / "media/shot.png");
    const RenderKey key = renderKey(draft, BuiltInFormats::defaultRequest(OutputKind::screenshot));
    fs::create_directories(package / "renders" / key.rawValue);
    writeText(package / "renders" / key.rawValue / "export.png", "png");
    EXPECT_EQ(previewFile(), package / "renders" / key.rawValue / "export.png");
}

TEST(QuickLookPngData, WritesAPNGOfThePicture) {
    const ImageBox image{std::make_shared<const CGImage>(2, 1, 8, std::vector<std::uint8_t>{255, 0, 0, 255, 0, 0, 255, 255})};
    const CGImage back = PNGCodec::decode(QuickLookDraft::pngData(image));
    EXPECT_EQ(back.width(), 2);
    EXPECT_EQ(back.pixels()[6], 255);
    EXPECT_THROW(QuickLookDraft::pngData(ImageBox{}), QuickLookFailure);
}

} // namespace
} // namespace ovik
