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

TEST(L10nText, AnUnknownKeyComesBackAsItself) {
    for (const char* language : {"zh-Hans", "en", "ja", "ko"}) {
        L10n::LanguageOverride override(language);
        EXPECT_EQ(L10n::text("no.such.key"), "no.such.key") << language;
        EXPECT_EQ(L10n::text(""), "") << language;
    }
}

TEST(L10nText, EachLanguageReadsItsTable) {
    const std::map<std::string, std::string> expected = {
        {"zh-Hans", "没有结果文件：%1$@"},
        {"en", "No result file: %1$@"},
        // No table of their own: the base language speaks.
        {"ja", "没有结果文件：%1$@"},
        {"ko", "没有结果文件：%1$@"},
    };
    for (const auto& [language, text] : expected) {
        L10n::LanguageOverride override(language);
        EXPECT_EQ(L10n::text("results.file.missing"), text) << language;
    }
}

TEST(L10nText, ATranslationFallsBackToTheBaseAndThenToTheKey) {
    const L10nSource::Table base = {{"both", "基"}, {"baseOnly", "只有基"}};
    const L10nSource::Table translation = {{"both", "translated"}, {"translationOnly", "extra"}};
    struct Case {
        const char* key;
        const L10nSource::Table* translation;
        const char* expected;
    };
    const Case cases[] = {
        {"both", &translation, "translated"},       {"baseOnly", &translation, "只有基"},
        {"translationOnly", &translation, "extra"}, {"neither", &translation, "neither"},
        {"both", nullptr, "基"},                    {"translationOnly", nullptr, "translationOnly"},
    };
    for (const auto& c : cases) EXPECT_EQ(L10nSource::lookup(c.key, c.translation, base), c.expected) << c.key;
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
    EXPECT_EQ(L10n::list(three), "a, b, c");
    EXPECT_EQ(L10n::clauses(three, semicolon), "a; b; c");
    EXPECT_EQ(L10n::list({"a"}), "a");
    EXPECT_EQ(L10n::list({}), "");
    EXPECT_EQ(L10n::clauses({"", ""}), ", ");
}

TEST(L10nText, OverridesNestAndRestore) {
    const std::string launch = L10n::language();
    {
        L10n::LanguageOverride outer("en");
        EXPECT_EQ(L10n::language(), "en");
        {
            L10n::LanguageOverride inner("ja");
            EXPECT_EQ(L10n::language(), "ja");
        }
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

TEST(L10nText, TheSystemChoiceIsTitledInTheLanguageInForce) {
    L10n::LanguageOverride english("en");
    EXPECT_EQ(title(LanguageChoice::system), "Use System Language");
    EXPECT_EQ(title(LanguageChoice::chinese), "简体中文");
}

} // namespace
} // namespace ovik
