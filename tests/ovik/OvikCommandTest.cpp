#include <gtest/gtest.h>

#include "RunCommand.h"

namespace ovik::testing {
namespace {

TEST(OvikCommand, TextSpeaksTheLanguageInForce) {
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{}, "没有结果文件：a/b.ovikres\n"},
        {{"LANG=en_US.UTF-8"}, "No result file: a/b.ovikres\n"},
        {{"LANG=en_US.UTF-8", "OVIK_LANGUAGE=fr"}, "没有结果文件：a/b.ovikres\n"},
        {{"LANGUAGE=fr:en", "LANG=zh_CN.UTF-8"}, "No result file: a/b.ovikres\n"},
    };
    for (const auto& [environment, expected] : cases)
        EXPECT_EQ(runOvik({"text", "results.file.missing", "a/b.ovikres"}, environment).out, expected)
            << (environment.empty() ? "" : environment.back());
    EXPECT_EQ(runOvik({"text", "model.lut.error.wrongCount", "27", "3"}).out, "这个 .cube 应有 27 行颜色，只有 3 行。\n");
    const CommandResult unknown = runOvik({"text", "no.such.key"});
    EXPECT_EQ(unknown.status, 0);
    EXPECT_EQ(unknown.out, "no.such.key\n");
    EXPECT_NE(runOvik({"version"}, {"OVIK_LANGUAGE=en"}).out.find("(en)"), std::string::npos);
}

TEST(OvikCommand, WrongUsageExitsWithTwo) {
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{}, {"text"}, {"frobnicate"}, {"version", "--bogus"}}) {
        const CommandResult result = runOvik(arguments);
        EXPECT_EQ(result.status, 2) << (arguments.empty() ? "(none)" : arguments[0]);
        EXPECT_TRUE(result.out.empty());
        EXPECT_FALSE(result.err.empty());
    }
}

} // namespace
} // namespace ovik::testing
