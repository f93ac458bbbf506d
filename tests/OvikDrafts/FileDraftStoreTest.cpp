#include <gtest/gtest.h>

#include <cmath>

#include "OvikDrafts/DraftStoreError.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikL10n/L10n.h"
#include "OvikModel/draft/DraftSamples.h"
#include "OvikPlatform/files/TemporaryFolder.h"

namespace ovik {
namespace {

class FileDraftStoreTest : public testing::TemporaryFolder {
protected:
    void SetUp() override {
        TemporaryFolder::SetUp();
        package = folder / "My Draft.ovikwork";
        std::filesystem::create_directory(package);
    }
    DraftStoreError readFailure(const std::filesystem::path& at) {
        const auto before = tree(folder);
        try {
            (void)FileDraftStore::readDraft(at);
            ADD_FAILURE() << "read " << at;
        } catch (const DraftStoreFailure& failure) {
            EXPECT_EQ(failure.what(), failure.error().localizedDescription());
            EXPECT_EQ(tree(folder), before);
            return failure.error();
        }
        return {};
    }
    // The text of an unreadable package, which always begins with the package's name.
    std::string unreadableText(const std::filesystem::path& at, const std::string& name = "My Draft") {
        const DraftStoreError error = readFailure(at);
        EXPECT_TRUE(error.is<DraftStoreError::unreadable>()) << at << " " << error.caseName();
        const std::string text = error.is<DraftStoreError::unreadable>() ? error.as<DraftStoreError::unreadable>().value : "";
        EXPECT_EQ(text.rfind(name + ": ", 0), 0u) << text;
        EXPECT_GT(text.size(), name.size() + 2) << text;
        return text;
    }
    std::filesystem::path package;
};

TEST_F(FileDraftStoreTest, ADraftReadAndWrittenBackKeepsItsBytes) {
    const std::string stored = testing::richDraftText();
    writeText(package / "draft.json", stored);
    const std::filesystem::path copy = folder / "Copy.ovikwork";
    std::filesystem::create_directory(copy);
    FileDraftStore::writeDraft(FileDraftStore::readDraft(package), copy);
    EXPECT_EQ(readText(copy / "draft.json"), stored);
    EXPECT_EQ(tree(copy), std::set<std::string>{"draft.json"});
}

TEST_F(FileDraftStoreTest, AnotherSchemaIsRefusedByNumberBeforeAnythingElse) {
    const std::pair<const char*, std::int64_t> cases[] = {
        {R"({"schema": 9})", 9}, {R"({"schema": 7, "id": "6F1C2B9A-0D4E-4B7A-9C3E-2A1B0C9D8E7F"})", 7},
        {R"({"schema": 0, "sections": "not even a list"})", 0}};
    for (const auto& [json, schema] : cases) {
        writeText(package / "draft.json", json);
        const DraftStoreError error = readFailure(package);
        ASSERT_TRUE(error.is<DraftStoreError::unsupportedSchema>()) << json << " " << error.caseName();
        EXPECT_EQ(error.as<DraftStoreError::unsupportedSchema>().value, schema);
    }
}

TEST_F(FileDraftStoreTest, AnythingElseThatFailsIsUnreadableUnderThePackagesName) {
    const std::pair<std::string, const char*> cases[] = {
        {"[]", ""}, {"{}", ""}, {R"({"schema": "8"})", ""}, {R"({"schema": 8.0})", ""}, {R"({"schema": 8,)", ""},
        {"", ""}, {"\xff\xfe", ""},
        {testing::draftJSON(testing::canvasMedia, ""), "A draft needs at least one media and one section"}};
    for (const auto& [json, reason] : cases) {
        writeText(package / "draft.json", json);
        EXPECT_NE(unreadableText(package).find(reason), std::string::npos) << json;
    }
    // As large as the cap allows and one byte more, but sparse: refused before it is read.
    std::filesystem::resize_file(package / "draft.json", FileDraftStore::maximumDraftBytes + 1);
    EXPECT_EQ(unreadableText(package), "My Draft: " + L10n::format("drafts.files.tooLarge", {"draft.json"}));
    std::filesystem::create_directories(folder / "Folder.ovikwork/draft.json");
    (void)unreadableText(folder / "Missing.ovikwork/", "Missing");
    (void)unreadableText(folder / "Folder.ovikwork", "Folder");
}

TEST_F(FileDraftStoreTest, AFailedWriteLeavesTheOldFileAndNoTemporary) {
    writeText(package / "draft.json", "old");
    Draft unwritable = decodeJSON<Draft>(std::string_view(testing::draftJSON()));
    unwritable.layout.gap = std::numeric_limits<double>::infinity();
    const std::pair<Draft, std::filesystem::path> cases[] = {{unwritable, package}, {Draft{}, folder / "Missing.ovikwork"}};
    for (const auto& [draft, at] : cases) {
        try {
            FileDraftStore::writeDraft(draft, at);
            ADD_FAILURE() << at;
        } catch (const DraftStoreFailure& failure) {
            EXPECT_TRUE(failure.error().is<DraftStoreError::writeFailed>()) << at;
            EXPECT_EQ(storeError(failure), failure.error()); // a store failure passes unchanged
        }
        EXPECT_EQ(tree(folder), (std::set<std::string>{"My Draft.ovikwork", "My Draft.ovikwork/draft.json"}));
    }
}

} // namespace
} // namespace ovik
