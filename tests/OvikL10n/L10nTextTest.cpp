#include <gtest/gtest.h>

#include <barrier>
#include <cstdint>
#include <limits>
#include <set>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include "OvikL10n/L10n.h"
#include "OvikL10n/L10nPlaceholder.h"
#include "OvikL10n/L10nSource.h"
#include "OvikL10n/LanguageChoice.h"
#include "OvikPlatform/files/ReadFile.h"
#include "OvikPlatform/json/JSONDocument.h"

namespace ovik {
namespace {

constexpr std::int64_t i(std::int64_t value) { return value; }

TEST(L10nFormat, PatternsFillAsWritten) {
    const double infinity = std::numeric_limits<double>::infinity(), nan = std::numeric_limits<double>::quiet_NaN();
    const std::tuple<const char*, std::vector<L10nArgument>, const char*> cases[] = {
        // Positions reorder; placeholders without one take the arguments in turn from the first.
        {"%2$@ before %1$@, %1$@|%@", {"a", "b"}, "b before a, a|a"},
        {"%2$lld/%1$ld/%1$d|%1$lld%%", {i(7), std::numeric_limits<std::int64_t>::min()}, "-9223372036854775808/7/7|7%"},
        // Numbers follow printf, halves to even.
        {"%.0f|%.0f|%.1f|%g|%.0g|%F|%.2f", {2.5, 3.5, -0.0, 1e-5, 15.0, -infinity, 1e20},
         "2|4|-0.0|1e-05|2e+01|-INF|100000000000000000000.00"},
        {"[%05d|%+d|%.3d|%.0d|%05.3d|%06f]", {i(-42), i(5), i(7), i(0), i(7), -infinity}, "[-0042|+5|007||  007|  -inf]"},
        // Widths and cuts count characters, not bytes.
        {"[%5@|%-4@|%.1@]", {"中文", "é", "中文"}, "[   中文|é   |中]"},
        // Mismatched arguments are converted.
        {"%@|%@|%lld|%lld|%d|%d|%d", {i(42), 2.0, 2.9, -2.9, 1e300, -1e300, nan},
         "42|2|2|-2|9223372036854775807|-9223372036854775808|0"},
        {"%03d|%d|%.2f|%.1f|%f", {"-7", "many", i(3), "2.75", "1.5x"}, "-07|many|3.00|2.8|1.5x"},
        // Placeholders without an argument stay as written, and so do malformed ones.
        {"%1$@ %2$@|%@ %@|50%|%1$|%0$@|%1001$@|%1$@%", {"a"}, "a %2$@|a %@|50%|%1$|%0$@|%1001$@|a%"},
        {"%y|%1$y|%#x|%*d|%5%|%99999999999999999999999d|%1001d|%.1001f", {i(1)},
         "%y|%1$y|%#x|%*d|%5%|%99999999999999999999999d|%1001d|%.1001f"},
    };
    for (const auto& [pattern, arguments, expected] : cases)
        EXPECT_EQ(L10n::formatTemplate(pattern, arguments), expected) << pattern;
    // Positions, widths and precisions go up to 1000 and no further.
    std::vector<L10nArgument> many(1000, "x");
    many.back() = "last";
    EXPECT_EQ(L10n::formatTemplate("%1000$@", many), "last");
    EXPECT_EQ(L10n::formatTemplate("%1000d|%.1000f", {i(1), 1.0}),
              std::string(999, ' ') + "1|1." + std::string(1000, '0'));
}

TEST(L10nText, EachLanguageReadsItsTableThenTheBaseThenTheKey) {
    const std::pair<const char*, const char*> expected[] = {
        // "ko" has no table of its own: the base language speaks.
        {"zh-Hans", "没有结果文件：a"}, {"en", "No result file: a"}, {"ko", "没有结果文件：a"},
    };
    for (const auto& [language, text] : expected) {
        L10n::LanguageOverride override(language);
        EXPECT_EQ(L10n::format("results.file.missing", {"a"}), text) << language;
        EXPECT_EQ(L10n::format("no.such.key %1$@", {"a"}), "no.such.key a") << language;
    }
    const L10nSource::Table base = {{"both", "基"}, {"baseOnly", "只有基"}}, translation = {{"both", "t"}};
    EXPECT_EQ(L10nSource::lookup("both", &translation, base), "t");
    EXPECT_EQ(L10nSource::lookup("baseOnly", &translation, base), "只有基");
}

// Titles, lists and clauses follow the language in force, which nests and is each thread's own.
TEST(L10nText, EachThreadSpeaksItsOwnLanguage) {
    const std::string launch = L10n::language();
    const std::vector<std::string> three = {"a", "b", "c"};
    std::barrier bothSet(2);
    std::string seen[2];
    const auto work = [&](int index, const char* language) {
        L10n::LanguageOverride outer(language);
        { L10n::LanguageOverride inner("ja"); }
        bothSet.arrive_and_wait(); // both overrides are in force from here on
        seen[index] = title(LanguageChoice::system) + "/" + title(LanguageChoice::chinese) + "/" + L10n::list(three) +
                      "/" + L10n::clauses(three) + "/" + L10n::clauses(three, L10n::ClauseSeparator::semicolon);
        bothSet.arrive_and_wait();
    };
    std::thread chinese(work, 0, "zh-Hans"), english(work, 1, "en");
    chinese.join(), english.join();
    EXPECT_EQ(seen[0], "跟随系统/简体中文/a、b、c/a，b，c/a；b；c");
    EXPECT_EQ(seen[1], "Use System Language/简体中文/a, b, c/a, b, c/a; b; c");
    EXPECT_EQ(L10n::language(), launch);
    EXPECT_EQ(L10n::list({"a"}) + L10n::list({}), "a");
}

// The placeholders of a text, "%?" for a "%" that starts none.
std::multiset<std::string> placeholders(std::string_view text) {
    std::multiset<std::string> found;
    for (std::size_t at = text.find('%'); at != std::string_view::npos; at = text.find('%', at + 1)) {
        const auto placeholder = L10nPlaceholder::parse(text.substr(at));
        found.insert(placeholder ? std::string(text.substr(at, placeholder->length)) : "%?");
        if (placeholder) at += placeholder->length - 1;
    }
    return found;
}

TEST(L10nTable, CompiledTablesAreTheDataFilesWithTheSameKeysAndPlaceholders) {
    const L10nSource::Table &base = L10nSource::values(), &english = *L10nSource::translation("en");
    for (const auto& [language, table] : {std::pair{"zh-Hans", &base}, std::pair{"en", &english}}) {
        const auto file = JSONDocument::parse(readFile(std::string(OVIK_SOURCE_DIR) + "/data/l10n/" + language + ".json"));
        for (const auto& [key, value] : file.root().members()) {
            const auto found = table->find(key);
            EXPECT_TRUE(found != table->end() && found->second == value.string()) << language << ": " << key;
        }
        // A key written twice, or a text that isn't one, would leave the table smaller.
        EXPECT_EQ(table->size(), file.root().size()) << language;
    }
    EXPECT_EQ(base.size(), english.size());
    for (const auto& [key, text] : base) {
        const auto found = english.find(key);
        ASSERT_NE(found, english.end()) << key << " has no English text";
        EXPECT_FALSE(placeholders(text).contains("%?")) << key;
        EXPECT_EQ(placeholders(text), placeholders(found->second)) << key;
    }
}

} // namespace
} // namespace ovik
