#include <gtest/gtest.h>

#include <unistd.h>

#include "OvikDrafts/DraftPaths.h"
#include "OvikDrafts/DraftStoreError.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikDrafts/PackageCases.h"
#include "OvikL10n/L10n.h"
#include "OvikModel/draft/DraftSamples.h"
#include "OvikPlatform/files/PosixError.h"
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

// The stored draft's media are a movie, a recording with its events, a picture, a canvas and a
// screenshot; its fonts are written "old" before "dd44".
TEST(DraftPaths, MediaThenPicturesThenFontsThenLookTables) {
    Draft draft = decodeJSON<Draft>(std::string_view(testing::richDraftText()));
    draft.style.look = decodeJSON<EffectStack>(std::string_view(
        R"({"entries":[{"primitive":"lut","params":[{"name":"sha256","value":{"text":"cc"}}]}]})"));
    draft.style.background = Background{{}, Background::image{PackagePath{"assets/A/back.png"}}};
    std::vector<std::string> texts;
    for (const PackagePath& path : draftPaths(draft)) texts.push_back(path.relative);
    EXPECT_EQ(texts, (std::vector<std::string>{"media/segment-001.mov", "media/segment-001.mov", "media/segment-002.mov",
                                               "events/events.json", "media/aa11.png", "media/screenshot.png", "assets/A/back.png",
                                               "fonts/dd44.otf", "fonts/old.otf", "luts/cc.cube"}));
}

// Read by the system, the name would end at the NUL, "media/a.png": a check of the whole text
// and an open of its head would judge two different files.
const std::string withNul("media/a.png\0/../../../a.png", 27);

TEST_F(PackageContainmentTest, APathHoldingANulIsRefusedWhereverItIsUsed) {
    const L10n::LanguageOverride english("en");
    const std::filesystem::path package = testing::makePackage(folder, {"a NUL", "media/a.png\\u0000/../../../a.png"});
    try {
        FileDraftStore::open(package);
        ADD_FAILURE() << "opened";
    } catch (const PackagePathError& error) {
        EXPECT_EQ(error.reason(), PackagePathError::Reason::notAName);
        EXPECT_EQ(error.path().relative, withNul);
        EXPECT_STREQ(error.what(), "“media/a.png\\0/../../../a.png” can't name a file: it holds a NUL character.");
    }
    const DraftDocument document{{}, package};
    EXPECT_THROW(document.url(PackagePath{withNul}), PosixError);
}

} // namespace
} // namespace ovik
