#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "OvikL10n/L10n.h"
#include "OvikL10n/LanguagePreference.h"
#include "OvikPlatform/files/PosixError.h"
#include "OvikPlatform/files/TemporaryFolder.h"

namespace ovik {
namespace {

TEST(PreferredLanguage, TheFirstSupportedCandidateWins) {
    using Text = std::optional<std::string>;
    const Text none;
    const std::tuple<Text, Text, std::vector<std::string>, const char*> cases[] = {
        {"zh_TW", none, {"en"}, "zh-Hans"},
        // An override or a setting stands alone: an unsupported one doesn't fall to what follows.
        {"fr", "en", {"ja"}, "zh-Hans"},
        {none, "de", {"ja"}, "zh-Hans"},
        {"EN-gb", "ko", {}, "en"},
        {none, none, {"fr", "zh-SG", "en"}, "zh-Hans"},
        {none, none, {"zh-Hant", "zh-TW", "english", "zh-HK", "ko-KR"}, "ko"},
    };
    for (const auto& [override, setting, preferences, expected] : cases)
        EXPECT_EQ(L10n::preferredLanguage(override, setting, preferences), expected) << override.value_or("-");
}

TEST(LanguagePreference, TheEnvironmentNamesTheLanguagesAndTheSettingsFolder) {
    const std::pair<L10nEnvironment, std::vector<std::string>> cases[] = {
        {{{"LANGUAGE", "::fr:ja_JP"}, {"LANG", "ko_KR.UTF-8"}}, {"fr", "ja-JP", "ko-KR"}},
        {{{"LC_ALL", "de_DE.UTF-8@euro"}, {"LC_MESSAGES", "ja_JP"}, {"LANG", "ko"}}, {"de-DE"}},
        {{{"LC_ALL", ""}, {"LC_MESSAGES", "ja_JP@cjk"}, {"LANG", "ko"}}, {"ja-JP"}},
        // "C" and "POSIX" are locales, so the variables after them are not asked.
        {{{"LC_ALL", "C"}, {"LANG", "ja_JP"}}, {}},
        {{{"LC_MESSAGES", "POSIX"}, {"LANG", "ja_JP"}}, {}},
        {{{"LANGUAGE", "C:en"}}, {"en"}},
    };
    for (const auto& [environment, expected] : cases)
        EXPECT_EQ(LanguagePreference::systemLanguages(environment), expected) << environment.begin()->second;
    EXPECT_EQ(LanguagePreference::standard({{"XDG_CONFIG_HOME", "relative"}, {"HOME", "/h"}}).domainFile(),
              "/h/.config/com.tarnel.ovik/defaults.json");
    EXPECT_EQ(LanguagePreference::standard({}).defaults, "");
}

class LanguagePreferenceFile : public testing::TemporaryFolder {
protected:
    LanguagePreference stored(const std::string& text) const {
        std::filesystem::create_directories(folder / "d");
        writeText(folder / "d" / "defaults.json", text);
        return {folder, "d"};
    }
};

TEST_F(LanguagePreferenceFile, AChoiceIsStoredBesideOtherSettingsOrRemoved) {
    const LanguagePreference preference{folder, "d"};
    preference.setChoice(LanguageChoice::english);
    EXPECT_EQ(readText(preference.domainFile()), "{\n  \"AppleLanguages\" : [\n    \"en\"\n  ]\n}");
    preference.setChoice(LanguageChoice::system); // nothing left in the domain: the file goes
    EXPECT_FALSE(std::filesystem::exists(preference.domainFile()));

    stored(R"({"AppleLanguages": ["ja"], "other": 1})").setChoice(LanguageChoice::system);
    EXPECT_EQ(readText(preference.domainFile()), "{\n  \"other\" : 1\n}");
    stored("{ broken").setChoice(LanguageChoice::korean); // an unreadable domain is replaced
    EXPECT_EQ(preference.choice(), LanguageChoice::korean);

    // A choice that can't be stored is a typed error and writes nothing.
    EXPECT_THROW((LanguagePreference{"", "d"}.setChoice(LanguageChoice::english)), PosixError); // no folder known
    writeText(folder / "file", "x");
    EXPECT_THROW((LanguagePreference{folder / "file", "d"}.setChoice(LanguageChoice::english)), PosixError);
    EXPECT_EQ(readText(folder / "file"), "x");
}

TEST_F(LanguagePreferenceFile, StoredValuesAreReadLikeAnOverride) {
    const std::pair<const char*, LanguageChoice> cases[] = {
        {R"({"AppleLanguages": ["en-GB", "ja"]})", LanguageChoice::english},
        // The first entry stands alone, and an unsupported one is the base language.
        {R"({"AppleLanguages": ["zh_TW", "en"]})", LanguageChoice::chinese},
        // Unreadable domains hold no choice.
        {"not json", LanguageChoice::system}, {R"({"AppleLanguages": "en"})", LanguageChoice::system},
        {R"({"AppleLanguages": [1, "en"]})", LanguageChoice::system},
    };
    for (const auto& [file, expected] : cases) EXPECT_EQ(stored(file).choice(), expected) << file;
}

TEST_F(LanguagePreferenceFile, TheLaunchLanguageIsTheOverrideThenTheSettingThenTheEnvironment) {
    const auto launch = [&](const char* override) {
        return L10n::launchLanguage({{"XDG_CONFIG_HOME", folder}, {"OVIK_LANGUAGE", override}, {"LANG", "en_US"}});
    };
    // An unsupported override is the base language, not the environment's.
    EXPECT_EQ(launch("ko") + launch("fr") + launch(""), "kozh-Hansen");
    LanguagePreference{folder, "com.tarnel.ovik"}.setChoice(LanguageChoice::korean);
    EXPECT_EQ(launch("") + launch("ja"), "koja");
}

} // namespace
} // namespace ovik
