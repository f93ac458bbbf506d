#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <regex>
#include <string>

#include "OvikModel/time/CardDeliveryTiming.h"
#include "OvikModel/time/StageTiming.h"

namespace ovik {
namespace {

// Sets OVIK_TIMING_STDOUT for the life of the object (or unsets it), then puts it back.
class TimingSwitch {
public:
    explicit TimingSwitch(const char* value) {
        if (const char* before = std::getenv(name)) before_ = before;
        value ? setenv(name, value, 1) : unsetenv(name);
    }
    ~TimingSwitch() { before_ ? setenv(name, before_->c_str(), 1) : unsetenv(name); }

private:
    static constexpr const char* name = "OVIK_TIMING_STDOUT";
    std::optional<std::string> before_;
};

std::string printed(const StageTiming& timing) {
    std::FILE* file = std::tmpfile();
    timing.end(file);
    std::rewind(file);
    std::string text;
    for (int c; (c = std::fgetc(file)) != EOF;) text.push_back(char(c));
    std::fclose(file);
    return text;
}

TEST(StageTiming, PrintsOnlyWhenAskedByTheEnvironment) {
    const StageTiming timing("draft load");
    {
        TimingSwitch on("1");
        EXPECT_TRUE(std::regex_match(printed(timing), std::regex("TIMING draft load [0-9]+\\.[0-9]{3} ms\n")));
    }
    for (const char* value : {static_cast<const char*>(nullptr), "0", "true", "11", ""}) {
        TimingSwitch off(value);
        EXPECT_EQ(printed(timing), "") << (value ? value : "unset");
    }
}

TEST(CardDeliveryTiming, EndsOnceForADraftThatWasCreated) {
    TimingSwitch on("1");
    const DraftID created = DraftID::random();
    const DraftID other = DraftID::random();
    ::testing::internal::CaptureStdout();
    CardDeliveryTiming::created(created);
    CardDeliveryTiming::added(other);
    CardDeliveryTiming::added(created);
    CardDeliveryTiming::added(created);
    const std::string out = ::testing::internal::GetCapturedStdout();
    EXPECT_TRUE(std::regex_match(out, std::regex("TIMING draftCreated-card-add [0-9]+\\.[0-9]{3} ms\n"))) << out;
}

} // namespace
} // namespace ovik
