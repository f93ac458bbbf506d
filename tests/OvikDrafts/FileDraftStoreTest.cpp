#include <gtest/gtest.h>

#include <cmath>

#include "OvikDrafts/DraftStoreError.h"
#include "OvikDrafts/FileDraftStore.h"
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
        try {
            (void)FileDraftStore::readDraft(at);
        } catch (const DraftStoreFailure& failure) {
            EXPECT_EQ(failure.what(), failure.error().localizedDescription());
            return failure.error();
        }
        ADD_FAILURE() << "read " << at;
        return {};
    }
    std::filesystem::path package;
};

TEST_F(FileDraftStoreTest, ADraftReadAndWrittenBackKeepsItsBytes) {
    const std::string stored = testing::richDraftText();
    writeText(package / "draft.json", stored);
    const Draft draft = FileDraftStore::readDraft(package);

    const std::filesystem::path copy = folder / "Copy.ovikwork";
    std::filesystem::create_directory(copy);
    FileDraftStore::writeDraft(draft, copy);
    EXPECT_EQ(readText(copy / "draft.json"), stored);
    EXPECT_EQ(tree(copy), std::set<std::string>{"draft.json"});
}

TEST_F(FileDraftStoreTest, AnotherSchemaIsRefusedByNumberBeforeAnythingElse) {
    const std::pair<const char*, std::int64_t> cases[] = {
        {R"({"schema": 9})", 9},
        {R"({"schema": 7, "id": "6F1C2B9A-0D4E-4B7A-9C3E-2A1B0C9D8E7F", "name": "old"})", 7},
        {R"({"schema": 0, "sections": "not even a list"})", 0},
    };
    for (const auto& [json, schema] : cases) {
        writeText(package / "draft.json", json);
        const DraftStoreError error = readFailure(package);
        ASSERT_TRUE(error.is<DraftStoreError::unsupportedSchema>()) << json << " " << error.caseName();
        EXPECT_EQ(error.as<DraftStoreError::unsupportedSchema>().value, schema);
    }
}

TEST_F(FileDraftStoreTest, AnythingElseThatFailsIsUnreadableUnderThePackagesName) {
    const char* cases[] = {"[]", "{}", R"({"schema": "8"})", R"({"schema": 8.0})", R"({"schema": 8,)", "", "\xff\xfe"};
    for (const char* json : cases) {
        writeText(package / "draft.json", json);
        const auto before = tree(folder);
        const DraftStoreError error = readFailure(package);
        ASSERT_TRUE(error.is<DraftStoreError::unreadable>()) << json << " " << error.caseName();
        const std::string& text = error.as<DraftStoreError::unreadable>().value;
        EXPECT_EQ(text.rfind("My Draft: ", 0), 0u) << text;
        EXPECT_GT(text.size(), std::string("My Draft: ").size());
        EXPECT_EQ(tree(folder), before);
    }
}

TEST_F(FileDraftStoreTest, ABrokenStructureIsUnreadableWithItsReason) {
    writeText(package / "draft.json", testing::draftJSON(testing::canvasMedia, ""));
    const DraftStoreError error = readFailure(package);
    ASSERT_TRUE(error.is<DraftStoreError::unreadable>()) << error.caseName();
    EXPECT_NE(error.as<DraftStoreError::unreadable>().value.find("A draft needs at least one media and one section"),
              std::string::npos);
}

TEST_F(FileDraftStoreTest, AMissingOrUnreadableFileIsUnreadable) {
    const std::filesystem::path folderAsFile = folder / "Folder.ovikwork";
    std::filesystem::create_directories(folderAsFile / "draft.json");
    struct Case {
        std::filesystem::path at;
        const char* name;
    };
    const Case cases[] = {
        {package, "My Draft"},
        {folder / "Missing.ovikwork/", "Missing"},
        {folderAsFile, "Folder"},
    };
    for (const Case& c : cases) {
        const DraftStoreError error = readFailure(c.at);
        ASSERT_TRUE(error.is<DraftStoreError::unreadable>()) << c.at;
        EXPECT_EQ(error.as<DraftStoreError::unreadable>().value.rfind(std::string(c.name) + ": ", 0), 0u)
            << error.as<DraftStoreError::unreadable>().value;
    }
}

TEST_F(FileDraftStoreTest, AFailedWriteLeavesTheOldFileAndNoTemporary) {
    writeText(package / "draft.json", "old");
    Draft unwritable = decodeJSON<Draft>(std::string_view(testing::draftJSON()));
    unwritable.layout.gap = std::numeric_limits<double>::infinity();
    struct Case {
        const char* name;
        Draft draft;
        std::filesystem::path package;
    };
    const Case cases[] = {
        {"non-finite number", unwritable, package},
        {"missing package", Draft{}, folder / "Missing.ovikwork"},
    };
    for (const Case& c : cases) {
        try {
            FileDraftStore::writeDraft(c.draft, c.package);
            ADD_FAILURE() << c.name;
        } catch (const DraftStoreFailure& failure) {
            EXPECT_TRUE(failure.error().is<DraftStoreError::writeFailed>()) << c.name;
        }
        EXPECT_EQ(readText(package / "draft.json"), "old");
        EXPECT_EQ(tree(folder), (std::set<std::string>{"My Draft.ovikwork", "My Draft.ovikwork/draft.json"}));
    }
}

} // namespace
} // namespace ovik
