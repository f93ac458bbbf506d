#include <gtest/gtest.h>

#include "RunCommand.h"

namespace ovik::testing {
namespace {

TEST(OvikCommand, TextSpeaksTheLanguageInForce) {
    struct Case {
        std::vector<std::string> environment;
        const char* expected;
    };
    const Case cases[] = {
        {{}, "没有结果文件：a/b.ovikres\n"},
        {{"OVIK_LANGUAGE=en"}, "No result file: a/b.ovikres\n"},
        {{"LANG=en_US.UTF-8"}, "No result file: a/b.ovikres\n"},
        {{"LANG=en_US.UTF-8", "OVIK_LANGUAGE=fr"}, "没有结果文件：a/b.ovikres\n"},
        {{"LANGUAGE=fr:en", "LANG=zh_CN.UTF-8"}, "No result file: a/b.ovikres\n"},
    };
    for (const Case& c : cases) {
        const CommandResult result = runOvik({"text", "results.file.missing", "a/b.ovikres"}, c.environment);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.out, c.expected) << (c.environment.empty() ? "" : c.environment.back());
    }
}

TEST(OvikCommand, TextFillsNumbersAndShowsUnknownKeys) {
    const CommandResult counted = runOvik({"text", "model.lut.error.wrongCount", "27", "3"});
    EXPECT_EQ(counted.out, "这个 .cube 应有 27 行颜色，只有 3 行。\n");
    const CommandResult unknown = runOvik({"text", "no.such.key"});
    EXPECT_EQ(unknown.status, 0);
    EXPECT_EQ(unknown.out, "no.such.key\n");
}

TEST(OvikCommand, WrongUsageExitsWithTwo) {
    const std::vector<std::vector<std::string>> wrong = {{}, {"text"}, {"frobnicate"}, {"version", "--bogus"}};
    for (const auto& arguments : wrong) {
        const CommandResult result = runOvik(arguments);
        EXPECT_EQ(result.status, 2) << (arguments.empty() ? "(none)" : arguments[0]);
        EXPECT_TRUE(result.out.empty());
        EXPECT_FALSE(result.err.empty());
    }
}

TEST(OvikCommand, VersionNamesTheLanguage) {
    const CommandResult result = runOvik({"version"}, {"OVIK_LANGUAGE=en"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out.rfind("ovik ", 0), 0u);
    EXPECT_NE(result.out.find("(en)"), std::string::npos);
}

} // namespace
} // namespace ovik::testing
