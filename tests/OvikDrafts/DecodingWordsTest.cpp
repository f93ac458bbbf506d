#include <gtest/gtest.h>

#include "OvikDrafts/DraftStoreError.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikL10n/L10n.h"
#include "OvikPlatform/files/TemporaryFolder.h"

namespace ovik {
namespace {

using DecodingWords = testing::TemporaryFolder;

// A damaged draft file is told in words for a person: never the parser's reason, nor the
// digits of a number that doesn't fit.
TEST_F(DecodingWords, DamageIsToldWithoutTheParsersWordsOrDigits) {
    const L10n::LanguageOverride english("en");
    const struct {
        std::string text;
        std::string message;
    } cases[] = {
        {R"({"schema":8,)", "D: The file isn't valid JSON."},
        {"\xff\xfe", "D: The file isn't valid JSON."},
        {R"({"schema":1e300})", "D: The number at “schema” is too large for it."},
    };
    const std::filesystem::path package = folder / "D.ovikwork";
    std::filesystem::create_directories(package);
    for (const auto& c : cases) {
        writeText(package / "draft.json", c.text);
        try {
            FileDraftStore::readDraft(package);
            ADD_FAILURE() << c.text;
        } catch (const DraftStoreFailure& failure) {
            EXPECT_EQ(failure.what(), c.message);
        }
    }
}

} // namespace
} // namespace ovik
