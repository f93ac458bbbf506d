#include <gtest/gtest.h>

#include "OvikDrafts/FileDraftStore.h"
#include "OvikDrafts/PackageCases.h"
#include "OvikModel/draft/DraftSamples.h"
#include "OvikModel/keys/BuiltInFormats.h"
#include "OvikModel/keys/DraftRenderKey.h"
#include "OvikPlatform/files/TemporaryFolder.h"
#include "OvikQuickLook/QuickLookDraft.h"
#include "OvikQuickLook/QuickLookError.h"
#include "OvikQuickLook/QuickLookPackage.h"

namespace ovik {
namespace {

namespace fs = std::filesystem;

// A package of one screenshot whose file is missing, so that composing always fails.
class QuickLookDraftTest : public testing::TemporaryFolder {
protected:
    void SetUp() override {
        TemporaryFolder::SetUp();
        package = folder / "a.ovikwork";
        fs::create_directories(package / "media");
        draftFile(R"({"screenshot":{"colorSpaceName":"sRGB","image":"media/shot.png","pixelSize":{"height":3,"width":4},"scale":1}})");
        draft = FileDraftStore::readDraft(package);
    }
    void draftFile(const std::string& source) const {
        writeText(package / "draft.json",
                  testing::draftJSON(R"({"id":"00000000-0000-0000-0000-00000000000A","source":)" + source + "}"));
    }
    fs::path keptPath(std::int64_t size) const {
        return package / "renders" / thumbnailKey(draft, size).rawValue / RenderKey::thumbnailFileName(size);
    }
    void keep(std::int64_t size, const std::string& bytes = "png") const {
        fs::create_directories(keptPath(size).parent_path());
        writeText(keptPath(size), bytes);
    }
    fs::path answer(std::int64_t maxPixel) const {
        return QuickLookDraft::thumbnail(package, maxPixel).as<QuickLookDraft::Thumbnail::file>().value;
    }
    fs::path package;
    Draft draft;
};

TEST_F(QuickLookDraftTest, TheLadderStartsAtTheSmallestKeptSizeNotBelowTheRequestAndWritesNothing) {
    for (std::int64_t size : {320, 520, 1400}) keep(size);
    const auto before = tree(folder);
    // Above 1400 no rung is tried; composing fails, and the largest kept size answers.
    const std::pair<std::int64_t, std::int64_t> cases[] = {{1, 320},    {320, 320},   {321, 520},   {500, 520},
                                                          {521, 1400}, {1400, 1400}, {1401, 1400}, {5000, 1400}};
    for (const auto& [maxPixel, size] : cases) EXPECT_EQ(answer(maxPixel), keptPath(size)) << maxPixel;
    EXPECT_EQ(tree(folder), before);
    fs::remove(keptPath(1400));
    fs::remove(keptPath(520));
    EXPECT_EQ(answer(1000), keptPath(320)); // any kept size will do when composing fails
    fs::remove(keptPath(320));
    EXPECT_THROW(answer(1000), QuickLookFailure);
}

TEST_F(QuickLookDraftTest, EmptyHiddenMisnamedAndOutsideRendersCountAsAbsent) {
    keep(320, "");
    keep(520);
    const fs::path folder520 = keptPath(520).parent_path();
    fs::rename(keptPath(520), folder520 / "THUMBNAIL-520.png");
    writeText(folder520 / ".thumbnail-520.png", "png");
    keep(1400);
    EXPECT_EQ(answer(100), keptPath(1400));
    EXPECT_EQ(QuickLookPackage::open(package).render(thumbnailKey(draft, 520), "png", std::nullopt),
              folder520 / "THUMBNAIL-520.png"); // with no name asked, the extension in any case
    fs::rename(keptPath(1400).parent_path(), folder / "elsewhere");
    fs::create_directory_symlink(folder / "elsewhere", keptPath(1400).parent_path());
    EXPECT_THROW(answer(100), QuickLookFailure);
}

TEST_F(QuickLookDraftTest, APreviewIsAKeptRenderThenTheCaptureThenAPictureInPoints) {
    const auto preview = [this] { return QuickLookDraft::preview(package, QuickLookDraft::previewMaxPixel); };
    EXPECT_THROW(preview(), QuickLookFailure); // the capture's file doesn't exist, and composing fails
    writeText(package / "media/shot.png", "png");
    EXPECT_EQ(preview().as<QuickLookDraft::Preview::file>().value, package / "media/shot.png");
    const RenderKey key = renderKey(draft, BuiltInFormats::defaultRequest(OutputKind::screenshot));
    fs::create_directories(package / "renders" / key.rawValue);
    writeText(package / "renders" / key.rawValue / "export.png", "png");
    EXPECT_EQ(preview().as<QuickLookDraft::Preview::file>().value, package / "renders" / key.rawValue / "export.png");
    for (const auto& [scale, divisor] : {std::pair{2.0, 2.0}, {0.0, 1.0}}) {
        draftFile(R"({"canvas":{"pixelSize":{"height":9,"width":16},"scale":)" + std::to_string(scale) + "}}");
        const auto picture = preview().as<QuickLookDraft::Preview::picture>();
        EXPECT_EQ(picture.points.width, double(picture.image.pixelSize().width) / divisor) << scale;
        EXPECT_EQ(picture.points.height, double(picture.image.pixelSize().height) / divisor) << scale;
    }
}

using QuickLookPackageTest = testing::TemporaryFolder;

TEST_F(QuickLookPackageTest, OpensExactlyThePackagesTheStoreOpensAndWritesNothing) {
    for (const testing::PackageCase& c : testing::packageCases) {
        TearDown();
        SetUp();
        const fs::path package = testing::makePackage(folder, c);
        const auto before = tree(folder);
        EXPECT_EQ(QuickLookDraft::draft(package).has_value(), c.refusal == nullptr) << c.name;
        EXPECT_EQ(tree(folder), before) << c.name;
    }
}

} // namespace
} // namespace ovik
