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

struct PreferredCase {
    std::optional<std::string> override;
    std::optional<std::string> setting;
    std::vector<std::string> preferences;
    const char* expected;
};

TEST(PreferredLanguage, TheFirstSupportedCandidateWins) {
    const std::optional<std::string> none;
    const PreferredCase cases[] = {
        {"zh_TW", none, {"en"}, "zh-Hans"},
        {none, none, {"fr", "ja-JP"}, "ja"},
        // An override or a setting stands alone: an unsupported one doesn't fall to what follows.
        {"fr", "en", {"ja"}, "zh-Hans"},
        {none, "de", {"ja"}, "zh-Hans"},
        {none, "ko", {"en"}, "ko"},
        {"en_US", "ko", {"ja"}, "en"},
        {"EN-gb", none, {}, "en"},
        {none, none, {}, "zh-Hans"},
        {none, none, {"zh-CN", "en"}, "zh-Hans"},
        {none, none, {"zh_SG", "en"}, "zh-Hans"},
        {none, none, {"zh", "en"}, "zh-Hans"},
        {none, none, {"zh-Hans-HK", "en"}, "zh-Hans"},
        {none, none, {"zh-Hant", "zh-TW", "zh-HK", "ko-KR"}, "ko"},
        {none, none, {"english", "ja"}, "ja"},
        {"", none, {"en"}, "zh-Hans"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(L10n::preferredLanguage(c.override, c.setting, c.preferences), c.expected)
            << c.override.value_or("-") << " / " << c.setting.value_or("-");
    }
}

struct EnvironmentCase {
    L10nEnvironment environment;
    std::vector<std::string> expected;
};

TEST(LanguagePreference, SystemLanguagesComeFromTheLocaleVariables) {
    const EnvironmentCase cases[] = {
        {{{"LANG", "en_US.UTF-8"}}, {"en-US"}},
        {{{"LANGUAGE", "fr:ja_JP:en"}, {"LANG", "ko_KR.UTF-8"}}, {"fr", "ja-JP", "en", "ko-KR"}},
        {{{"LANGUAGE", "::fr:"}}, {"fr"}},
        {{{"LC_ALL", "de_DE.UTF-8@euro"}, {"LC_MESSAGES", "ja_JP"}, {"LANG", "ko"}}, {"de-DE"}},
        {{{"LC_ALL", ""}, {"LC_MESSAGES", "ja_JP@cjk"}, {"LANG", "ko"}}, {"ja-JP"}},
        // "C" is a locale, so the variables after it are not asked.
        {{{"LC_ALL", "C"}, {"LANG", "ja_JP"}}, {}},
        {{{"LC_MESSAGES", "POSIX"}, {"LANG", "ja_JP"}}, {}},
        {{{"LANG", "C.UTF-8"}}, {}},
        {{{"LANGUAGE", "C:en"}}, {"en"}},
        {{}, {}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(LanguagePreference::systemLanguages(c.environment), c.expected)
            << (c.environment.empty() ? "" : c.environment.begin()->second);
    }
}

class TemporaryFolder {
public:
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
    struct Case {
        L10nEnvironment environment;
        fs::path expected;
    };
    const Case cases[] = {
        {{{"XDG_CONFIG_HOME", "/cfg"}, {"HOME", "/home/a"}}, "/cfg"},
        {{{"XDG_CONFIG_HOME", ""}, {"HOME", "/home/a"}}, "/home/a/.config"},
        {{{"XDG_CONFIG_HOME", "relative"}, {"HOME", "/home/a"}}, "/home/a/.config"},
        {{{"HOME", "/home/a"}}, "/home/a/.config"},
        {{}, ""},
    };
    for (const auto& c : cases) {
        const auto preference = LanguagePreference::standard(c.environment);
        EXPECT_EQ(preference.defaults, c.expected);
        EXPECT_EQ(preference.domain, "com.tarnel.ovik");
    }
    EXPECT_EQ(LanguagePreference::standard({{"XDG_CONFIG_HOME", "/cfg"}}).domainFile(),
              "/cfg/com.tarnel.ovik/defaults.json");
}

TEST(LanguagePreference, AChoiceIsStoredAndRemoved) {
    TemporaryFolder folder;
    const LanguagePreference preference{folder.path(), "com.tarnel.ovik"};
    EXPECT_EQ(preference.choice(), LanguageChoice::system);

    preference.setChoice(LanguageChoice::english);
    EXPECT_EQ(contents(preference.domainFile()), "{\n  \"AppleLanguages\" : [\n    \"en\"\n  ]\n}");
    EXPECT_EQ(preference.choice(), LanguageChoice::english);

    preference.setChoice(LanguageChoice::korean);
    EXPECT_EQ(preference.choice(), LanguageChoice::korean);

    // Nothing left in the domain: the file goes.
    preference.setChoice(LanguageChoice::system);
    EXPECT_FALSE(fs::exists(preference.domainFile()));
    EXPECT_EQ(preference.choice(), LanguageChoice::system);
    preference.setChoice(LanguageChoice::system);
    EXPECT_FALSE(fs::exists(preference.domainFile()));
}

TEST(LanguagePreference, OtherSettingsOfTheDomainAreKept) {
    TemporaryFolder folder;
    const LanguagePreference preference{folder.path(), "com.tarnel.ovik"};
    writeText(preference.domainFile(), R"({"AppleLanguages": ["ja"], "other": 1})");
    EXPECT_EQ(preference.choice(), LanguageChoice::japanese);
    preference.setChoice(LanguageChoice::system);
    EXPECT_EQ(contents(preference.domainFile()), "{\n  \"other\" : 1\n}");
    preference.setChoice(LanguageChoice::chinese);
    EXPECT_EQ(contents(preference.domainFile()), "{\n  \"AppleLanguages\" : [\n    \"zh-Hans\"\n  ],\n  \"other\" : 1\n}");
}

TEST(LanguagePreference, StoredValuesAreReadLikeAnOverride) {
    struct Case {
        const char* file;
        LanguageChoice expected;
    };
    const Case cases[] = {
        {R"({"AppleLanguages": ["en-GB", "ja"]})", LanguageChoice::english},
        {R"({"AppleLanguages": ["ko_KR"]})", LanguageChoice::korean},
        // The first entry stands alone, and an unsupported one is the base language.
        {R"({"AppleLanguages": ["zh_TW", "en"]})", LanguageChoice::chinese},
        {R"({"AppleLanguages": ["fr"]})", LanguageChoice::chinese},
    };
    for (const auto& c : cases) {
        TemporaryFolder folder;
        const LanguagePreference preference{folder.path(), "d"};
        writeText(preference.domainFile(), c.file);
        EXPECT_EQ(preference.choice(), c.expected) << c.file;
    }
}

TEST(LanguagePreference, AnUnreadableDomainHoldsNoChoice) {
    for (const char* file : {"", "{", "not json", "[\"en\"]", "{\"AppleLanguages\": \"en\"}",
                             "{\"AppleLanguages\": []}", "{\"AppleLanguages\": [1, \"en\"]}", "{\"other\": true}",
                             "\xff\xfe{}"}) {
        TemporaryFolder folder;
        const LanguagePreference preference{folder.path(), "d"};
        writeText(preference.domainFile(), file);
        EXPECT_EQ(preference.choice(), LanguageChoice::system) << file;
    }
    TemporaryFolder folder;
    const LanguagePreference preference{folder.path(), "d"};
    fs::create_directories(preference.domainFile()); // a folder where the file should be
    EXPECT_EQ(preference.choice(), LanguageChoice::system);
}

TEST(LanguagePreference, AnUnreadableDomainIsReplacedByAChoice) {
    TemporaryFolder folder;
    const LanguagePreference preference{folder.path(), "d"};
    writeText(preference.domainFile(), "{ broken");
    preference.setChoice(LanguageChoice::japanese);
    EXPECT_EQ(preference.choice(), LanguageChoice::japanese);
}

TEST(LanguagePreference, AChoiceThatCantBeStoredIsATypedError) {
    const LanguagePreference nowhere{{}, "com.tarnel.ovik"};
    EXPECT_EQ(nowhere.choice(), LanguageChoice::system);
    EXPECT_THROW(nowhere.setChoice(LanguageChoice::english), PosixError);

    TemporaryFolder folder;
    writeText(folder.path() / "file", "x"); // the settings folder is a file
    const LanguagePreference blocked{folder.path() / "file", "d"};
    EXPECT_THROW(blocked.setChoice(LanguageChoice::english), PosixError);
    EXPECT_EQ(contents(folder.path() / "file"), "x");
}

TEST(LaunchLanguage, OverrideThenSettingThenEnvironment) {
    TemporaryFolder folder;
    const std::string config = folder.path().string();
    struct Case {
        L10nEnvironment environment;
        const char* expected;
    };
    const std::vector<Case> withoutSetting = {
        {{{"LANG", "en_US.UTF-8"}}, "en"},
        {{{"LANGUAGE", "fr:ja"}, {"LANG", "ko_KR.UTF-8"}}, "ja"},
        {{{"OVIK_LANGUAGE", "ko"}, {"LANG", "en_US.UTF-8"}}, "ko"},
        // An unsupported override is the base language, not the environment's.
        {{{"OVIK_LANGUAGE", "fr"}, {"LANG", "en_US.UTF-8"}}, "zh-Hans"},
        {{{"OVIK_LANGUAGE", ""}, {"LANG", "en_US.UTF-8"}}, "en"},
        {{{"LC_ALL", "C"}, {"LANG", "en_US.UTF-8"}}, "zh-Hans"},
        {{}, "zh-Hans"},
    };
    for (auto c : withoutSetting) {
        c.environment.emplace("XDG_CONFIG_HOME", config);
        EXPECT_EQ(L10n::launchLanguage(c.environment), c.expected);
    }

    LanguagePreference{folder.path(), "com.tarnel.ovik"}.setChoice(LanguageChoice::korean);
    EXPECT_EQ(L10n::launchLanguage({{"XDG_CONFIG_HOME", config}, {"LANG", "en_US.UTF-8"}}), "ko");
    EXPECT_EQ(L10n::launchLanguage({{"XDG_CONFIG_HOME", config}, {"OVIK_LANGUAGE", "ja"}}), "ja");
    EXPECT_EQ(L10n::launchLanguage({{"HOME", config}, {"LANG", "en_US.UTF-8"}}), "en");
}

} // namespace
} // namespace ovik
