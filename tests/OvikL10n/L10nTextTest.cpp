#include <gtest/gtest.h>

#include <barrier>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "OvikL10n/L10n.h"
#include "OvikL10n/L10nSource.h"
#include "OvikL10n/LanguageChoice.h"

namespace ovik {
namespace {

TEST(L10nText, EachLanguageReadsItsTableAndAnUnknownKeyIsItself) {
    const std::map<std::string, std::string> expected = {
        {"zh-Hans", "没有结果文件：%1$@"},
        {"en", "No result file: %1$@"},
        {"ko", "没有结果文件：%1$@"}, // no table of its own: the base language speaks
    };
    for (const auto& [language, text] : expected) {
        L10n::LanguageOverride override(language);
        EXPECT_EQ(L10n::text("results.file.missing"), text) << language;
        EXPECT_EQ(L10n::text("no.such.key"), "no.such.key") << language;
    }
}

TEST(L10nText, ATranslationFallsBackToTheBaseAndThenToTheKey) {
    const L10nSource::Table base = {{"both", "基"}, {"baseOnly", "只有基"}};
    const L10nSource::Table translation = {{"both", "translated"}};
    EXPECT_EQ(L10nSource::lookup("both", &translation, base), "translated");
    EXPECT_EQ(L10nSource::lookup("baseOnly", &translation, base), "只有基");
    EXPECT_EQ(L10nSource::lookup("neither", &translation, base), "neither");
    EXPECT_EQ(L10nSource::lookup("both", nullptr, base), "基");
}

TEST(L10nText, ListsAndClausesUseTheSeparatorsOfTheLanguage) {
    using enum L10n::ClauseSeparator;
    const std::vector<std::string> three = {"a", "b", "c"};
    {
        L10n::LanguageOverride chinese("zh-Hans");
        EXPECT_EQ(L10n::list(three), "a、b、c");
        EXPECT_EQ(L10n::clauses(three), "a，b，c");
        EXPECT_EQ(L10n::clauses(three, semicolon), "a；b；c");
    }
    L10n::LanguageOverride english("en");
    EXPECT_EQ(L10n::clauses(three, semicolon), "a; b; c");
    EXPECT_EQ(L10n::list({"a"}), "a");
    EXPECT_EQ(L10n::list({}), "");
}

TEST(L10nText, OverridesNestAndRestore) {
    const std::string launch = L10n::language();
    {
        L10n::LanguageOverride outer("en");
        { L10n::LanguageOverride inner("ja"); }
        EXPECT_EQ(L10n::language(), "en");
    }
    EXPECT_EQ(L10n::language(), launch);
}

TEST(L10nText, EachThreadWorksInItsOwnLanguage) {
    std::barrier bothSet(2);
    const auto work = [&](const char* language, std::string& out) {
        L10n::LanguageOverride override(language);
        bothSet.arrive_and_wait(); // both overrides are in force from here on
        out = L10n::text("settings.general.language.system");
        bothSet.arrive_and_wait();
    };
    std::string chinese, english;
    std::thread first(work, "zh-Hans", std::ref(chinese));
    std::thread second(work, "en", std::ref(english));
    first.join();
    second.join();
    EXPECT_EQ(chinese, "跟随系统");
    EXPECT_EQ(english, "Use System Language");
}

TEST(L10nText, OnlyTheSystemChoiceIsTitledInTheLanguageInForce) {
    L10n::LanguageOverride english("en");
    EXPECT_EQ(title(LanguageChoice::system), "Use System Language");
    EXPECT_EQ(title(LanguageChoice::chinese), "简体中文");
}

} // namespace
} // namespace ovik
