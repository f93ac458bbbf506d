#include <gtest/gtest.h>

#include <cerrno>

#include "OvikDrafts/DraftPackage.h"
#include "OvikDrafts/DraftStoreError.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikDrafts/PackageContainment.h"
#include "OvikL10n/L10n.h"
#include "OvikModel/draft/DraftSamples.h"
#include "OvikPlatform/files/PosixError.h"
#include "OvikPlatform/files/TemporaryFolder.h"

namespace ovik {
namespace {

namespace fs = std::filesystem;

class FileDraftStoreTest : public testing::TemporaryFolder {
protected:
    void SetUp() override {
        TemporaryFolder::SetUp();
        package = folder / "My Draft.ovikwork";
        fs::create_directory(package);
    }
    // What reading `at` is refused with: "schema N", or the unreadable text. Nothing is written.
    std::string refusal(const fs::path& at) {
        const auto before = tree(folder);
        try {
            (void)FileDraftStore::readDraft(at);
        } catch (const DraftStoreFailure& failure) {
            EXPECT_EQ(tree(folder), before);
            if (failure.error().is<DraftStoreError::unsupportedSchema>())
                return "schema " + std::to_string(failure.error().as<DraftStoreError::unsupportedSchema>().value);
            return failure.error().as<DraftStoreError::unreadable>().value;
        }
        return "read";
    }
    fs::path package;
};

TEST_F(FileDraftStoreTest, ADraftReadAndWrittenBackKeepsItsBytesAndAFailedWriteKeepsThem) {
    writeText(package / "draft.json", testing::richDraftText());
    fs::create_directory(folder / "Copy.ovikwork");
    Draft draft = FileDraftStore::readDraft(package);
    FileDraftStore::writeDraft(draft, folder / "Copy.ovikwork");
    draft.layout.gap = std::numeric_limits<double>::infinity();
    try {
        FileDraftStore::writeDraft(draft, folder / "Copy.ovikwork");
        ADD_FAILURE() << "a number that is not finite was written";
    } catch (const DraftStoreFailure& failure) {
        EXPECT_TRUE(failure.error().is<DraftStoreError::writeFailed>());
    }
    EXPECT_EQ(readText(folder / "Copy.ovikwork/draft.json"), testing::richDraftText());
    EXPECT_EQ(tree(folder / "Copy.ovikwork"), std::set<std::string>{"draft.json"});
}

// A damaged draft file is told in words for a person under the package's name: never the
// parser's reason, nor the digits of a number that doesn't fit.
TEST_F(FileDraftStoreTest, AnotherSchemaIsRefusedByNumberAnythingElseIsUnreadableUnderThePackagesName) {
    const L10n::LanguageOverride english("en");
    const std::pair<std::string, std::string> cases[] = {
        {R"({"schema": 9})", "schema 9"}, {R"({"schema": 0, "sections": "not even a list"})", "schema 0"},
        {R"({"schema":8,)", "My Draft: The file isn't valid JSON."}, {"\xff\xfe", "My Draft: The file isn't valid JSON."},
        {R"({"schema":1e300})", "My Draft: The number at “schema” is too large for it."},
        {testing::draftJSON(testing::canvasMedia, ""),
         "My Draft: The data at “the top level” is damaged: A draft needs at least one media and one section"}};
    for (const auto& [json, words] : cases) {
        writeText(package / "draft.json", json);
        const std::string text = refusal(package);
        EXPECT_EQ(text.rfind(words, 0), 0u) << json << ": " << text;
    }
    for (const char* json : {"[]", R"({"schema": "8"})"}) {
        writeText(package / "draft.json", json);
        const std::string text = refusal(package);
        EXPECT_TRUE(text.rfind("My Draft: ", 0) == 0 && text.size() > 10) << json << ": " << text; // then a reason
    }
    EXPECT_EQ(refusal(folder / "Missing.ovikwork/").rfind("Missing: ", 0), 0u);
}

// draft.json is read only as a plain file inside its package and under the size cap: a link to
// an endless device, or to a file past the cap, is refused before anything is read.
TEST_F(FileDraftStoreTest, ALinkToAnEndlessDeviceOrPastTheCapIsRefusedUnread) {
    fs::create_symlink("/dev/zero", folder / "zero");
    for (const char* target : {"/dev/zero", "../zero"}) { // the device, and a link beside the package to it
        fs::remove(package / "draft.json");
        fs::create_symlink(target, package / "draft.json");
        try {
            (void)FileDraftStore::open(package);
            ADD_FAILURE() << target;
        } catch (const PackagePathError& error) {
            EXPECT_EQ(error.reason(), PackagePathError::Reason::outside) << target;
            EXPECT_EQ(error.path().relative, "draft.json") << target;
        }
    }
    // Sparse: as large as the cap allows and a byte more, at no cost of disk.
    fs::remove(package / "draft.json");
    writeText(package / "big", "");
    fs::resize_file(package / "big", FileDraftStore::maximumDraftBytes + 1);
    fs::create_symlink("big", package / "draft.json");
    EXPECT_EQ(refusal(package), "My Draft: " + L10n::format("drafts.files.tooLarge", {"big"}));
}

TEST_F(FileDraftStoreTest, OutputFoldersAreMadeWithTheirParentsButNeverAPackage) {
    DraftPackage::createOutputDirectory(folder / "My Draft.ovikwork/renders/a/b/");
    writeText(folder / "file", "x");
    const auto made = tree(folder);
    EXPECT_TRUE(made.contains("My Draft.ovikwork/renders/a/b"));
    const std::pair<const char*, int> refused[] = {
        {"a/b.ovikwork/c", ENOENT}, {"x/Missing.OVIKWORK/renders/k", ENOENT}, {"New.ovikwork/", ENOENT}, {"file/in", EEXIST}};
    for (const auto& [path, code] : refused) {
        try {
            DraftPackage::createOutputDirectory(folder / path);
            ADD_FAILURE() << path;
        } catch (const PosixError& error) {
            EXPECT_EQ(error.code(), code) << path;
        }
        EXPECT_EQ(tree(folder), made) << path;
    }
}

} // namespace
} // namespace ovik
