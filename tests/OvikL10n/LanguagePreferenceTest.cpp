#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "OvikL10n/L10n.h"
#include "OvikL10n/LanguagePreference.h"
#include "OvikPlatform/files/PosixError.h"

namespace ovik {
namespace {

namespace fs = std::filesystem;

TEST(PreferredLanguage, TheFirstSupportedCandidateWins) {
    struct Case {
        std::optional<std::string> override, setting;
        std::vector<std::string> preferences;
        const char* expected;
    };
    const std::optional<std::string> none;
    const Case cases[] = {
        {"zh_TW", none, {"en"}, "zh-Hans"},
        {none, none, {"fr", "ja-JP"}, "ja"},
        // An override or a setting stands alone: an unsupported one doesn't fall to what follows.
        {"fr", "en", {"ja"}, "zh-Hans"},
        {none, "de", {"ja"}, "zh-Hans"},
        {"EN-gb", "ko", {}, "en"},
        {"", none, {"en"}, "zh-Hans"},
        {none, none, {}, "zh-Hans"},
        {none, none, {"zh-Hans-HK", "en"}, "zh-Hans"},
        {none, none, {"zh-Hant", "zh-TW", "english", "ko-KR"}, "ko"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(L10n::preferredLanguage(c.override, c.setting, c.preferences), c.expected)
            << c.override.value_or("-") << " / " << c.setting.value_or("-");
    }
}

TEST(LanguagePreference, SystemLanguagesComeFromTheLocaleVariables) {
    struct Case {
        L10nEnvironment environment;
        std::vector<std::string> expected;
    };
    const Case cases[] = {
        {{{"LANGUAGE", "::fr:ja_JP"}, {"LANG", "ko_KR.UTF-8"}}, {"fr", "ja-JP", "ko-KR"}},
        {{{"LC_ALL", "de_DE.UTF-8@euro"}, {"LC_MESSAGES", "ja_JP"}, {"LANG", "ko"}}, {"de-DE"}},
        {{{"LC_ALL", ""}, {"LC_MESSAGES", "ja_JP@cjk"}, {"LANG", "ko"}}, {"ja-JP"}},
        // "C" is a locale, so the variables after it are not asked.
        {{{"LC_ALL", "C"}, {"LANG", "ja_JP"}}, {}},
        {{{"LANG", "C.UTF-8"}}, {}},
        {{{"LANGUAGE", "C:en"}}, {"en"}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(LanguagePreference::systemLanguages(c.environment), c.expected) << c.environment.begin()->second;
    }
}

struct TemporaryFolder {
    TemporaryFolder() {
        std::string name = (fs::temp_directory_path() / "ovik-l10n-XXXXXX").string();
        if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
        path_ = name;
    }
    ~TemporaryFolder() { fs::remove_all(path_); }
    const fs::path& path() const { return path_; }

private:
    fs::path path_;
};

std::string contents(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}

void writeText(const fs::path& file, const std::string& text) {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
}

TEST(LanguagePreference, TheDefaultsFolderFollowsXDG) {
    const std::pair<L10nEnvironment, fs::path> cases[] = {
        {{{"XDG_CONFIG_HOME", "/cfg"}, {"HOME", "/home/a"}}, "/cfg"},
        {{{"XDG_CONFIG_HOME", ""}, {"HOME", "/home/a"}}, "/home/a/.config"},
        {{{"XDG_CONFIG_HOME", "relative"}, {"HOME", "/home/a"}}, "/home/a/.config"},
        {{}, ""},
    };
    for (const auto& [environment, expected] : cases) EXPECT_EQ(LanguagePreference::standard(environment).defaults, expected);
    EXPECT_EQ(LanguagePreference::standard({{"XDG_CONFIG_HOME", "/cfg"}}).domainFile(),
              "/cfg/com.tarnel.ovik/defaults.json");
}

TEST(LanguagePreference, AChoiceIsStoredBesideOtherSettingsAndRemoved) {
    TemporaryFolder folder;
    const LanguagePreference preference{folder.path(), "com.tarnel.ovik"};
    preference.setChoice(LanguageChoice::english);
    EXPECT_EQ(contents(preference.domainFile()), "{\n  \"AppleLanguages\" : [\n    \"en\"\n  ]\n}");
    // Nothing left in the domain: the file goes.
    preference.setChoice(LanguageChoice::system);
    EXPECT_FALSE(fs::exists(preference.domainFile()));

    writeText(preference.domainFile(), R"({"AppleLanguages": ["ja"], "other": 1})");
    preference.setChoice(LanguageChoice::system);
    EXPECT_EQ(contents(preference.domainFile()), "{\n  \"other\" : 1\n}");
    preference.setChoice(LanguageChoice::chinese);
    EXPECT_EQ(contents(preference.domainFile()), "{\n  \"AppleLanguages\" : [\n    \"zh-Hans\"\n  ],\n  \"other\" : 1\n}");

    writeText(preference.domainFile(), "{ broken"); // an unreadable domain is replaced
    preference.setChoice(LanguageChoice::korean);
    EXPECT_EQ(preference.choice(), LanguageChoice::korean);
}

TEST(LanguagePreference, StoredValuesAreReadLikeAnOverride) {
    const std::pair<const char*, LanguageChoice> cases[] = {
        {R"({"AppleLanguages": ["en-GB", "ja"]})", LanguageChoice::english},
        {R"({"AppleLanguages": ["ja"], "other": 1})", LanguageChoice::japanese},
        // The first entry stands alone, and an unsupported one is the base language.
        {R"({"AppleLanguages": ["zh_TW", "en"]})", LanguageChoice::chinese},
        {R"({"AppleLanguages": ["fr"]})", LanguageChoice::chinese},
        {"", LanguageChoice::system}, // unreadable domains hold no choice
        {"not json", LanguageChoice::system}, {"[\"en\"]", LanguageChoice::system},
        {"{\"AppleLanguages\": \"en\"}", LanguageChoice::system}, {"{\"AppleLanguages\": []}", LanguageChoice::system},
        {"{\"AppleLanguages\": [1, \"en\"]}", LanguageChoice::system}, {"\xff\xfe{}", LanguageChoice::system},
    };
    for (const auto& [file, expected] : cases) {
        TemporaryFolder folder;
        const LanguagePreference preference{folder.path(), "d"};
        writeText(preference.domainFile(), file);
        EXPECT_EQ(preference.choice(), expected) << file;
    }
    TemporaryFolder folder;
    const LanguagePreference preference{folder.path(), "d"};
    EXPECT_EQ(preference.choice(), LanguageChoice::system);
    fs::create_directories(preference.domainFile()); // a folder where the file should be
    EXPECT_EQ(preference.choice(), LanguageChoice::system);
}

TEST(LanguagePreference, AChoiceThatCantBeStoredIsATypedErrorAndWritesNothing) {
    EXPECT_THROW((LanguagePreference{{}, "com.tarnel.ovik"}.setChoice(LanguageChoice::english)), PosixError);

    TemporaryFolder folder;
    writeText(folder.path() / "file", "x"); // the settings folder is a file
    const LanguagePreference blocked{folder.path() / "file", "d"};
    EXPECT_THROW(blocked.setChoice(LanguageChoice::english), PosixError);
    EXPECT_EQ(contents(folder.path() / "file"), "x");
}

TEST(LaunchLanguage, OverrideThenSettingThenEnvironment) {
    TemporaryFolder folder;
    const std::string config = folder.path().string();
    const std::vector<std::pair<L10nEnvironment, const char*>> withoutSetting = {
        {{{"OVIK_LANGUAGE", "ko"}, {"LANG", "en_US.UTF-8"}}, "ko"},
        // An unsupported override is the base language, not the environment's.
        {{{"OVIK_LANGUAGE", "fr"}, {"LANG", "en_US.UTF-8"}}, "zh-Hans"},
        {{{"OVIK_LANGUAGE", ""}, {"LANG", "en_US.UTF-8"}}, "en"},
    };
    for (auto [environment, expected] : withoutSetting) {
        environment.emplace("XDG_CONFIG_HOME", config);
        EXPECT_EQ(L10n::launchLanguage(environment), expected);
    }

    LanguagePreference{folder.path(), "com.tarnel.ovik"}.setChoice(LanguageChoice::korean);
    EXPECT_EQ(L10n::launchLanguage({{"XDG_CONFIG_HOME", config}, {"LANG", "en_US.UTF-8"}}), "ko");
    EXPECT_EQ(L10n::launchLanguage({{"XDG_CONFIG_HOME", config}, {"OVIK_LANGUAGE", "ja"}}), "ja");
    EXPECT_EQ(L10n::launchLanguage({{"HOME", config}, {"LANG", "en_US.UTF-8"}}), "en");
}

} // namespace
} // namespace ovik
