#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "OvikL10n/L10nPlaceholder.h"
#include "OvikL10n/L10nSource.h"
#include "OvikPlatform/json/JSONDocument.h"

namespace ovik {
namespace {

std::string readData(const std::string& language) {
    std::ifstream file(std::string(OVIK_SOURCE_DIR) + "/data/l10n/" + language + ".json", std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

const L10nSource::Table& compiledTable(const std::string& language) {
    return language == "zh-Hans" ? L10nSource::values() : *L10nSource::translation(language);
}

// The compiled table is the data file: every member a text, no key twice, nothing stale.
TEST(L10nTable, TheCompiledTablesAreTheDataFiles) {
    for (const std::string language : {"zh-Hans", "en"}) {
        const std::string bytes = readData(language);
        ASSERT_FALSE(bytes.empty()) << language;
        const JSONDocument document = JSONDocument::parse(bytes);
        const auto& table = compiledTable(language);
        std::set<std::string_view> keys;
        for (const auto& [key, value] : document.root().members()) {
            EXPECT_TRUE(keys.insert(key).second) << language << ": " << key << " written twice";
            ASSERT_EQ(value.kind(), JSONNode::Kind::string) << language << ": " << key;
            const auto found = table.find(key);
            ASSERT_NE(found, table.end()) << language << ": " << key;
            EXPECT_EQ(found->second, value.string()) << language << ": " << key;
        }
        EXPECT_EQ(table.size(), keys.size()) << language;
    }
}

/// The placeholders of `text` as written, sorted. Fails the test on a "%" that starts none, on numbered and
/// unnumbered placeholders mixed, and on a skipped position.
std::vector<std::string> placeholders(const std::string& key, const std::string& text) {
    std::vector<std::string> found;
    std::set<std::size_t> positions;
    std::size_t unnumbered = 0;
    for (std::size_t at = text.find('%'); at != std::string::npos; at = text.find('%', at)) {
        const auto placeholder = L10nPlaceholder::parse(std::string_view(text).substr(at));
        if (!placeholder) {
            ADD_FAILURE() << key << ": a stray \"%\" in \"" << text << "\"";
            return {};
        }
        found.push_back(text.substr(at, placeholder->length));
        at += placeholder->length;
        if (placeholder->takesArgument() && placeholder->position) positions.insert(*placeholder->position);
        else if (placeholder->takesArgument()) ++unnumbered;
    }
    EXPECT_TRUE(positions.empty() || unnumbered == 0) << key << ": mixes numbered and unnumbered placeholders";
    EXPECT_TRUE(positions.empty() || *positions.rbegin() == positions.size()) << key << ": a position is skipped";
    std::sort(found.begin(), found.end());
    return found;
}

TEST(L10nTable, TranslationsHaveTheKeysAndPlaceholdersOfTheBase) {
    const auto& base = L10nSource::values();
    const auto& english = *L10nSource::translation("en");
    for (const auto& [key, text] : english) EXPECT_TRUE(base.contains(key)) << key << " is not in the base table";
    for (const auto& [key, text] : base) {
        const auto found = english.find(key);
        if (found == english.end()) {
            ADD_FAILURE() << key << " has no English text";
            continue;
        }
        EXPECT_EQ(placeholders(key, text), placeholders(key, found->second)) << key;
    }
}

} // namespace
} // namespace ovik
